#include "platform/linux/LinuxTextCodec.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/linux/CodePageTable.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr CodePage kWestern = 1252;

struct LanguageRow {
  std::string_view language;
  CodePage codePage;
};

constexpr std::array kLanguages{
    LanguageRow{"AF", 1252}, LanguageRow{"AR", 1256}, LanguageRow{"AZ", 1254}, LanguageRow{"BE", 1251},
    LanguageRow{"BG", 1251}, LanguageRow{"BS", 1250}, LanguageRow{"CA", 1252}, LanguageRow{"CS", 1250},
    LanguageRow{"CZ", 1250}, LanguageRow{"DA", 1252}, LanguageRow{"DE", 1252}, LanguageRow{"EL", 1253},
    LanguageRow{"EN", 1252}, LanguageRow{"ES", 1252}, LanguageRow{"ET", 1257}, LanguageRow{"EU", 1252},
    LanguageRow{"FA", 1256}, LanguageRow{"FI", 1252}, LanguageRow{"FO", 1252}, LanguageRow{"FR", 1252},
    LanguageRow{"GA", 1252}, LanguageRow{"GL", 1252}, LanguageRow{"HE", 1255}, LanguageRow{"HR", 1250},
    LanguageRow{"HU", 1250}, LanguageRow{"ID", 1252}, LanguageRow{"IS", 1252}, LanguageRow{"IT", 1252},
    LanguageRow{"IW", 1255}, LanguageRow{"JA", 932},  LanguageRow{"KK", 1251}, LanguageRow{"KO", 949},
    LanguageRow{"KY", 1251}, LanguageRow{"LT", 1257}, LanguageRow{"LV", 1257}, LanguageRow{"MK", 1251},
    LanguageRow{"MN", 1251}, LanguageRow{"MS", 1252}, LanguageRow{"NB", 1252}, LanguageRow{"NL", 1252},
    LanguageRow{"NN", 1252}, LanguageRow{"NO", 1252}, LanguageRow{"PL", 1250}, LanguageRow{"PT", 1252},
    LanguageRow{"RO", 1250}, LanguageRow{"RU", 1251}, LanguageRow{"SH", 1250}, LanguageRow{"SK", 1250},
    LanguageRow{"SL", 1250}, LanguageRow{"SQ", 1250}, LanguageRow{"SR", 1251}, LanguageRow{"SV", 1252},
    LanguageRow{"SW", 1252}, LanguageRow{"TH", 874},  LanguageRow{"TR", 1254}, LanguageRow{"TT", 1251},
    LanguageRow{"UK", 1251}, LanguageRow{"UR", 1256}, LanguageRow{"VI", 1258}, LanguageRow{"ZF", 950},
    LanguageRow{"ZH", 936},
};

constexpr std::array kTraditionalChinese{std::string_view("ZH-TW"), std::string_view("ZH-HK"),
                                         std::string_view("ZH-MO"), std::string_view("ZH-HANT")};

/// 0 for a language that no ANSI code page is made for, or that is unknown.
CodePage KnownCodePage(std::string_view language) {
  std::string upper = UpperCase(language);
  std::replace(upper.begin(), upper.end(), '_', '-');
  for (const std::string_view traditional : kTraditionalChinese) {
    if (upper.starts_with(traditional)) return 950;
  }
  const std::string_view word = std::string_view(upper).substr(0, upper.find('-'));
  const auto row = std::find_if(kLanguages.begin(), kLanguages.end(),
                                [word](const LanguageRow& known) { return known.language == word; });
  return row == kLanguages.end() ? 0 : row->codePage;
}

/// As in "de_DE.UTF-8@euro".
std::string LocaleName() {
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "C";
}

CodePage CodePageOfLocale() {
  const std::string name = LocaleName();
  const CodePage codePage = KnownCodePage(name.substr(0, name.find_first_of(".@")));
  return codePage == 0 ? kWestern : codePage;
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

std::string LinuxTextCodec::Decode(std::string_view bytes, CodePage codePage) {
  return codePage == kUtf8 ? DecodeUtf8(bytes) : CodePageTable::Of(codePage).Decode(bytes);
}

std::string LinuxTextCodec::Encode(std::string_view text, CodePage codePage) {
  return codePage == kUtf8 ? EncodeUtf8(text) : CodePageTable::Of(codePage).Encode(text);
}

bool LinuxTextCodec::CanEncode(std::string_view text, CodePage codePage) {
  return codePage == kUtf8 || CodePageTable::Of(codePage).CanEncode(text);
}

CodePage LinuxTextCodec::SystemCodePage() {
  const std::string name = LocaleName();
  const std::size_t dot = name.find('.');
  if (dot == std::string::npos) return kUtf8;
  const std::string encoding = UpperCase(name.substr(dot + 1, name.find('@') - dot - 1));
  return encoding == "UTF-8" || encoding == "UTF8" ? kUtf8 : CodePageOfLocale();
}

CodePage LinuxTextCodec::CodePageOfLanguage(std::string_view language) {
  const CodePage codePage = KnownCodePage(language);
  return codePage == 0 ? CodePageOfLocale() : codePage;
}

}  // namespace qb
