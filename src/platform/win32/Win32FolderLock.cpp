#include "platform/win32/Win32FolderLock.h"

#include <fmt/format.h>

#include <utility>

#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Errors.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Paths.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

/// Owned by the thread that took it; the system counts how often, and takes it from a process that ends.
class MutexLock : public FileLock {
 public:
  explicit MutexLock(SystemHandle mutex) : mutex_(std::move(mutex)) {}
  ~MutexLock() override { ReleaseMutex(mutex_.Get()); }

 private:
  SystemHandle mutex_;
};

/// A mutex that every user of the machine may open.
SystemHandle MutexOfAll(const std::wstring& name) {
  SECURITY_DESCRIPTOR descriptor{};
  InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE);
  SECURITY_ATTRIBUTES attributes{sizeof attributes, &descriptor, FALSE};
  return SystemHandle(CreateMutexW(&attributes, FALSE, name.c_str()));
}

}  // namespace

std::unique_ptr<FileLock> LockFolderOf(const std::wstring& native, std::string_view path,
                                       std::chrono::milliseconds patience) {
  const SystemHandle folder =
      OpenSharedFile(FolderOf(native), FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  BY_HANDLE_FILE_INFORMATION info{};
  if (!folder || GetFileInformationByHandle(folder.Get(), &info) == FALSE) {
    RaiseSystemError(GetLastError(), path, native);
  }
  SystemHandle mutex =
      MutexOfAll(Wide(fmt::format("Global\\Quillbank-{:08x}-{:08x}{:08x}", info.dwVolumeSerialNumber,
                                  info.nFileIndexHigh, info.nFileIndexLow)));
  if (!mutex) RaiseSystemError(GetLastError(), path, native);
  const DWORD answer = WaitForSingleObject(mutex.Get(), static_cast<DWORD>(patience.count()));
  // One that a dead process left behind is as good: content reaches the disk whole or not at all.
  if (answer != WAIT_OBJECT_0 && answer != WAIT_ABANDONED) {
    RaiseSystemError(answer == WAIT_FAILED ? GetLastError() : ERROR_LOCK_VIOLATION, path, native);
  }
  return std::make_unique<MutexLock>(std::move(mutex));
}

}  // namespace qb
