#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

// Texts are UTF-8. Every length and position here counts characters (code points), positions starting at 1.

namespace qb {

/// The first eight bytes, or all of a shorter text, as a number whose lowest byte is the first.
std::uint64_t EightBytes(std::string_view text);

/// Whether every byte is one of ASCII.
bool IsAscii(std::string_view text);

/// Whether the bytes are valid UTF-8.
bool IsUtf8(std::string_view bytes);

/// Number of characters. A byte that is no valid UTF-8 counts as one character.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters, or all of a shorter text.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// What stands from character `position` (from 1) on; empty if there is nothing.
std::string_view FromCharacter(std::string_view text, std::size_t position);

/// `text` with blanks added behind it up to `width` characters. A longer text is kept whole.
std::string PadRight(std::string_view text, std::size_t width);

/// Without the blanks (and only blanks) at its front, at its end, at both.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// Case mappings that keep the number of characters.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// Compares without regard to case.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// Replaces the first occurrence of `old`; an empty `old` replaces nothing.
std::string ReplaceFirst(std::string_view text, std::string_view old, std::string_view replacement);

/// The pieces between the separators; one empty piece for an empty text.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

/// Appends one character to a UTF-8 text.
void AppendCharacter(std::string& text, char32_t character);

/// Decodes the character at the front of `text` and moves behind it. A byte that is no valid UTF-8 comes back
/// as U+FFFD. `text` must not be empty.
char32_t TakeCharacter(std::string_view& text);

inline std::uint64_t EightBytes(std::string_view text) {
  static_assert(std::endian::native == std::endian::little);
  std::uint64_t bytes = 0;
  if (text.size() >= sizeof bytes) {
    std::memcpy(&bytes, text.data(), sizeof bytes);
  } else if (text.size() >= sizeof(std::uint32_t)) {  // two halves that may lie over each other
    std::uint32_t front = 0;
    std::uint32_t back = 0;
    const std::size_t backPlace = text.size() - sizeof back;
    std::memcpy(&front, text.data(), sizeof front);
    std::memcpy(&back, text.data() + backPlace, sizeof back);
    bytes = front | static_cast<std::uint64_t>(back) << (8 * backPlace);
  } else {
    for (std::size_t i = text.size(); i-- > 0;) bytes = bytes << 8U | static_cast<unsigned char>(text[i]);
  }
  return bytes;
}

inline bool IsAscii(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::uint64_t seen = EightBytes(text);
  while (text.size() > sizeof seen) {
    text.remove_prefix(sizeof seen);
    seen |= EightBytes(text);
  }
  return (seen & kHighBits) == 0;
}

}  // namespace qb
