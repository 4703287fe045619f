#include "platform/linux/LinuxErrors.h"

#include <sys/stat.h>

#include <cerrno>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

bool FolderExists(const std::string& native) {
  struct stat status {};
  const std::size_t separator = native.rfind('/');
  if (separator == std::string::npos || separator == 0) return true;
  return stat(native.substr(0, separator).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

long FailureOf(int error, const std::string& native) {
  switch (error) {
    case ENOENT:
      return FolderExists(native) ? failure::kFileNotFound : failure::kPathNotFound;
    case ENOTDIR:
      return failure::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return failure::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return failure::kDiskFull;
    case EIO:
      return failure::kDeviceInputOutput;
    case ENOMEM:
      return failure::kOutOfMemory;
    default:
      return failure::kPathFileAccess;
  }
}

}  // namespace

void RaiseSystemError(int error, std::string_view path, const std::string& native) {
  RaiseAbout(FailureOf(error, native), path);
}

}  // namespace qb
