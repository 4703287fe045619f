#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/TextCodec.h"

namespace qb {

/// The characters of one ANSI code page, of one byte or of two.
class CodePageTable {
 public:
  /// The table of a code page, made at its first use; that of 1252 for an unknown one.
  static const CodePageTable& Of(CodePage codePage);

  std::string Decode(std::string_view bytes) const;
  std::string Encode(std::string_view text) const;
  bool CanEncode(std::string_view text) const;

 private:
  explicit CodePageTable(CodePage codePage);
  void Read(const std::string& name);
  void ReadPairs(char lead, void* toUnicode);
  void ReadReverse(void* fromUnicode);
  char32_t Pair(unsigned char lead, unsigned char trail) const;

  std::array<char32_t, 256> single_{};  ///< by byte: its character, or one of the marks
  std::vector<char32_t> pairs_;         ///< by lead and trail byte
  std::unordered_map<char32_t, std::uint16_t> bytes_;
};

}  // namespace qb
