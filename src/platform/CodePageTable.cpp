#include "platform/CodePageTable.h"

#include "runtime/Text.h"

namespace qb {
namespace {

constexpr char32_t kNothing = CodePageSource::kNothing;
constexpr char32_t kLead = CodePageSource::kLead;
constexpr unsigned kFirstTrail = 0x40;

std::uint16_t Packed(std::string_view bytes) {
  std::uint16_t packed = 0;
  for (const char byte : bytes) {
    packed = static_cast<std::uint16_t>((packed << 8U) | static_cast<unsigned char>(byte));
  }
  return packed;
}

}  // namespace

CodePageTable::CodePageTable(CodePageSource& source) {
  for (unsigned byte = 0; byte < single_.size(); ++byte) {
    const char text = static_cast<char>(byte);
    single_[byte] = byte < 0x80U ? byte : source.Character({&text, 1});
    if (single_[byte] == kLead) ReadPairs(text, source);
  }
  ReadReverse(source);
}

void CodePageTable::ReadPairs(char lead, CodePageSource& source) {
  pairs_.resize(0x10000, kNothing);
  for (unsigned trail = kFirstTrail; trail < 0x100U; ++trail) {
    const char text[] = {lead, static_cast<char>(trail)};
    const char32_t character = source.Character({text, 2});
    // Some tables use the very private characters that stand for bytes without meaning here.
    if (character < kLead && !IsPrivateCharacter(character)) pairs_[Packed({text, 2})] = character;
  }
}

void CodePageTable::ReadReverse(CodePageSource& source) {
  // Several bytes may stand for one character; the source knows which of them is the usual one.
  const auto add = [&](char32_t character, unsigned packed) {
    if (character >= kLead || character < 0x80U) return;
    const std::optional<std::string> usual = source.UsualBytes(character);
    const bool known = usual && (usual->size() == 1 || usual->size() == 2);
    bytes_.try_emplace(character, known ? Packed(*usual) : static_cast<std::uint16_t>(packed));
  };
  for (unsigned byte = 0; byte < single_.size(); ++byte) add(single_[byte], byte);
  for (unsigned packed = 0; packed < pairs_.size(); ++packed) add(pairs_[packed], packed);
}

char32_t CodePageTable::Pair(unsigned char lead, unsigned char trail) const {
  return pairs_[(static_cast<std::size_t>(lead) << 8U) | trail];
}

std::string CodePageTable::Decode(std::string_view bytes) const {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    char32_t character = single_[byte];
    if (character == kLead && i + 1 < bytes.size()) {
      character = Pair(byte, static_cast<unsigned char>(bytes[i + 1]));
      if (character != kNothing) ++i;
    }
    AppendCharacter(text, character < kLead ? character : PrivateCharacter(byte));
  }
  return text;
}

std::string CodePageTable::Encode(std::string_view text) const {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character < 0x80U || IsPrivateCharacter(character)) {
      bytes.push_back(static_cast<char>(character & 0xFFU));
      continue;
    }
    const auto found = bytes_.find(character);
    if (found == bytes_.end()) {
      bytes.push_back('?');
      continue;
    }
    if (found->second > 0xFFU) bytes.push_back(static_cast<char>(found->second >> 8U));
    bytes.push_back(static_cast<char>(found->second & 0xFFU));
  }
  return bytes;
}

bool CodePageTable::CanEncode(std::string_view text) const {
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character >= 0x80U && !IsPrivateCharacter(character) && !bytes_.contains(character)) return false;
  }
  return true;
}

}  // namespace qb
