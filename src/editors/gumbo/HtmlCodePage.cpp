#include "editors/gumbo/HtmlCodePage.h"

#include <algorithm>
#include <array>
#include <utility>

#include "runtime/Text.h"

namespace qb {
namespace {

using Known = std::pair<std::string_view, CodePage>;

/// The western sets of the standards are read as the code pages that hold them, as browsers do; a file
/// whose declaration could be read so far is not in UTF-16, whatever it declares.
constexpr std::array<Known, 33> kCharsets{
    {{"utf-8", kUtf8},       {"utf8", kUtf8},        {"utf-16", kUtf8},       {"utf-16le", kUtf8},
     {"utf-16be", kUtf8},    {"us-ascii", 1252},     {"ascii", 1252},         {"iso-8859-1", 1252},
     {"iso8859-1", 1252},    {"latin1", 1252},       {"windows-1250", 1250},  {"windows-1251", 1251},
     {"windows-1252", 1252}, {"windows-1253", 1253}, {"windows-1254", 1254},  {"windows-1255", 1255},
     {"windows-1256", 1256}, {"windows-1257", 1257}, {"windows-1258", 1258},  {"windows-874", 874},
     {"iso-8859-9", 1254},   {"tis-620", 874},       {"iso-8859-11", 874},    {"shift_jis", 932},
     {"shift-jis", 932},     {"x-sjis", 932},        {"windows-31j", 932},    {"gb2312", 936},
     {"gbk", 936},           {"euc-kr", 949},        {"ks_c_5601-1987", 949}, {"big5", 950},
     {"big5-hkscs", 950}}};

constexpr std::string_view kBlanks = " \t\n\f\r";
constexpr char32_t kFirstHigh = 0xD800;
constexpr char32_t kFirstLow = 0xDC00;
constexpr char32_t kBehindLow = 0xE000;

}  // namespace

std::optional<CodePage> CodePageOfCharset(std::string_view charset) {
  const std::string name = LowerCase(Trim(charset));
  const auto* const found = std::find_if(kCharsets.begin(), kCharsets.end(),
                                         [&](const Known& known) { return known.first == name; });
  if (found == kCharsets.end()) return std::nullopt;
  return found->second;
}

std::string CharsetOfContent(std::string_view content) {
  constexpr std::string_view kWord = "charset";
  const std::string lower = LowerCase(content);
  const std::size_t word = lower.find(kWord);
  if (word == std::string::npos) return {};
  const std::size_t sign = lower.find_first_not_of(kBlanks, word + kWord.size());
  if (sign == std::string::npos || lower[sign] != '=') return {};
  const std::size_t start = lower.find_first_not_of(" \t\n\f\r\"'", sign + 1);
  if (start == std::string::npos) return {};
  return lower.substr(start, lower.find_first_of(" \t\n\f\r\"';", start) - start);
}

std::string DecodeUtf16(std::string_view bytes, bool bigEndian) {
  const auto unit = [&](std::size_t place) {
    const auto first = static_cast<unsigned char>(bytes[place]);
    const auto second = static_cast<unsigned char>(bytes[place + 1]);
    return static_cast<char32_t>(bigEndian ? first << 8U | second : second << 8U | first);
  };
  std::string text;
  for (std::size_t place = 0; place + 1 < bytes.size(); place += 2) {
    char32_t character = unit(place);
    if (character >= kFirstHigh && character < kFirstLow && place + 3 < bytes.size()) {
      const char32_t low = unit(place + 2);
      if (low >= kFirstLow && low < kBehindLow) {
        character = 0x10000 + ((character - kFirstHigh) << 10U) + (low - kFirstLow);
        place += 2;
      }
    }
    const bool alone = character >= kFirstHigh && character < kBehindLow;
    AppendCharacter(text, alone ? U'\uFFFD' : character);
  }
  return text;
}

}  // namespace qb
