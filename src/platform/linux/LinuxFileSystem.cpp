#include "platform/linux/LinuxFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/linux/ContentReplacement.h"
#include "platform/linux/FileCopy.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FolderLock.h"
#include "platform/linux/FolderSearch.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/LinuxFileWriter.h"
#include "platform/linux/TemporaryFile.h"

namespace qb {
namespace {

void RefuseReadOnly(const std::string& native, std::string_view path) {
  struct stat status {};
  if (stat(native.c_str(), &status) == 0 && IsReadOnly(status)) RaiseSystemError(EACCES, path, native);
}

}  // namespace

std::optional<std::string> LinuxFileSystem::NativeExisting(std::string_view path) {
  if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
  return names_.Existing(paths_.Native(path));
}

std::string LinuxFileSystem::NativeForCreation(std::string_view path) {
  if (path.find('\0') != std::string_view::npos)
    RaiseSystemError(EINVAL, path.substr(0, path.find('\0')), {});
  return names_.ForCreation(paths_.Native(path));
}

std::optional<FileInfo> LinuxFileSystem::Find(std::string_view path) {
  const std::optional<std::string> native = NativeExisting(path);
  return native ? InfoOf(*native) : std::nullopt;
}

std::vector<std::string> LinuxFileSystem::Search(std::string_view pattern, unsigned attributes) {
  const std::size_t separator = pattern.rfind('\\');
  const std::string_view name = separator == std::string_view::npos ? pattern : pattern.substr(separator + 1);
  if (!name.empty() && name.find_first_of("*?") == std::string_view::npos) {
    const std::optional<FileInfo> info = Find(pattern);
    if (!info || !IsWanted(info->attributes, attributes)) return {};
    return {info->name};
  }
  const std::string_view folder = pattern.substr(0, pattern.size() - name.size());
  const std::optional<std::string> native = NativeExisting(folder.empty() ? std::string_view(".") : folder);
  if (!native) return {};
  return NamesInFolder(*native, name, attributes);
}

std::string LinuxFileSystem::Read(std::string_view path) {
  const std::string native = NativeForCreation(path);
  const FileDescriptor file(native, O_RDONLY | O_NONBLOCK);
  struct stat status {};
  if (!file || fstat(file.Get(), &status) != 0) RaiseSystemError(errno, path, native);
  if (!S_ISREG(status.st_mode)) RaiseSystemError(EISDIR, path, native);
  std::string bytes;
  // One byte more than expected, so that the end shows in the first reading.
  const int error = file.ReadAll(bytes, static_cast<std::size_t>(status.st_size) + 1);
  if (error != 0) RaiseSystemError(error, path, native);
  return bytes;
}

std::unique_ptr<FileWriter> LinuxFileSystem::Open(std::string_view path, int flags) {
  std::string native = NativeForCreation(path);
  RefuseReadOnly(native, path);
  FileDescriptor file(native, O_WRONLY | O_CREAT | O_NONBLOCK | flags, 0666);
  if (!file) RaiseSystemError(errno, path, native);
  return std::make_unique<LinuxFileWriter>(std::move(file), std::move(native), std::string(path));
}

std::unique_ptr<FileWriter> LinuxFileSystem::OpenForWriting(std::string_view path) {
  return Open(path, O_TRUNC);
}

std::unique_ptr<FileWriter> LinuxFileSystem::OpenForAppending(std::string_view path) {
  return Open(path, O_APPEND);
}

bool LinuxFileSystem::Copy(std::string_view source, std::string_view target) {
  return CopyNativeFile(NativeForCreation(source), source, NativeForCreation(target), target);
}

void LinuxFileSystem::Remove(std::string_view path) {
  const std::string native = NativeForCreation(path);
  RefuseReadOnly(native, path);
  if (unlink(native.c_str()) != 0) RaiseSystemError(errno, path, native);
}

void LinuxFileSystem::CheckRemovable(std::string_view path) {
  const std::string native = NativeForCreation(path);
  RefuseReadOnly(native, path);
  struct stat status {};
  if (lstat(native.c_str(), &status) != 0) RaiseSystemError(errno, path, native);
  if (S_ISDIR(status.st_mode)) RaiseSystemError(EISDIR, path, native);
  if (access(FolderOf(native).c_str(), W_OK) != 0) RaiseSystemError(errno, path, native);
}

void LinuxFileSystem::MakeDirectory(std::string_view path) {
  const std::string native = NativeForCreation(path);
  if (mkdir(native.c_str(), 0777) != 0) RaiseSystemError(errno, path, native);
}

void LinuxFileSystem::SetAttributes(std::string_view path, unsigned attributes) {
  const std::string native = NativeForCreation(path);
  struct stat status {};
  if (stat(native.c_str(), &status) != 0) RaiseSystemError(errno, path, native);
  const bool readOnly = (attributes & attribute::kReadOnly) != 0;
  if (readOnly == IsReadOnly(status)) return;
  const mode_t mode = status.st_mode & 07777;
  const mode_t changed = readOnly ? mode & ~static_cast<mode_t>(0222) : mode | S_IWUSR;
  if (chmod(native.c_str(), changed) != 0) RaiseSystemError(errno, path, native);
}

std::string LinuxFileSystem::ProgramDirectory() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? CurrentDirectory() : paths_.Windows(program.parent_path().string());
}

std::string LinuxFileSystem::Resolved(std::string_view path) {
  const std::string native = NativeForCreation(path);
  std::error_code failed;
  std::filesystem::path resolved = std::filesystem::weakly_canonical(native, failed);
  if (failed) resolved = std::filesystem::path(native).lexically_normal();
  std::string text = resolved.string();
  if (text.size() > 1 && text.ends_with('/')) text.pop_back();
  return paths_.Windows(text);
}

std::optional<FileStamp> LinuxFileSystem::Stamp(std::string_view path) {
  const std::optional<std::string> native = NativeExisting(path);
  struct stat status {};
  if (!native || stat(native->c_str(), &status) != 0 || S_ISDIR(status.st_mode)) return std::nullopt;
  return StampOf(status);
}

FileStamp LinuxFileSystem::ReplaceContent(std::string_view path, const Pieces& content) {
  return ReplaceFileContent(NativeForCreation(path), path, content);
}

std::unique_ptr<FileLock> LinuxFileSystem::Lock(std::string_view path) {
  return LockFolderOf(LinkTarget(NativeForCreation(path), path), path, patience_);
}

}  // namespace qb
