#include "platform/win32/Win32FileSystem.h"

#include <algorithm>
#include <utility>

#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32ContentReplacement.h"
#include "platform/win32/Win32Errors.h"
#include "platform/win32/Win32FileWriter.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32FolderLock.h"
#include "platform/win32/Win32FolderSearch.h"
#include "platform/win32/Win32Text.h"

namespace qb {
namespace {

constexpr std::size_t kReadStep = 65536;

void RefuseReadOnly(const std::wstring& native, std::string_view path) {
  const std::uint32_t attributes = AttributesOf(native);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) RaiseSystemError(ERROR_DIRECTORY, path, native);
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) RaiseSystemError(ERROR_ACCESS_DENIED, path, native);
}

}  // namespace

std::optional<FileInfo> Win32FileSystem::Find(std::string_view path) {
  const std::optional<std::wstring> native = paths_.Native(path);
  return native ? InfoOf(*native) : std::nullopt;
}

std::vector<std::string> Win32FileSystem::Search(std::string_view pattern, unsigned attributes) {
  const std::size_t separator = pattern.find_last_of("\\/");
  const std::string_view name = separator == std::string_view::npos ? pattern : pattern.substr(separator + 1);
  const std::string_view folder = pattern.substr(0, pattern.size() - name.size());
  const std::optional<std::wstring> native = paths_.Native(folder.empty() ? "." : folder);
  if (!native || name.find_first_of(std::string_view("\0:", 2)) != std::string_view::npos) return {};
  return NamesInFolder(*native, name.empty() ? L"*" : Wide(name), attributes);
}

std::string Win32FileSystem::Read(std::string_view path) {
  const std::wstring native = paths_.NativeOrRaise(path);
  if (IsDirectory(native)) RaiseSystemError(ERROR_DIRECTORY, path, native);
  const SystemHandle file = OpenSharedFile(native, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
  LARGE_INTEGER size{};
  if (!file || GetFileSizeEx(file.Get(), &size) == FALSE) RaiseSystemError(GetLastError(), path, native);
  // One byte more than expected, so that the end shows in the first reading.
  std::string bytes(static_cast<std::size_t>(size.QuadPart) + 1, '\0');
  std::size_t filled = 0;
  while (true) {
    if (filled == bytes.size()) bytes.resize(filled + kReadStep);
    const auto room = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - filled, 1U << 30U));
    DWORD count = 0;
    if (ReadFile(file.Get(), bytes.data() + filled, room, &count, nullptr) == FALSE) {
      RaiseSystemError(GetLastError(), path, native);
    }
    if (count == 0) break;
    filled += count;
  }
  bytes.resize(filled);
  return bytes;
}

std::unique_ptr<FileWriter> Win32FileSystem::Open(std::string_view path, bool append) {
  std::wstring native = paths_.NativeOrRaise(path);
  RefuseReadOnly(native, path);
  SystemHandle file = OpenSharedFile(native, append ? FILE_APPEND_DATA : GENERIC_WRITE, OPEN_ALWAYS);
  // Emptied only then, since a hidden file may not be made anew.
  if (!file || (!append && SetEndOfFile(file.Get()) == FALSE)) {
    RaiseSystemError(GetLastError(), path, native);
  }
  return std::make_unique<Win32FileWriter>(std::move(file), std::move(native), std::string(path));
}

std::unique_ptr<FileWriter> Win32FileSystem::OpenForWriting(std::string_view path) {
  return Open(path, false);
}

std::unique_ptr<FileWriter> Win32FileSystem::OpenForAppending(std::string_view path) {
  return Open(path, true);
}

bool Win32FileSystem::Copy(std::string_view source, std::string_view target) {
  return CopyNativeFile(paths_.NativeOrRaise(source), source, paths_.NativeOrRaise(target), target);
}

void Win32FileSystem::Remove(std::string_view path) {
  const std::wstring native = paths_.NativeOrRaise(path);
  RefuseReadOnly(native, path);
  if (DeleteFileW(native.c_str()) == FALSE) RaiseSystemError(GetLastError(), path, native);
}

void Win32FileSystem::CheckRemovable(std::string_view path) {
  const std::wstring native = paths_.NativeOrRaise(path);
  RefuseReadOnly(native, path);
  if (!OpenSharedFile(native, DELETE, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT)) {
    RaiseSystemError(GetLastError(), path, native);
  }
}

void Win32FileSystem::MakeDirectory(std::string_view path) {
  const std::wstring native = paths_.NativeOrRaise(path);
  if (CreateDirectoryW(native.c_str(), nullptr) == FALSE) RaiseSystemError(GetLastError(), path, native);
}

void Win32FileSystem::SetAttributes(std::string_view path, unsigned attributes) {
  constexpr unsigned kSettable =
      attribute::kReadOnly | attribute::kHidden | attribute::kSystem | attribute::kArchive;
  const std::wstring native = paths_.NativeOrRaise(path);
  const DWORD wanted = attributes & kSettable;
  if (SetFileAttributesW(native.c_str(), wanted == 0 ? FILE_ATTRIBUTE_NORMAL : wanted) == FALSE) {
    RaiseSystemError(GetLastError(), path, native);
  }
}

std::string Win32FileSystem::ProgramDirectory() {
  std::wstring name(32768, L'\0');
  name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  std::string directory = paths_.Windows(FolderOf(name));
  // A drive that is a folder has no letter, and nothing on it may lead out to the program's own one.
  if (paths_.HasRoot() && directory.size() > 1 && directory[1] == ':') directory.erase(0, 2);
  return directory;
}

std::string Win32FileSystem::Resolved(std::string_view path) {
  const std::wstring native = paths_.NativeOrRaise(path);
  std::wstring existing = native;
  while (existing.size() > 2) {
    if (const std::optional<std::wstring> resolved = FinalName(existing)) {
      std::wstring rest = native.substr(existing.size());
      if (resolved->ends_with(L'\\') && rest.starts_with(L'\\')) rest.erase(0, 1);
      std::string text = paths_.Windows(*resolved + rest);
      if (text.size() > 3 && text.ends_with('\\')) text.pop_back();
      return text;
    }
    // A link that leads nowhere yet could lead anywhere once something is written there.
    if ((AttributesOf(existing) & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
      RaiseSystemError(ERROR_CANT_RESOLVE_FILENAME, path, native);
    }
    const std::size_t separator = existing.find_last_of(L'\\');
    if (separator == std::wstring::npos) break;
    existing.resize(separator);
  }
  return paths_.Windows(native);
}

std::optional<std::string> Win32FileSystem::ShortPathName(std::string_view path) {
  const std::optional<std::wstring> native = paths_.Native(path);
  if (!native) return std::nullopt;
  std::wstring name(32768, L'\0');
  name.resize(GetShortPathNameW(native->c_str(), name.data(), static_cast<DWORD>(name.size())));
  if (name.empty()) return std::nullopt;
  return Utf8(WithoutPrefix(name));
}

std::optional<FileStamp> Win32FileSystem::Stamp(std::string_view path) {
  const std::optional<std::wstring> native = paths_.Native(path);
  if (!native) return std::nullopt;
  const SystemHandle file = OpenSharedFile(*native, FILE_READ_ATTRIBUTES, OPEN_EXISTING);
  return file ? StampOf(file) : std::nullopt;
}

FileStamp Win32FileSystem::ReplaceContent(std::string_view path, const Pieces& content) {
  return ReplaceFileContent(paths_.NativeOrRaise(path), path, content);
}

std::unique_ptr<FileLock> Win32FileSystem::Lock(std::string_view path) {
  return LockFolderOf(LinkTarget(paths_.NativeOrRaise(path), path), path, patience_);
}

}  // namespace qb
