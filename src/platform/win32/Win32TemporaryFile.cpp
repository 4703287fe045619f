#include "platform/win32/Win32TemporaryFile.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Paths.h"

namespace qb {
namespace {

constexpr int kNameAttempts = 100;
constexpr int kMoveAttempts = 25;
constexpr DWORD kPause = 20;  // milliseconds

/// Whether somebody else, such as a virus scanner, may be in the way for a moment.
bool MayPass(DWORD error) {
  return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED;
}

}  // namespace

Win32TemporaryFile::Win32TemporaryFile(const std::wstring& folder) {
  for (int i = 0; i < kNameAttempts; ++i) {
    name_ = InFolder(folder, L".quillbank-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                 std::to_wstring(i) + L".tmp");
    file_ = SystemHandle(CreateFileW(name_.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                     CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    error_ = file_ ? ERROR_SUCCESS : GetLastError();
    if (error_ != ERROR_FILE_EXISTS && error_ != ERROR_ALREADY_EXISTS) return;
  }
}

Win32TemporaryFile::~Win32TemporaryFile() {
  if (moved_ || error_ != ERROR_SUCCESS) return;
  file_.Close();
  SetFileAttributesW(name_.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileW(name_.c_str());
}

std::uint32_t Win32TemporaryFile::MoveTo(const std::wstring& target) {
  constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  file_.Close();
  for (int i = 1; MoveFileExW(name_.c_str(), target.c_str(), kHow) == FALSE; ++i) {
    const DWORD error = GetLastError();
    if (!MayPass(error) || i == kMoveAttempts) return error;
    Sleep(kPause);
  }
  moved_ = true;
  return ERROR_SUCCESS;
}

}  // namespace qb
