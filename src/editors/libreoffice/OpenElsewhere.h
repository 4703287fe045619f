#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Whether two paths lead to the same file.
bool IsSameFile(std::string_view left, std::string_view right);

enum class LockHolder {
  kNobody,
  kOwnOffice,  ///< the one that we talk with, unless the lock was left by one that had its profile before
  kAnotherOffice,
};

/// Who has the file open by what a lock file beside it says. A lock of one of our own profile folders, which
/// lie in `profiles`, counts only while its helper or its office lives; `own` is the one of the office that
/// we talk with. Folders are native paths.
LockHolder HolderOfLock(std::string_view path, const std::string& profiles, const std::string& own);

}  // namespace qb
