#include "platform/win32/Win32TextCodec.h"

#include <string>

#include "platform/win32/SystemHeaders.h"

namespace qb {
namespace {

/// Bytes without a meaning stand for control characters of the same number in the system's tables.
bool IsMereByte(std::string_view bytes, wchar_t character) {
  return bytes.size() == 1 && character >= 0x80 && character < 0xA0 &&
         character == static_cast<unsigned char>(bytes.front());
}

class SystemCodePageSource : public CodePageSource {
 public:
  explicit SystemCodePageSource(CodePage codePage) : codePage_(codePage) {}

  char32_t Character(std::string_view bytes) override {
    const bool isLead =
        bytes.size() == 1 && IsDBCSLeadByteEx(codePage_, static_cast<BYTE>(bytes[0])) != FALSE;
    if (isLead) return kLead;
    wchar_t text[4] = {};
    const int length = MultiByteToWideChar(codePage_, MB_ERR_INVALID_CHARS, bytes.data(),
                                           static_cast<int>(bytes.size()), text, 4);
    if (length != 1 || IsMereByte(bytes, text[0])) return kNothing;
    return text[0];
  }

  std::optional<std::string> UsualBytes(char32_t character) override {
    const auto unit = static_cast<wchar_t>(character);
    char bytes[4] = {};
    BOOL missing = FALSE;
    const int length =
        WideCharToMultiByte(codePage_, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, 4, nullptr, &missing);
    if (length <= 0 || missing != FALSE) return std::nullopt;
    return std::string(bytes, static_cast<std::size_t>(length));
  }

 private:
  CodePage codePage_;
};

}  // namespace

std::unique_ptr<CodePageSource> Win32TextCodec::Source(CodePage codePage) {
  if (IsValidCodePage(codePage) == FALSE) return nullptr;
  return std::make_unique<SystemCodePageSource>(codePage);
}

CodePage Win32TextCodec::SystemCodePage() {
  return GetACP();
}

CodePage Win32TextCodec::CodePageOfLocale() {
  const CodePage system = GetACP();
  if (system != kUtf8) return system;
  // Where the system itself works in UTF-8 the user's locale still has its ANSI code page.
  DWORD codePage = 0;
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                 reinterpret_cast<LPWSTR>(&codePage), sizeof codePage / sizeof(wchar_t));
  return codePage == 0 || codePage == kUtf8 ? kWestern : codePage;
}

}  // namespace qb
