#include "platform/win32/Win32Errors.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Paths.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::uint32_t kDiskQuotaExceeded = 1295;  // not in every version of the system's headers

bool FolderExists(const std::wstring& native) {
  const DWORD attributes = GetFileAttributesW(FolderOf(native).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

long FailureOf(std::uint32_t error, const std::wstring& native) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return FolderExists(native) ? failure::kFileNotFound : failure::kPathNotFound;
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_DRIVE:
      return failure::kPathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
      return failure::kPermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return failure::kDiskFull;
    case ERROR_CRC:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_NOT_READY:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
      return failure::kDeviceInputOutput;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return failure::kOutOfMemory;
    default:
      return failure::kPathFileAccess;
  }
}

}  // namespace

void RaiseSystemError(std::uint32_t error, std::string_view path, const std::wstring& native) {
  RaiseAbout(FailureOf(error, native), path);
}

}  // namespace qb
