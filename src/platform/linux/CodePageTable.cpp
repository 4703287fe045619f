#include "platform/linux/CodePageTable.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>

#include "runtime/Text.h"

namespace qb {
namespace {

constexpr CodePage kWestern = 1252;
constexpr char32_t kNothing = 0xFFFFFFFFU;
constexpr char32_t kLead = 0xFFFFFFFEU;
constexpr unsigned kFirstTrail = 0x40;

/// A conversion of the system's library.
class Conversion {
 public:
  Conversion(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {}
  Conversion(const Conversion&) = delete;
  Conversion& operator=(const Conversion&) = delete;
  ~Conversion() {
    if (*this) iconv_close(handle_);
  }

  // The cast is iconv's own sign of failure.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  explicit operator bool() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
  iconv_t Handle() const { return handle_; }

 private:
  iconv_t handle_;
};

/// Converts a few bytes; nothing if they do not convert, and then errno tells whether bytes are missing.
std::optional<std::string> Convert(iconv_t conversion, std::string_view bytes) {
  std::string input(bytes);
  std::string output(16, '\0');
  char* from = input.data();
  char* to = output.data();
  std::size_t fromLeft = input.size();
  std::size_t toLeft = output.size();
  iconv(conversion, nullptr, nullptr, nullptr, nullptr);
  if (iconv(conversion, &from, &fromLeft, &to, &toLeft) != 0) return std::nullopt;
  // Some code pages keep a character back to see whether a mark follows.
  if (iconv(conversion, nullptr, nullptr, &to, &toLeft) != 0) return std::nullopt;
  output.resize(output.size() - toLeft);
  return output;
}

/// The one character that the bytes stand for.
char32_t Character(iconv_t toUnicode, std::string_view bytes) {
  errno = 0;
  const std::optional<std::string> output = Convert(toUnicode, bytes);
  if (!output) return errno == EINVAL ? kLead : kNothing;
  if (output->size() != 4) return kNothing;
  char32_t character = 0;
  for (int i = 3; i >= 0; --i) {
    character = (character << 8U) | static_cast<unsigned char>((*output)[static_cast<std::size_t>(i)]);
  }
  return character;
}

std::string LittleEndian(char32_t character) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<char>((character >> (8 * i)) & 0xFFU));
  return bytes;
}

std::uint16_t Packed(std::string_view bytes) {
  std::uint16_t packed = 0;
  for (const char byte : bytes) {
    packed = static_cast<std::uint16_t>((packed << 8U) | static_cast<unsigned char>(byte));
  }
  return packed;
}

}  // namespace

const CodePageTable& CodePageTable::Of(CodePage codePage) {
  static std::map<CodePage, std::unique_ptr<CodePageTable>> tables;
  std::unique_ptr<CodePageTable>& table = tables[codePage];
  if (!table) table.reset(new CodePageTable(codePage));
  return *table;
}

CodePageTable::CodePageTable(CodePage codePage) {
  const std::string name = "CP" + std::to_string(codePage);
  // A code page in which a byte of ASCII may be part of another character cannot hold profile files.
  const bool usable =
      codePage == 874 || (codePage >= 932 && codePage <= 950) || (codePage >= 1250 && codePage <= 1258);
  Read(usable && Conversion("UTF-32LE", name) ? name : "CP" + std::to_string(kWestern));
}

void CodePageTable::Read(const std::string& name) {
  const Conversion toUnicode("UTF-32LE", name);
  const Conversion fromUnicode(name, "UTF-32LE");
  for (unsigned byte = 0; byte < single_.size(); ++byte) {
    const char text = static_cast<char>(byte);
    single_[byte] = byte < 0x80U ? byte : Character(toUnicode.Handle(), {&text, 1});
    if (single_[byte] == kLead) ReadPairs(text, toUnicode.Handle());
  }
  ReadReverse(fromUnicode.Handle());
}

void CodePageTable::ReadPairs(char lead, void* toUnicode) {
  pairs_.resize(0x10000, kNothing);
  for (unsigned trail = kFirstTrail; trail < 0x100U; ++trail) {
    const char text[] = {lead, static_cast<char>(trail)};
    const char32_t character = Character(toUnicode, {text, 2});
    // Some tables use the very private characters that stand for bytes without meaning here.
    if (character < kLead && !IsPrivateCharacter(character)) pairs_[Packed({text, 2})] = character;
  }
}

void CodePageTable::ReadReverse(void* fromUnicode) {
  // Several bytes may stand for one character; the library knows which of them is the usual one.
  const auto add = [&](char32_t character, unsigned packed) {
    if (character >= kLead || character < 0x80U) return;
    const std::optional<std::string> usual = Convert(fromUnicode, LittleEndian(character));
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
