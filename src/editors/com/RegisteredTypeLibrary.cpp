#include "editors/com/RegisteredTypeLibrary.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <utility>
#include <vector>

#include "platform/win32/SystemHeaders.h"

namespace qb {
namespace {

std::vector<std::wstring> SubKeys(const std::wstring& path) {
  std::vector<std::wstring> names;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return names;
  constexpr DWORD kLongestName = 256;
  std::array<wchar_t, kLongestName> name{};
  for (DWORD index = 0, length = kLongestName;
       RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
       ++index, length = kLongestName) {
    names.emplace_back(name.data(), length);
  }
  RegCloseKey(key);
  return names;
}

std::wstring DefaultValue(const std::wstring& path) {
  DWORD bytes = 0;
  if (RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  std::wstring value(bytes / sizeof(wchar_t), L'\0');
  if (RegGetValueW(HKEY_CLASSES_ROOT, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  value.resize(std::wcslen(value.c_str()));
  return value;
}

/// A version is two hexadecimal numbers with a full stop between.
using Version = std::pair<unsigned long, unsigned long>;

std::optional<Version> VersionOf(const std::wstring& text) {
  wchar_t* end = nullptr;
  const unsigned long major = std::wcstoul(text.c_str(), &end, 16);
  if (end == text.c_str() || *end != L'.') return std::nullopt;
  const wchar_t* const rest = end + 1;
  const unsigned long minor = std::wcstoul(rest, &end, 16);
  if (end == rest || *end != L'\0') return std::nullopt;
  return Version(major, minor);
}

/// The file of one version, in whichever language there is one; that of this machine's kind comes first.
std::optional<std::wstring> FileOf(const std::wstring& version) {
  for (const wchar_t* system : {L"win64", L"win32"}) {
    for (const std::wstring& language : SubKeys(version)) {
      std::wstring file = DefaultValue(version + L'\\' + language + L'\\' + system);
      if (!file.empty()) return file;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::wstring> RegisteredTypeLibrary(const std::wstring& identifier) {
  const std::wstring library = L"TypeLib\\" + identifier;
  std::vector<std::pair<Version, std::wstring>> versions;
  for (const std::wstring& name : SubKeys(library)) {
    if (const auto version = VersionOf(name)) versions.emplace_back(*version, library + L'\\' + name);
  }
  std::sort(versions.rbegin(), versions.rend());
  for (const auto& [version, path] : versions) {
    if (auto file = FileOf(path)) return file;
  }
  return std::nullopt;
}

}  // namespace qb
