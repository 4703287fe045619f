#include "platform/linux/FileCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <vector>

#include "platform/linux/ContentReplacement.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/TemporaryFile.h"

namespace qb {
namespace {

constexpr std::size_t kStep = std::size_t{1} << 20U;

/// Copies through memory. 0, or the error number.
int CopyBytes(int source, const FileDescriptor& target) {
  std::vector<char> buffer(kStep);
  while (true) {
    const ssize_t count = read(source, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) return 0;
    const int error = target.WriteAll({buffer.data(), static_cast<std::size_t>(count)});
    if (error != 0) return error;
  }
}

/// Lets the system copy, which shares the blocks where it can, and copies the rest through memory.
int CopyContent(int source, const FileDescriptor& target) {
  while (true) {
    const ssize_t count = copy_file_range(source, nullptr, target.Get(), nullptr, kStep * 1024, 0);
    if (count > 0 || (count < 0 && errno == EINTR)) continue;
    if (count < 0 && (errno == ENOSPC || errno == EDQUOT || errno == EFBIG || errno == EIO)) return errno;
    return CopyBytes(source, target);  // at the end, or where the system cannot copy between the two
  }
}

int TakeOver(int target, const struct stat& source) {
  if (fchmod(target, source.st_mode & 0777) != 0) return errno;
  const timespec times[2] = {{0, UTIME_OMIT}, source.st_mtim};
  return futimens(target, times) != 0 ? errno : 0;
}

}  // namespace

bool CopyNativeFile(const std::string& source, std::string_view sourcePath, const std::string& target,
                    std::string_view targetPath) {
  const FileDescriptor from(source, O_RDONLY | O_NONBLOCK);
  struct stat sourceStatus {};
  if (!from || fstat(from.Get(), &sourceStatus) != 0) RaiseSystemError(errno, sourcePath, source);
  if (!S_ISREG(sourceStatus.st_mode)) RaiseSystemError(EISDIR, sourcePath, source);
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) {
    if (old.st_dev == sourceStatus.st_dev && old.st_ino == sourceStatus.st_ino) return false;
    if (!S_ISREG(old.st_mode)) RaiseSystemError(EISDIR, targetPath, target);
    if (IsReadOnly(old)) RaiseSystemError(EACCES, targetPath, target);
  }
  // The old file stays until the new one is whole, and a link that stands in its place is not followed.
  TemporaryFile temporary(FolderOf(target), 0666);
  int error = temporary.OpenError();
  if (error == 0) error = CopyContent(from.Get(), temporary.File());
  if (error == 0) error = TakeOver(temporary.File().Get(), sourceStatus);
  if (error == 0) error = temporary.File().Close();
  if (error == 0) error = temporary.MoveTo(target);
  if (error == 0) return true;
  RaiseSystemError(error, targetPath, target);
}

}  // namespace qb
