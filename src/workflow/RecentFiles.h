#pragma once

#include <string_view>

namespace qb {

/// Puts a path at the top of the recent files. One that is listed already keeps its place, unless `force`.
void AddRecentFile(std::string_view path, bool force);

bool IsInRecentFiles(std::string_view path);

}  // namespace qb
