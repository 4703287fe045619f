#include "platform/win32/Win32Paths.h"

#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32Text.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::wstring_view kLongPrefix = LR"(\\?\)";
constexpr std::wstring_view kLongSharePrefix = LR"(\\?\UNC\)";
constexpr std::wstring_view kDevicePrefix = LR"(\\.\)";
constexpr std::wstring_view kSharePrefix = LR"(\\)";
constexpr std::size_t kLongest = 32'767;          // no call of the system takes more
constexpr std::size_t kLongFrom = MAX_PATH - 12;  // a folder's path must leave room for a short file name

/// Calls a function of the system that fills a buffer until the buffer is large enough; empty if it fails.
template <class Call>
std::wstring FilledBy(Call call) {
  std::wstring text(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = call(static_cast<DWORD>(text.size()), text.data());
    if (length <= text.size()) {
      text.resize(length);
      return text;
    }
    text.resize(length);
  }
}

std::wstring FullName(const std::wstring& path) {
  return FilledBy(
      [&path](DWORD size, wchar_t* buffer) { return GetFullPathNameW(path.c_str(), size, buffer, nullptr); });
}

std::wstring WithPrefix(const std::wstring& full) {
  if (full.size() < kLongFrom || full.starts_with(kLongPrefix)) return full;
  if (full.starts_with(kSharePrefix)) return std::wstring(kLongSharePrefix).append(full.substr(2));
  return std::wstring(kLongPrefix).append(full);
}

/// Whether a full path names a file or a folder, and no device or stream.
bool IsFileName(const std::wstring& full) {
  if (full.empty() || full.starts_with(kDevicePrefix)) return false;
  return WithoutPrefix(full).find(L':', 2) == std::wstring::npos;
}

bool IsSeparator(wchar_t character) {
  return character == L'\\' || character == L'/';
}

bool StartsAtRoot(std::wstring_view path) {
  return IsSeparator(path[0]) && (path.size() == 1 || !IsSeparator(path[1]));
}

bool IsRelative(std::wstring_view path) {
  return !IsSeparator(path[0]) && (path.size() < 2 || path[1] != L':');
}

std::wstring WithoutEndSeparator(std::wstring path) {
  while (path.ends_with(L'\\')) path.pop_back();
  return path;
}

std::wstring NativeCurrentDirectory() {
  return FilledBy([](DWORD size, wchar_t* buffer) { return GetCurrentDirectoryW(size, buffer); });
}

}  // namespace

Win32Paths::Win32Paths(const std::string& root) {
  if (root.empty()) return;
  const std::wstring full = FullName(Wide(root));
  root_ = WithoutEndSeparator(FinalName(full).value_or(full));
}

std::optional<std::wstring> Win32Paths::Native(std::string_view path) const {
  if (path.empty() || path.find('\0') != std::string_view::npos) return std::nullopt;
  std::wstring wide = Wide(path);
  if (wide.size() > kLongest) return std::nullopt;
  if (HasRoot()) {
    const bool outside = IsRelative(wide) && !Inside(NativeCurrentDirectory());
    if (outside) wide.insert(0, 1, L'\\');
    if (StartsAtRoot(wide)) wide.insert(0, root_);
  }
  const std::wstring full = FullName(wide);
  if (!IsFileName(full)) return std::nullopt;
  return WithPrefix(full);
}

std::wstring Win32Paths::NativeOrRaise(std::string_view path) const {
  std::optional<std::wstring> native = Native(path);
  if (!native) RaiseAbout(failure::kPathFileAccess, path.substr(0, path.find('\0')));
  return *native;
}

std::string Win32Paths::Windows(std::wstring_view native) const {
  const std::wstring plain = WithoutPrefix(native);
  if (!HasRoot() || !Inside(plain)) return Utf8(plain);
  const std::wstring inside = plain.substr(root_.size());
  return inside.empty() ? R"(\)" : Utf8(inside);
}

std::string Win32Paths::CurrentDirectory() const {
  const std::wstring directory = NativeCurrentDirectory();
  return HasRoot() && !Inside(directory) ? R"(\)" : Windows(directory);
}

bool Win32Paths::Inside(std::wstring_view native) const {
  const std::size_t length = root_.size();
  if (native.size() < length || (native.size() > length && native[length] != L'\\')) return false;
  return CompareStringOrdinal(native.data(), static_cast<int>(length), root_.c_str(),
                              static_cast<int>(length), TRUE) == CSTR_EQUAL;
}

std::wstring InFolder(const std::wstring& folder, std::wstring_view name) {
  return WithPrefix(std::wstring(folder).append(folder.ends_with(L'\\') ? L"" : L"\\").append(name));
}

std::wstring ForOthers(const std::wstring& native) {
  if (!native.starts_with(kLongPrefix)) return native;
  const std::wstring name = FilledBy(
      [&native](DWORD size, wchar_t* buffer) { return GetShortPathNameW(native.c_str(), buffer, size); });
  return WithoutPrefix(name.empty() ? native : name);
}

std::wstring WithoutPrefix(std::wstring_view native) {
  if (native.starts_with(kLongSharePrefix)) {
    return std::wstring(kSharePrefix).append(native.substr(kLongSharePrefix.size()));
  }
  if (native.starts_with(kLongPrefix)) native.remove_prefix(kLongPrefix.size());
  return std::wstring(native);
}

std::wstring FolderOf(const std::wstring& native) {
  const std::size_t separator = native.find_last_of(L"\\/");
  if (separator == std::wstring::npos) return L".";
  // The separator of a drive's root belongs to its name.
  return native.substr(0, separator > 0 && native[separator - 1] == L':' ? separator + 1 : separator);
}

std::optional<std::wstring> FinalName(const std::wstring& native) {
  const SystemHandle file(CreateFileW(native.c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file) return std::nullopt;
  const std::wstring name = FilledBy([&file](DWORD size, wchar_t* buffer) {
    return GetFinalPathNameByHandleW(file.Get(), buffer, size, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
  });
  if (name.empty()) return std::nullopt;
  return WithoutPrefix(name);
}

}  // namespace qb
