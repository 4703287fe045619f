/// Loaded into the office before its own libraries. While the file that QB_FULL_DISK names is there, the disk
/// with the folder that stands in it is full: files can be made and read, but nothing more is written.

#include <dlfcn.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace {

bool IsOnFullDisk(int file) {
  const char* const full = std::getenv("QB_FULL_DISK");
  struct stat found {};
  if (full == nullptr || access(full, F_OK) != 0) return false;
  if (fstat(file, &found) != 0 || !S_ISREG(found.st_mode)) return false;
  std::string folder;
  std::getline(std::ifstream(full), folder);
  std::error_code none;
  const std::string name = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), none);
  return !folder.empty() && name.starts_with(folder);
}

template <class Function>
Function* Next(Function* /*type*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Calls the system's own function unless the disk is full.
template <class Function, class... Arguments>
ssize_t Guarded(Function* self, const char* name, int file, Arguments... arguments) {
  const int before = errno;
  if (IsOnFullDisk(file)) {
    errno = ENOSPC;
    return -1;
  }
  errno = before;
  return Next(self, name)(file, arguments...);
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
  return Guarded(&write, "write", file, bytes, count);
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t place) {
  return Guarded(&pwrite, "pwrite", file, bytes, count, place);
}
ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t place) {
  return Guarded(&pwrite64, "pwrite64", file, bytes, count, place);
}
ssize_t writev(int file, const iovec* parts, int count) {
  return Guarded(&writev, "writev", file, parts, count);
}
ssize_t sendfile(int file, int from, off_t* place, size_t count) {
  return Guarded(&sendfile, "sendfile", file, from, place, count);
}
ssize_t sendfile64(int file, int from, off64_t* place, size_t count) {
  return Guarded(&sendfile64, "sendfile64", file, from, place, count);
}
ssize_t copy_file_range(int from, off64_t* place, int file, off64_t* target, size_t count, unsigned flags) {
  if (IsOnFullDisk(file)) {
    errno = ENOSPC;
    return -1;
  }
  return Next(&copy_file_range, "copy_file_range")(from, place, file, target, count, flags);
}

}  // extern "C"
