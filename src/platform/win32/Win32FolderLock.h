#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace qb {

/// Takes the lock of the folder in which the native file stands: a mutex of the system with a name made of
/// the folder's identity, so that no lock file is left anywhere and folders that may only be read have one
/// too. It excludes the processes of this machine, all users' sessions included. Within one process the same
/// folder may be locked several times. Raises 70 about `path` if another process keeps the lock for longer
/// than `patience`, 76 if there is no folder.
std::unique_ptr<FileLock> LockFolderOf(const std::wstring& native, std::string_view path,
                                       std::chrono::milliseconds patience);

}  // namespace qb
