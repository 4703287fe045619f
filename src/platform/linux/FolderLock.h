#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace qb {

/// Takes the lock of the folder in which the native file stands, so that no lock file is left anywhere and
/// folders that may only be read have one too. Within one process the same folder may be locked several
/// times. Where the file system knows no locks there is none. Raises 70 about `path` if another process keeps
/// the lock for longer than `patience`, 76 if there is no folder.
std::unique_ptr<FileLock> LockFolderOf(const std::string& native, std::string_view path,
                                       std::chrono::milliseconds patience);

}  // namespace qb
