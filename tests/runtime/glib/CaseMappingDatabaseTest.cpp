#include <glib.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <set>
#include <string_view>

#include "runtime/CaseMapping.h"

namespace qb {
namespace {

/// Every character that one of the ANSI code pages holds, by the conversions of the system's library.
std::set<char32_t> CharactersOfCodePages() {
  std::set<char32_t> characters;
  for (const char* const codePage : {"CP874", "CP932", "CP936", "CP949", "CP950", "CP1250", "CP1251",
                                     "CP1252", "CP1253", "CP1254", "CP1255", "CP1256", "CP1257", "CP1258"}) {
    for (unsigned bytes = 1; bytes <= 0xFFFFU; ++bytes) {
      if (bytes > 0xFFU && (bytes < 0x8100U || codePage[2] == '1' || codePage[2] == '8')) continue;
      const std::array<char, 2> pair{static_cast<char>(bytes >> 8U), static_cast<char>(bytes & 0xFFU)};
      const bool single = bytes <= 0xFFU;
      char* const text = g_convert(single ? &pair[1] : pair.data(), single ? 1 : 2, "UTF-8", codePage,
                                   nullptr, nullptr, nullptr);
      if (text != nullptr && g_utf8_strlen(text, -1) == 1) characters.insert(g_utf8_get_char(text));
      g_free(text);
    }
  }
  return characters;
}

/// Letters that keep to themselves: their other case is a letter of another alphabet or no code page has it.
bool KeepsItsCase(char32_t character) {
  constexpr std::u32string_view kAlone = U"\u00B5\u0130\u0131\u0251\u0261\u2126\u212B";
  return kAlone.find(character) != std::u32string_view::npos;
}

/// Roman numerals and letters in circles have two cases, but the library maps letters only.
bool IsNumberOrSign(char32_t character) {
  return (character >= 0x2160 && character <= 0x217F) || (character >= 0x24B6 && character <= 0x24E9);
}

TEST(CaseMapping, EveryCharacterOfTheCodePages_MapsAsTheCharacterDatabaseSays) {
  const std::set<char32_t> characters = CharactersOfCodePages();
  ASSERT_GT(characters.size(), 20'000U);
  for (const char32_t character : characters) {
    if (IsNumberOrSign(character)) continue;
    const char32_t upper = KeepsItsCase(character) ? character : g_unichar_toupper(character);
    EXPECT_EQ(static_cast<std::uint32_t>(UpperCharacter(character)), static_cast<std::uint32_t>(upper))
        << std::hex << static_cast<std::uint32_t>(character);
    const char32_t lower = KeepsItsCase(character) ? character : g_unichar_tolower(character);
    EXPECT_EQ(static_cast<std::uint32_t>(LowerCharacter(character)), static_cast<std::uint32_t>(lower))
        << std::hex << static_cast<std::uint32_t>(character);
  }
}

}  // namespace
}  // namespace qb
