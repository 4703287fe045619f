#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/win32/ProfileOracleFixture.h"

namespace qb {
namespace {

using std::operator""sv;

/// What Wine is known to do otherwise than Windows, each with the file that shows it.
struct ReadDifference {
  std::string_view name;
  std::string_view bytes;
  std::string_view section;
  std::string_view key;
  std::string_view otherwise;
  std::size_t size;
  std::string_view ours;
  std::string_view wines;
};

const ReadDifference kReadDifferences[] = {
    {"LettersOutsideAscii", "[\xC4]\r\nK=1\r\n", "\u00E4", "K", "-", 9, "1", "-"},
    {"LinesBeforeTheFirstHeader", "K=1\r\n[A]\r\n", "", "K", "-", 9, "-", "1"},
    {"SectionWithoutAName", "[]\r\nK=1\r\n", "", "K", "-", 9, "1", "-"},
    {"CommentAsAKey", "[A]\r\n;K=1\r\n", "A", ";K", "-", 9, "-", "1"},
    {"KeyWithoutAName", "[A]\r\n=1\r\n", "A", "", "-", 9, "-", "1"},
    {"QuotedTextThatJustFits", "[A]\r\nK=\"abc\"\r\n", "A", "K", "-", 4, "abc", "ab"},
    {"DefaultOfBlanks", "[A]\r\n", "A", "K", "   ", 9, "", " "},
    {"Utf16", "\xFF\xFE[\0A\0]\0\r\0\n\0K\0=\0001\0\r\0\n\0"sv, "A", "K", "-", 9, "-", "1"},
};

struct RemovalDifference {
  std::string_view name;
  std::string_view bytes;
  std::string_view section;
  std::string_view key;
  std::string_view ours;
  std::string_view wines;
};

const RemovalDifference kRemovalDifferences[] = {
    {"BlanksAroundTheName", "[1]\r\nK=1\r\n", " 1", "K", "[1]\r\n", "[1]\r\nK=1\r\n"},
    {"KeyOfALaterSectionOfTheName", "[A]\r\n[A]\r\nK=1\r\n", "A", "K", "[A]\r\n[A]\r\nK=1\r\n",
     "[A]\r\n[A]\r\n"},
    {"OtherLines", "[A]\n x = y \n\n; c\nK=1\n[B]\n", "A", "K", "[A]\n x = y \n\n; c\n[B]\n",
     "[A]\r\nx=y\r\n; c\r\n[B]\r\n"},
    {"WhatStandsBehindANul", "[A]\r\nx=1\0y\r\nK=1\r\n"sv, "A", "K", "[A]\r\nx=1\0y\r\n"sv, "[A]\r\nx=1\r\n"},
    {"RepeatedLinesWithoutAName", "[A]\r\n=1\r\n=2\r\nK=1\r\n", "A", "K", "[A]\r\n=1\r\n=2\r\n",
     "[A]\r\n=1\r\n"},
};

bool RunsUnderWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

TEST_F(ProfileOracleTest, ListedDifferencesOfReading_StandAsListed) {
  if (!RunsUnderWine()) GTEST_SKIP() << "The list is about Wine.";
  for (const ReadDifference& row : kReadDifferences) {
    SCOPED_TRACE(row.name);
    Begin(row.bytes);
    EXPECT_EQ(ours_.GetPrivateProfileString(row.section, row.key, row.otherwise, row.size, kOurs), row.ours);
    EXPECT_EQ(
        TheirValue(std::string(row.section), std::string(row.key), std::string(row.otherwise), row.size),
        row.wines);
  }
}

TEST_F(ProfileOracleTest, ListedDifferencesOfRemoving_StandAsListed) {
  if (!RunsUnderWine()) GTEST_SKIP() << "The list is about Wine.";
  for (const RemovalDifference& row : kRemovalDifferences) {
    SCOPED_TRACE(row.name);
    Begin(row.bytes);
    EXPECT_TRUE(ours_.WritePrivateProfileString(row.section, row.key, std::nullopt, kOurs));
    EXPECT_TRUE(TheirWrite(std::string(row.section), std::string(row.key), std::nullopt));
    EXPECT_EQ(Content(kOurs), row.ours);
    EXPECT_EQ(Content(theirs_), row.wines);
  }
}

TEST_F(ProfileOracleTest, WhatCouldNotBeReadBack_IsRefusedHereAndWrittenThere) {
  struct Row {
    std::string_view key;
    std::string_view value;
  };
  for (const Row& row : {Row{"K=L", "1"}, Row{"[K]", "1"}, Row{";K", "1"}, Row{"", "1"}, Row{"K", "1\r\nL=2"},
                         Row{"K\nL", "1"}}) {
    SCOPED_TRACE(::testing::PrintToString(row.key));
    Begin("[A]\r\n");
    EXPECT_FALSE(ours_.WritePrivateProfileString("A", row.key, row.value, kOurs));
    EXPECT_TRUE(TheirWrite("A", std::string(row.key), std::string(row.value)));
    EXPECT_EQ(Content(kOurs), "[A]\r\n");
    EXPECT_NE(Content(theirs_), "[A]\r\n");
  }
}

TEST_F(ProfileOracleTest, EveryBufferSize_CutsAsTheSystemDoes) {
  for (std::size_t size = 0; size < 14; ++size) {
    SCOPED_TRACE(size);
    Begin("[GLOBAL]\r\nK=abc\r\n[A]\r\n[A]\r\n");
    EXPECT_EQ(ours_.GetPrivateProfileString("GLOBAL", "K", "-", size, kOurs),
              TheirValue("GLOBAL", "K", "-", size));
    EXPECT_EQ(ours_.GetPrivateProfileString("GLOBAL", "L", "defgh", size, kOurs),
              TheirValue("GLOBAL", "L", "defgh", size));
    std::string names = ours_.GetPrivateProfileSectionNames(size, kOurs);
    names.pop_back();
    EXPECT_EQ(names, TheirSectionNames(size));
  }
}

TEST_F(ProfileOracleTest, MissingFile_AnswersAsTheSystemDoes) {
  Begin("");
  std::filesystem::remove(Native(kOurs));
  std::filesystem::remove(Native(theirs_));
  EXPECT_EQ(ours_.GetPrivateProfileString("A", "K", "-", 9, kOurs), TheirValue("A", "K", "-", 9));
  EXPECT_EQ(ours_.WritePrivateProfileString("0", std::nullopt, std::nullopt, kOurs),
            TheirWrite("0", std::nullopt, std::nullopt));
  EXPECT_EQ(ours_.WritePrivateProfileString("A", "K", std::nullopt, kOurs),
            TheirWrite("A", "K", std::nullopt));
  EXPECT_EQ(Exists(kOurs), Exists(theirs_)) << "nothing to remove makes no file";
  EXPECT_TRUE(ours_.WritePrivateProfileString("A", "K", "1", kOurs));
  EXPECT_TRUE(TheirWrite("A", "K", "1"));
  EXPECT_EQ(Content(kOurs), Content(theirs_));
}

}  // namespace
}  // namespace qb
