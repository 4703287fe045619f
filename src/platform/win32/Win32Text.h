#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Between UTF-8 and the UTF-16 of the system. What is no valid text becomes U+FFFD.
std::wstring Wide(std::string_view text);
std::string Utf8(std::wstring_view text);

/// What calls of the system take for an optional text: null for an empty one.
inline const wchar_t* TextOrNone(const std::wstring& text) {
  return text.empty() ? nullptr : text.c_str();
}

}  // namespace qb
