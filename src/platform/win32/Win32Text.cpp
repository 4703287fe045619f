#include "platform/win32/Win32Text.h"

#include "platform/win32/SystemHeaders.h"

namespace qb {

std::wstring Wide(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), length);
  return wide;
}

std::string Utf8(std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

}  // namespace qb
