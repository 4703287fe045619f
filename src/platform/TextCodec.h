#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Number of an ANSI code page, such as 932, 1251 or 1252; 65001 is UTF-8.
using CodePage = unsigned;
inline constexpr CodePage kUtf8 = 65001;

/// The private character that stands for a byte, from 0x80 on, that means nothing in its code page.
constexpr char32_t PrivateCharacter(unsigned char byte) {
  return 0xF700U + byte;
}
constexpr bool IsPrivateCharacter(char32_t character) {
  return character >= 0xF780U && character <= 0xF7FFU;
}

/// Converts between the program's UTF-8 and the bytes of a code page.
class TextCodec {
 public:
  virtual ~TextCodec() = default;

  /// Bytes that mean nothing in the code page become private characters that `Encode` turns back into the
  /// very same bytes.
  virtual std::string Decode(std::string_view bytes, CodePage codePage) = 0;

  /// Characters that the code page does not hold become `?`.
  virtual std::string Encode(std::string_view text, CodePage codePage) = 0;

  /// Whether every character of `text` survives `Encode` and `Decode`.
  virtual bool CanEncode(std::string_view text, CodePage codePage) = 0;

  /// The code page in which the program itself writes text files such as trace and protocol.
  virtual CodePage SystemCodePage() = 0;

  /// The code page of texts in a language ("DE", "ja", any case). An empty or unknown language gives that of
  /// the locale, or 1252 where the locale has no ANSI code page.
  virtual CodePage CodePageOfLanguage(std::string_view language) = 0;
};

}  // namespace qb
