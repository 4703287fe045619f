#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/TextCodec.h"

namespace qb {

/// What the system knows of one code page.
class CodePageSource {
 public:
  static constexpr char32_t kNothing = 0xFFFFFFFFU;
  static constexpr char32_t kLead = 0xFFFFFFFEU;

  virtual ~CodePageSource() = default;
  /// The one character that the byte or the two bytes stand for; `kNothing` if there is none, `kLead` for a
  /// byte that needs another one behind it.
  virtual char32_t Character(std::string_view bytes) = 0;
  /// The bytes that are used for a character; nothing if the code page does not hold it.
  virtual std::optional<std::string> UsualBytes(char32_t character) = 0;
};

/// The characters of one ANSI code page, of one byte or of two.
class CodePageTable {
 public:
  explicit CodePageTable(CodePageSource& source);

  std::string Decode(std::string_view bytes) const;
  std::string Encode(std::string_view text) const;
  bool CanEncode(std::string_view text) const;

 private:
  void ReadPairs(char lead, CodePageSource& source);
  void ReadReverse(CodePageSource& source);
  char32_t Pair(unsigned char lead, unsigned char trail) const;

  std::array<char32_t, 256> single_{};  ///< by byte: its character, or one of the marks
  std::vector<char32_t> pairs_;         ///< by lead and trail byte
  std::unordered_map<char32_t, std::uint16_t> bytes_;
};

}  // namespace qb
