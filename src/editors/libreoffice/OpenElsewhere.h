#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Whether two paths lead to the same file.
bool IsSameFile(std::string_view left, std::string_view right);

/// Whether a lock file beside the file says that another office has it open. A lock of one of our own profile
/// folders, which lie in `profiles`, counts only while its helper or its office lives; one of the office that
/// we talk with, which has the profile `own`, does not count. Folders are native paths.
bool IsLockedElsewhere(std::string_view path, const std::string& profiles, const std::string& own);

}  // namespace qb
