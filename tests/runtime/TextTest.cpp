#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "runtime/Text.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

TEST(Text, CharacterCount_CountsCharactersNotBytes) {
  EXPECT_EQ(CharacterCount(""), 0U);
  EXPECT_EQ(CharacterCount("Größe"), 5U);
  EXPECT_EQ(CharacterCount("表示😀"), 3U);
  EXPECT_EQ(CharacterCount("a\xFF\xC3z"), 4U) << "a byte that is no valid UTF-8 counts as one";
  EXPECT_EQ(CharacterCount("\xE8\xA1"), 2U) << "a character that is cut off counts by its bytes";
}

TEST(Text, FirstCharacters_Table) {
  EXPECT_EQ(FirstCharacters("Größe", 3), "Grö");
  EXPECT_EQ(FirstCharacters("Größe", 0), "");
  EXPECT_EQ(FirstCharacters("Größe", 9), "Größe");
  EXPECT_EQ(FirstCharacters("", 1), "");
}

TEST(Text, FromCharacter_Table) {
  EXPECT_EQ(FromCharacter("Größe", 1), "Größe");
  EXPECT_EQ(FromCharacter("Größe", 4), "ße");
  EXPECT_EQ(FromCharacter("Größe", 6), "");
  EXPECT_EQ(FromCharacter("Größe", 60), "");
  EXPECT_EQ(FromCharacter("Größe", 0), "Größe");
}

TEST(Text, PadRight_FillsUpToTheWidth) {
  EXPECT_EQ(PadRight("ä", 3), "ä  ");
  EXPECT_EQ(PadRight("äbcd", 3), "äbcd");
  EXPECT_EQ(PadRight("", 2), "  ");
}

TEST(Text, Trim_TakesBlanksOnly) {
  EXPECT_EQ(TrimLeft("  a "), "a ");
  EXPECT_EQ(TrimRight("  a "), "  a");
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("\t a\r\n"), "\t a\r\n");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(Text, CaseMappings_KeepTheNumberOfCharacters) {
  EXPECT_EQ(UpperCase("größe ÿ привет ώ"), "GRÖßE Ÿ ПРИВЕТ Ώ");
  EXPECT_EQ(LowerCase("GRÖßE Ÿ ПРИВЕТ Ώ"), "größe ÿ привет ώ");
  EXPECT_EQ(UpperCase("a\xFFz"), "A\xFFZ") << "a byte that is no valid UTF-8 stays";
}

TEST(Text, EqualIgnoringCase_Table) {
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_TRUE(EqualIgnoringCase("DstLanguage", "DSTLANGUAGE"));
  EXPECT_TRUE(EqualIgnoringCase("GRÖßE", "größe"));
  EXPECT_FALSE(EqualIgnoringCase("a", "ab"));
  EXPECT_FALSE(EqualIgnoringCase("ä", "a"));
  EXPECT_FALSE(EqualIgnoringCase("[", "{"));
}

TEST(Text, ReplaceFirst_Table) {
  EXPECT_EQ(ReplaceFirst("%1 %1", "%1", "a%1"), "a%1 %1");
  EXPECT_EQ(ReplaceFirst("abc", "x", "y"), "abc");
  EXPECT_EQ(ReplaceFirst("abc", "", "y"), "abc");
  EXPECT_EQ(ReplaceFirst("abc", "abc", ""), "");
}

TEST(Text, Split_Table) {
  EXPECT_THAT(Split("a,b,,c", ","), ElementsAre("a", "b", "", "c"));
  EXPECT_THAT(Split("a, b", ", "), ElementsAre("a", "b"));
  EXPECT_THAT(Split("", ","), ElementsAre(""));
  EXPECT_THAT(Split(",", ","), ElementsAre("", ""));
  EXPECT_THAT(Split("abc", ""), ElementsAre("abc"));
}

TEST(Text, EveryCharacter_IsWrittenAndReadBack) {
  for (char32_t character = 0; character < 0x110000; character += 7) {
    if (character >= 0xD800 && character < 0xE000) continue;
    std::string text;
    AppendCharacter(text, character);
    text += "x";
    std::string_view rest = text;
    ASSERT_EQ(TakeCharacter(rest), character);
    ASSERT_EQ(rest, "x");
  }
}

TEST(Text, TakeCharacter_InvalidByte_IsTheReplacementCharacter) {
  for (const std::string_view bytes : {"\x80x", "\xFFx", "\xC0x", "\xC3", "\xE8\xA1x", "\xF5x"}) {
    std::string_view rest = bytes;
    EXPECT_EQ(TakeCharacter(rest), U'\uFFFD');
    EXPECT_EQ(rest, bytes.substr(1));
  }
}

TEST(Text, IsUtf8_ShortestFormsOfCharacters) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("plain"));
  EXPECT_TRUE(IsUtf8("\u00FCber\u8868\U0001F600\U0010FFFF"));
}

TEST(Text, IsUtf8_NothingElse) {
  for (const char* const bytes :
       {"\xFC", "a\x80", "\xC3", "\xC3(", "\xC1\x81", "\xE0\x80\x80", "\xE8\xA1", "\xED\xA0\x80",
        "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
    EXPECT_FALSE(IsUtf8(bytes));
  }
}

}  // namespace
}  // namespace qb
