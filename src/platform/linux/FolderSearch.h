#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"

namespace qb {

/// What the system tells about a native file; nothing if there is none.
std::optional<FileInfo> InfoOf(const std::string& native);

/// Whether an entry with `attributes` comes up in a search for `asked`.
bool IsWanted(unsigned attributes, unsigned asked);

/// The names in a native folder that match `pattern` (`*`, `?`, any case; empty for all) and are wanted, in
/// the order of their upper-case names.
std::vector<std::string> NamesInFolder(const std::string& folder, std::string_view pattern, unsigned asked);

}  // namespace qb
