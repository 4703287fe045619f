#include "platform/win32/Win32ContentReplacement.h"

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Errors.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32Paths.h"
#include "platform/win32/Win32TemporaryFile.h"

namespace qb {
namespace {

constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// Stamps the file with the precise time, since the system's own stamps move in steps of milliseconds and two
/// writes within one step must not look the same; and with the time of creation of the one that it replaces.
std::uint32_t SetTimes(const SystemHandle& file, const std::wstring& old) {
  FILETIME now{};
  GetSystemTimePreciseAsFileTime(&now);
  WIN32_FILE_ATTRIBUTE_DATA data{};
  const bool exists = GetFileAttributesExW(old.c_str(), GetFileExInfoStandard, &data) != FALSE;
  const BOOL set = SetFileTime(file.Get(), exists ? &data.ftCreationTime : nullptr, nullptr, &now);
  return set == FALSE ? GetLastError() : ERROR_SUCCESS;
}

std::uint32_t Fill(const SystemHandle& file, const Pieces& content, const std::wstring& old) {
  std::uint32_t error = WriteAll(file, content);
  if (error == ERROR_SUCCESS) error = SetTimes(file, old);
  if (error == ERROR_SUCCESS && FlushFileBuffers(file.Get()) == FALSE) error = GetLastError();
  return error;
}

/// Hands the rights of the old file over. Where the system does not let this user do so the new file has
/// those of its folder, as every new file there.
void TakeOverRights(const std::wstring& from, const std::wstring& to) {
  PACL rights = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                            &rights, nullptr, &descriptor) != ERROR_SUCCESS) {
    return;
  }
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  GetSecurityDescriptorControl(descriptor, &control, &revision);
  const DWORD inheritance = (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                               : UNPROTECTED_DACL_SECURITY_INFORMATION;
  std::wstring name = to;  // the call takes it as changeable
  SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr,
                        nullptr, rights, nullptr);
  LocalFree(descriptor);
}

void TakeOver(const std::wstring& from, const std::wstring& to) {
  TakeOverRights(from, to);
  const DWORD attributes = AttributesOf(from) & kKeptAttributes;
  if (attributes != 0) SetFileAttributesW(to.c_str(), attributes);
}

std::optional<FileStamp> StampOfFile(const std::wstring& native) {
  const SystemHandle file = OpenSharedFile(native, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  return file ? StampOf(file) : std::nullopt;
}

bool SameFile(const std::wstring& left, const std::wstring& right) {
  const std::optional<FileStamp> leftStamp = StampOfFile(left);
  const std::optional<FileStamp> rightStamp = StampOfFile(right);
  return leftStamp && rightStamp && leftStamp->device == rightStamp->device &&
         leftStamp->node == rightStamp->node;
}

}  // namespace

std::wstring LinkTarget(const std::wstring& native, std::string_view path) {
  if ((AttributesOf(native) & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return native;
  const std::optional<std::wstring> target = FinalName(native);
  if (!target) RaiseSystemError(ERROR_CANT_RESOLVE_FILENAME, path, native);
  return *target;
}

FileStamp ReplaceFileContent(const std::wstring& native, std::string_view path, const Pieces& content) {
  const std::wstring target = LinkTarget(native, path);
  const DWORD attributes = AttributesOf(target);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) RaiseSystemError(ERROR_DIRECTORY, path, target);
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) RaiseSystemError(ERROR_ACCESS_DENIED, path, target);
  // Somebody who may not write into the file may not replace it either.
  if (attributes != 0 && !OpenSharedFile(target, GENERIC_WRITE, OPEN_EXISTING)) {
    const DWORD error = GetLastError();
    if (error == ERROR_ACCESS_DENIED) RaiseSystemError(error, path, target);
  }
  Win32TemporaryFile temporary(FolderOf(target));
  std::uint32_t error = temporary.OpenError();
  if (error == ERROR_SUCCESS) error = Fill(temporary.File(), content, target);
  if (error != ERROR_SUCCESS) RaiseSystemError(error, path, target);
  const std::optional<FileStamp> written = StampOf(temporary.File());
  if (attributes != 0) TakeOver(target, temporary.Name());
  error = temporary.MoveTo(target);
  if (error != ERROR_SUCCESS) RaiseSystemError(error, path, target);
  // A state that somebody else made meanwhile is not what was written: then the stamp is one that no file
  // has any more.
  const std::optional<FileStamp> moved = StampOfFile(target);
  const bool same =
      moved && written && moved->size == written->size && moved->lastWrite == written->lastWrite;
  return same ? *moved : written.value_or(FileStamp{});
}

bool CopyNativeFile(const std::wstring& source, std::string_view sourcePath, const std::wstring& target,
                    std::string_view targetPath) {
  if (IsDirectory(source)) RaiseSystemError(ERROR_DIRECTORY, sourcePath, source);
  if (SystemHandle from = OpenSharedFile(source, GENERIC_READ, OPEN_EXISTING); !from) {
    RaiseSystemError(GetLastError(), sourcePath, source);
  }
  if (SameFile(source, target)) return false;
  const DWORD attributes = AttributesOf(target);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) RaiseSystemError(ERROR_DIRECTORY, targetPath, target);
  // As when the system copies over a file itself.
  constexpr DWORD kRefused = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
  if ((attributes & kRefused) != 0) RaiseSystemError(ERROR_ACCESS_DENIED, targetPath, target);
  // The old file stays until the new one is whole, and a link that stands in its place is not followed.
  Win32TemporaryFile temporary(FolderOf(target));
  std::uint32_t error = temporary.OpenError();
  temporary.File().Close();
  if (error == ERROR_SUCCESS && CopyFileW(source.c_str(), temporary.Name().c_str(), FALSE) == FALSE) {
    error = GetLastError();
  }
  if (error == ERROR_SUCCESS && attributes != 0) TakeOverRights(target, temporary.Name());
  // The system gives the attributes of the source to files that it makes itself; this one was there already.
  if (error == ERROR_SUCCESS) SetFileAttributesW(temporary.Name().c_str(), AttributesOf(source));
  if (error == ERROR_SUCCESS) error = temporary.MoveTo(target);
  if (error == ERROR_SUCCESS) return true;
  RaiseSystemError(error, targetPath, target);
}

}  // namespace qb
