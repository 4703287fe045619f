#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Asks the user for a file to check in, offering those with `extension` (with its dot, or a pattern) first.
/// An empty `title` stands for the usual one. Several files come back as their directory and their names,
/// separated by blanks. Empty when cancelled.
std::string GetMultimediaFile(std::string_view extension, bool multiSelect, std::string_view title);

}  // namespace qb
