#include "platform/CodePageCodec.h"

#include <map>

#include "platform/LanguageCodePages.h"
#include "runtime/Text.h"

namespace qb {
namespace {

bool IsUsable(CodePage codePage) {
  return codePage == 874 || (codePage >= 932 && codePage <= 950) || (codePage >= 1250 && codePage <= 1258);
}

/// The private character of a byte takes the place of what is no UTF-8, and of such a private character
/// itself, so that the bytes come back unchanged whatever they are.
std::string DecodeUtf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::string_view before = bytes;
    const char32_t character = TakeCharacter(bytes);
    const std::string_view sequence = before.substr(0, before.size() - bytes.size());
    const bool isBad = sequence.size() == 1 && static_cast<unsigned char>(sequence.front()) >= 0x80U;
    if (!isBad && !IsPrivateCharacter(character)) {
      text.append(sequence);
      continue;
    }
    for (const char byte : sequence)
      AppendCharacter(text, PrivateCharacter(static_cast<unsigned char>(byte)));
  }
  return text;
}

std::string EncodeUtf8(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = TakeCharacter(text);
    if (IsPrivateCharacter(character)) {
      bytes.push_back(static_cast<char>(character & 0xFFU));
    } else {
      bytes.append(before.substr(0, before.size() - text.size()));
    }
  }
  return bytes;
}

}  // namespace

const CodePageTable& CodePageCodec::Table(CodePage codePage) {
  static std::map<CodePage, std::unique_ptr<CodePageTable>> tables;
  std::unique_ptr<CodePageTable>& table = tables[codePage];
  if (!table) {
    std::unique_ptr<CodePageSource> source = IsUsable(codePage) ? Source(codePage) : nullptr;
    if (!source) source = Source(kWestern);
    table = std::make_unique<CodePageTable>(*source);
  }
  return *table;
}

std::string CodePageCodec::Decode(std::string_view bytes, CodePage codePage) {
  return codePage == kUtf8 ? DecodeUtf8(bytes) : Table(codePage).Decode(bytes);
}

std::string CodePageCodec::Encode(std::string_view text, CodePage codePage) {
  return codePage == kUtf8 ? EncodeUtf8(text) : Table(codePage).Encode(text);
}

bool CodePageCodec::CanEncode(std::string_view text, CodePage codePage) {
  return codePage == kUtf8 || Table(codePage).CanEncode(text);
}

CodePage CodePageCodec::CodePageOfLanguage(std::string_view language) {
  const CodePage codePage = KnownCodePage(language);
  return codePage == 0 ? CodePageOfLocale() : codePage;
}

}  // namespace qb
