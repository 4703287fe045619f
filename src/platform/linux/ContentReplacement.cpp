#include "platform/linux/ContentReplacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <utility>

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/TemporaryFile.h"

namespace qb {
namespace {

constexpr int kMostLinks = 40;

/// Gives the new file what it takes over from the old one.
int TakeOver(int file, const struct stat& old) {
  // The owner comes first, since a change of owner takes bits of the mode away. Only the administrator may
  // give files away; for anybody else the file becomes his own.
  if (fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
  return fchmod(file, old.st_mode & 07777) != 0 ? errno : 0;
}

/// Stamps the file with the precise time. The system's own stamps move in steps of milliseconds, and two
/// writes within one step must not look the same.
int StampPrecisely(int file) {
  timespec times[2] = {{0, UTIME_OMIT}, {}};
  clock_gettime(CLOCK_REALTIME, &times[1]);
  return futimens(file, times) != 0 ? errno : 0;
}

int Fill(const FileDescriptor& file, const Pieces& content, const struct stat* old) {
  int error = file.WriteAll(content);
  if (error == 0 && old != nullptr) error = TakeOver(file.Get(), *old);
  if (error == 0) error = StampPrecisely(file.Get());
  if (error == 0) error = file.Sync();
  return error;
}

/// Some file systems cannot wait for a folder; there the name is as safe as they make it.
void SyncFolder(const std::string& folder) {
  const FileDescriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
  if (descriptor) descriptor.Sync();
}

}  // namespace

std::string LinkTarget(std::string native, std::string_view path) {
  for (int i = 0; i < kMostLinks; ++i) {
    struct stat status {};
    if (lstat(native.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) return native;
    std::string target(4096, '\0');
    const ssize_t length = readlink(native.c_str(), target.data(), target.size());
    if (length < 0) RaiseSystemError(errno, path, native);
    target.resize(static_cast<std::size_t>(length));
    if (!target.starts_with('/')) target.insert(0, FolderOf(native).append("/"));
    native = std::move(target);
  }
  RaiseSystemError(ELOOP, path, native);
}

FileStamp StampOf(const struct stat& status) {
  FileStamp stamp;
  stamp.device = status.st_dev;
  stamp.node = status.st_ino;
  stamp.size = static_cast<std::uint64_t>(status.st_size);
  stamp.lastWrite = {status.st_mtim.tv_sec, static_cast<std::int32_t>(status.st_mtim.tv_nsec)};
  stamp.lastChange = {status.st_ctim.tv_sec, static_cast<std::int32_t>(status.st_ctim.tv_nsec)};
  return stamp;
}

bool IsReadOnly(const struct stat& status) {
  return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

FileStamp ReplaceFileContent(const std::string& native, std::string_view path, const Pieces& content) {
  const std::string target = LinkTarget(native, path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) RaiseSystemError(EISDIR, path, target);
  if (exists && (IsReadOnly(old) || access(target.c_str(), W_OK) != 0))
    RaiseSystemError(EACCES, path, target);
  const std::string folder = FolderOf(target);
  TemporaryFile temporary(folder, exists ? 0600 : 0666);
  int error = temporary.OpenError();
  if (error == 0) error = Fill(temporary.File(), content, exists ? &old : nullptr);
  if (error == 0) error = temporary.MoveTo(target);
  if (error != 0) RaiseSystemError(error, path, target);
  SyncFolder(folder);
  struct stat status {};
  if (fstat(temporary.File().Get(), &status) != 0) RaiseSystemError(errno, path, target);
  return StampOf(status);
}

}  // namespace qb
