#include "runtime/Text.h"

#include <algorithm>
#include <array>

#include "runtime/CaseMapping.h"

namespace qb {
namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Bytes of the character that starts at the front of `text`; 1 for a byte that starts none.
std::size_t SequenceLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  std::size_t length = 1;
  if (lead >= 0xC2U && lead <= 0xDFU) length = 2;
  if (lead >= 0xE0U && lead <= 0xEFU) length = 3;
  if (lead >= 0xF0U && lead <= 0xF4U) length = 4;
  if (length > text.size()) return 1;
  const bool whole =
      std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), IsContinuation);
  return whole ? length : 1;
}

/// Bytes that the first `count` characters take.
std::size_t BytesOf(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  for (; count > 0 && bytes < text.size(); --count) bytes += SequenceLength(text.substr(bytes));
  return bytes;
}

template <class Mapping>
std::string MapCharacters(std::string_view text, Mapping mapping) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = TakeCharacter(text);
    const std::string_view bytes = before.substr(0, before.size() - text.size());
    const char32_t mapped = mapping(character);
    if (mapped == character) {
      result.append(bytes);  // also keeps a byte that is no valid UTF-8
    } else {
      AppendCharacter(result, mapped);
    }
  }
  return result;
}

char UpperAscii(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  constexpr std::array<char32_t, 5> kLeast{0, 0, 0x80, 0x800, 0x10000};  // that needs so many bytes
  while (!bytes.empty()) {
    const std::size_t before = bytes.size();
    const bool isAscii = static_cast<unsigned char>(bytes.front()) < 0x80U;
    const char32_t character = TakeCharacter(bytes);
    const std::size_t length = before - bytes.size();
    if (isAscii) continue;
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (length == 1 || character < kLeast[length] || character > 0x10FFFF || isSurrogate) return false;
  }
  return true;
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(SequenceLength(text));
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, BytesOf(text, count));
}

std::string_view FromCharacter(std::string_view text, std::size_t position) {
  if (position == 0) position = 1;
  return text.substr(BytesOf(text, position - 1));
}

std::string PadRight(std::string_view text, std::size_t width) {
  std::string result(text);
  const std::size_t count = CharacterCount(text);
  if (count < width) result.append(width - count, ' ');
  return result;
}

std::string_view TrimLeft(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

std::string UpperCase(std::string_view text) {
  if (IsAscii(text)) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), UpperAscii);
    return result;
  }
  return MapCharacters(text, UpperCharacter);
}

std::string LowerCase(std::string_view text) {
  return MapCharacters(text, LowerCharacter);
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  if (left == right) return true;
  if (left.size() != right.size() && IsAscii(left) && IsAscii(right)) return false;
  return UpperCase(left) == UpperCase(right);
}

std::string ReplaceFirst(std::string_view text, std::string_view old, std::string_view replacement) {
  std::string result(text);
  const std::size_t position = old.empty() ? std::string::npos : result.find(old);
  if (position != std::string::npos) result.replace(position, old.size(), replacement);
  return result;
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  while (true) {
    const std::size_t position = separator.empty() ? std::string_view::npos : text.find(separator);
    pieces.emplace_back(text.substr(0, position));
    if (position == std::string_view::npos) return pieces;
    text.remove_prefix(position + separator.size());
  }
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0U | (character >> 6U));
    add(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    add(0xE0U | (character >> 12U));
    add(0x80U | ((character >> 6U) & 0x3FU));
    add(0x80U | (character & 0x3FU));
  } else {
    add(0xF0U | (character >> 18U));
    add(0x80U | ((character >> 12U) & 0x3FU));
    add(0x80U | ((character >> 6U) & 0x3FU));
    add(0x80U | (character & 0x3FU));
  }
}

char32_t TakeCharacter(std::string_view& text) {
  const std::size_t length = SequenceLength(text);
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t character = lead;
  if (length == 1 && lead >= 0x80U) character = 0xFFFD;
  if (length == 2) character = lead & 0x1FU;
  if (length == 3) character = lead & 0x0FU;
  if (length == 4) character = lead & 0x07U;
  for (std::size_t i = 1; i < length; ++i) {
    character = (character << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(length);
  return character;
}

}  // namespace qb
