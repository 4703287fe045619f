#include "platform/linux/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <map>
#include <thread>
#include <utility>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxErrors.h"

namespace qb {
namespace {

constexpr std::chrono::milliseconds kPause{5};

/// Shares one system lock between all who hold it in this process.
class SharedFolderLock : public FileLock {
 public:
  explicit SharedFolderLock(std::shared_ptr<FileDescriptor> folder) : folder_(std::move(folder)) {}

 private:
  std::shared_ptr<FileDescriptor> folder_;  // its end gives the lock back
};

using FolderIdentity = std::pair<dev_t, ino_t>;

std::map<FolderIdentity, std::weak_ptr<FileDescriptor>>& LocksHeld() {
  static std::map<FolderIdentity, std::weak_ptr<FileDescriptor>> locks;
  return locks;
}

/// 0, or the error number. A file system without locks counts as success.
int WaitForLock(int folder, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (flock(folder, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) {
      if (std::chrono::steady_clock::now() >= end) return EACCES;
      std::this_thread::sleep_for(kPause);
    } else if (errno != EINTR) {
      return 0;
    }
  }
  return 0;
}

}  // namespace

std::unique_ptr<FileLock> LockFolderOf(const std::string& native, std::string_view path,
                                       std::chrono::milliseconds patience) {
  const std::size_t separator = native.rfind('/');
  const std::string name = separator == 0 ? "/" : native.substr(0, separator);
  auto folder = std::make_shared<FileDescriptor>(name, O_RDONLY | O_DIRECTORY);
  if (!*folder) RaiseSystemError(errno, path, native);
  struct stat status {};
  if (fstat(folder->Get(), &status) != 0) RaiseSystemError(errno, path, native);
  auto& locks = LocksHeld();
  std::erase_if(locks, [](const auto& entry) { return entry.second.expired(); });
  std::weak_ptr<FileDescriptor>& held = locks[{status.st_dev, status.st_ino}];
  if (std::shared_ptr<FileDescriptor> own = held.lock())
    return std::make_unique<SharedFolderLock>(std::move(own));
  const int error = WaitForLock(folder->Get(), patience);
  if (error != 0) RaiseSystemError(error, path, native);
  held = folder;
  return std::make_unique<SharedFolderLock>(std::move(folder));
}

}  // namespace qb
