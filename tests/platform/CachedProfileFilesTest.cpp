#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "platform/CachedProfileFilesFixture.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

using ::testing::HasSubstr;
using std::operator""sv;

TEST_F(CachedProfileFilesTest, Read_MissingFileSectionOrKey_GivesTheDefault) {
  EXPECT_EQ(Get("A", "K"), "-");
  Put(kFile, "[A]\r\nK=v\r\n");
  EXPECT_EQ(Get("A", "K"), "v");
  EXPECT_EQ(Get("A", "L"), "-");
  EXPECT_EQ(Get("B", "K"), "-");
}

TEST_F(CachedProfileFilesTest, Read_EmptyPathOrFolder_GivesTheDefault) {
  EXPECT_EQ(Get("A", "K", ""), "-");
  EXPECT_EQ(Get("A", "K", R"(\pkg)"), "-");
}

TEST_F(CachedProfileFilesTest, Read_EmptyValue_IsNotTheDefault) {
  Put(kFile, "[A]\r\nK=\r\n");
  EXPECT_EQ(Get("A", "K"), "");
}

TEST_F(CachedProfileFilesTest, Read_Default_LosesTheBlanksAtItsEnd) {
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", " d  ", kRoom, kFile), " d");
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "default", 4, kFile), "def");
}

TEST_F(CachedProfileFilesTest, Read_Default_LosesItsQuotesAsAValueDoes) {
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "\"d\" ", kRoom, kFile), "d");
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "' d'", kRoom, kFile), " d");
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", " \"d\"", kRoom, kFile), " \"d\"");
}

TEST_F(CachedProfileFilesTest, Read_LongValue_IsCutToTheSizeLessOne) {
  Put(kFile, "[A]\r\nK=" + std::string(300, 'x') + "\r\n");
  EXPECT_EQ(Get("A", "K"), std::string(254, 'x'));
  EXPECT_EQ(profiles_.ValueLength("A", "K", "", kFile), 300U);
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "", 1, kFile), "");
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "", 0, kFile), "");
  EXPECT_EQ(profiles_.GetPrivateProfileString("A", "K", "", std::numeric_limits<std::size_t>::max(), kFile),
            std::string(300, 'x'));
}

TEST_F(CachedProfileFilesTest, Read_LongValueOfTwoByteCharacters_IsCutByCharacters) {
  codePage_ = 932;
  std::string text;
  for (int i = 0; i < 300; ++i) text += "表";
  Put(kFile, codec_->Encode("[A]\r\nK=" + text + "\r\n", 932));
  EXPECT_EQ(Get("A", "K"), text.substr(0, 254 * 3));
  EXPECT_EQ(profiles_.ValueLength("A", "K", "", kFile), 300U);
}

TEST_F(CachedProfileFilesTest, Texts_GoThroughTheCodePageOfTheFile) {
  Put(kFile, "[A]\r\n\xDC=\xE4\xF6\xFC\r\n");
  EXPECT_EQ(Get("A", "ü"), "äöü");
  EXPECT_TRUE(Set("A", "ü", "größer €"));
  EXPECT_EQ(Content(kFile),
            "[A]\r\n\xDC=gr\xF6\xDF"
            "er \x80\r\n");
  EXPECT_EQ(profiles_.CodePageOf(kFile), 1252U);
}

TEST_F(CachedProfileFilesTest, Texts_BytesWithoutMeaning_ComeBackUnchanged) {
  Put(kFile, "[A]\r\nK=a\x81z\r\n");
  const std::string value = Get("A", "K");
  EXPECT_TRUE(Set("A", "L", value));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=a\x81z\r\nL=a\x81z\r\n");
}

TEST_F(CachedProfileFilesTest, Chooser_SeesTheFile) {
  CachedProfileFiles profiles(files_, *codec_, [](const ProfileImage& image) {
    return image.Value("GLOBAL", "DSTLANGUAGE") == "RU" ? 1251U : 1252U;
  });
  Put(kFile, "[GLOBAL]\r\nDSTLANGUAGE=RU\r\nTITLE=\xCF\xF0\r\n");
  EXPECT_EQ(profiles.GetPrivateProfileString("GLOBAL", "TITLE", "", kRoom, kFile), "Пр");
  EXPECT_EQ(profiles.CodePageOf(kFile), 1251U);
  EXPECT_EQ(profiles.CodePageOf(kOther), 1252U);
}

TEST_F(CachedProfileFilesTest, FileMarkedAsUtf8_IsUtf8WhateverTheChooserSays) {
  Put(kFile,
      "\xEF\xBB\xBF[A]\r\nTITLE=Gr\xC3\xBC\xC3\x9F"
      "e\r\n");
  EXPECT_EQ(profiles_.CodePageOf(kFile), kUtf8);
  EXPECT_EQ(Get("A", "TITLE"),
            "Gr\u00FC\u00DF"
            "e");
  EXPECT_TRUE(Set("A", "TITLE", "\u00C4"));
  EXPECT_EQ(Content(kFile), "\xEF\xBB\xBF[A]\r\nTITLE=\xC3\x84\r\n");
}

TEST_F(CachedProfileFilesTest, FileMarkedAsUtf16_HoldsNothingAndIsLeftAlone) {
  const std::string bytes("\xFF\xFE[\0A\0]\0", 8);
  Put(kFile, bytes);
  EXPECT_EQ(Get("A", "K"), "-");
  EXPECT_FALSE(Set("A", "K", "1"));
  EXPECT_NE(profiles_.LastRefusal().find("UTF-16"), std::string::npos);
  EXPECT_EQ(Content(kFile), bytes);
}

TEST_F(CachedProfileFilesTest, SectionNames_WithoutAName_AreLeftOut) {
  Put(kFile, "[A]\r\n[]\r\n[B]\r\n");
  EXPECT_EQ(profiles_.GetPrivateProfileSectionNames(kRoom, kFile), std::string("A\0B\0\0", 5));
}

TEST_F(CachedProfileFilesTest, SectionNames_EachWithANul) {
  Put(kFile, "[GLOBAL]\r\n[\xC4]\r\n[GLOBAL]\r\n");
  EXPECT_EQ(profiles_.GetPrivateProfileSectionNames(100, kFile), "GLOBAL\0Ä\0GLOBAL\0\0"sv);
  EXPECT_EQ(profiles_.GetPrivateProfileSectionNames(10, kFile), "GLOBAL\0Ä\0"sv);
  EXPECT_EQ(profiles_.GetPrivateProfileSectionNames(100, kOther), "\0"sv);
}

TEST_F(CachedProfileFilesTest, Write_MissingFile_MakesIt) {
  EXPECT_TRUE(Set("A", "K", "v"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=v\r\n");
}

TEST_F(CachedProfileFilesTest, Write_RemovalFromAMissingFile_MakesNone) {
  EXPECT_TRUE(profiles_.WritePrivateProfileString("0", std::nullopt, std::nullopt, kFile));
  EXPECT_TRUE(Remove("A", "K"));
  EXPECT_FALSE(Exists(kFile));
}

TEST_F(CachedProfileFilesTest, Write_KeyAndSection_AreRemoved) {
  Put(kFile, "[A]\r\nK=v\r\nL=w\r\n[B]\r\nM=x\r\n");
  EXPECT_TRUE(Remove(" a", "k"));
  EXPECT_EQ(Content(kFile), "[A]\r\nL=w\r\n[B]\r\nM=x\r\n");
  EXPECT_TRUE(profiles_.WritePrivateProfileString("A", std::nullopt, std::nullopt, kFile));
  EXPECT_EQ(Content(kFile), "[B]\r\nM=x\r\n");
}

TEST_F(CachedProfileFilesTest, Write_ThatChangesNothing_OnlyLooksAtTheStamp) {
  Put(kFile, "[A]\r\nK=v\r\n");
  LetFilesSettle();
  EXPECT_EQ(Get("A", "K"), "v");
  files_.ForgetCounts();
  EXPECT_TRUE(Set("A", "K", "v"));
  EXPECT_TRUE(profiles_.WritePrivateProfileString("0", std::nullopt, std::nullopt, kFile));
  EXPECT_EQ(Count(FileOperation::kStamp), 2);
  EXPECT_EQ(Count(FileOperation::kLock), 0);
  EXPECT_EQ(Count(FileOperation::kRead), 0);
  EXPECT_EQ(Count(FileOperation::kReplaceContent), 0);
}

TEST_F(CachedProfileFilesTest, Reads_OfASettledFile_ReadItOnce) {
  Put(kFile, "[A]\r\nK=v\r\n");
  LetFilesSettle();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Get("A", "K"), "v");
  EXPECT_EQ(Count(FileOperation::kRead), 1);
}

TEST_F(CachedProfileFilesTest, Reads_AfterAWriteOfOurOwn_ReadNothing) {
  Put(kFile, "[A]\r\nK=v\r\n");
  EXPECT_TRUE(Set("A", "K", "w"));
  files_.ForgetCounts();
  EXPECT_EQ(Get("A", "K"), "w");
  EXPECT_TRUE(Set("A", "K", "x"));
  EXPECT_EQ(Count(FileOperation::kRead), 0);
}

TEST_F(CachedProfileFilesTest, Reads_OfTwoFilesInTurn_ReadEachOnce) {
  Put(kFile, "[A]\r\nK=v\r\n");
  Put(kOther, "[A]\r\nK=w\r\n");
  LetFilesSettle();
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(Get("A", "K"), "v");
    EXPECT_EQ(Get("A", "K", kOther), "w");
  }
  EXPECT_EQ(Count(FileOperation::kRead), 2);
}

TEST_F(CachedProfileFilesTest, ChangeByAnotherProgram_ShowsAtTheNextCall) {
  Put(kFile, "[A]\r\nK=1\r\n");
  for (int i = 2; i < 10; ++i) {
    EXPECT_EQ(Get("A", "K"), std::to_string(i - 1));
    Put(kFile, "[A]\r\nK=" + std::to_string(i) + "\r\n");  // of the same size, perhaps within one tick
  }
  EXPECT_EQ(Get("A", "K"), "9");
}

TEST_F(CachedProfileFilesTest, RemovalByAnotherProgram_ShowsAtTheNextCall) {
  Put(kFile, "[A]\r\nK=1\r\n");
  EXPECT_EQ(Get("A", "K"), "1");
  std::filesystem::remove(Native(kFile));
  EXPECT_EQ(Get("A", "K"), "-");
  EXPECT_TRUE(Set("A", "L", "2"));
  EXPECT_EQ(Content(kFile), "[A]\r\nL=2\r\n");
}

TEST_F(CachedProfileFilesTest, ChangeBetweenReadAndWrite_IsNotLost) {
  Put(kFile, "[A]\r\nK=1\r\n");
  EXPECT_EQ(Get("A", "K"), "1");
  files_.BeforeNext(FileOperation::kLock, [this] { Put(kFile, "[A]\r\nK=1\r\nHIS=2\r\n"); });
  EXPECT_TRUE(Set("A", "K", "3"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=3\r\nHIS=2\r\n");
}

TEST_F(CachedProfileFilesTest, RefusedWrite_LeavesFileAndReadsAsTheyWere) {
  Put(kFile, "[A]\r\nK=1\r\n");
  for (const FileOperation operation : {FileOperation::kReplaceContent, FileOperation::kLock}) {
    files_.Fail(operation, failure::kDiskFull, "Trans.pxf");
    EXPECT_FALSE(Set("A", "K", "2"));
    EXPECT_EQ(Get("A", "K"), "1");
    EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
    files_.Heal();
  }
  EXPECT_TRUE(Set("A", "L", "3"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\nL=3\r\n");
}

TEST_F(CachedProfileFilesTest, LastRefusal_NamesFileAndReason_UntilForgotten) {
  Put(kFile, "[A]\r\nK=1\r\n");
  EXPECT_EQ(profiles_.LastRefusal(), "");
  files_.Fail(FileOperation::kReplaceContent, failure::kDiskFull);
  EXPECT_FALSE(Set("A", "K", "2"));
  EXPECT_THAT(profiles_.LastRefusal(), AllOf(HasSubstr(kFile), HasSubstr("Disk full")));
  files_.Heal();
  EXPECT_TRUE(Set("A", "K", "2"));
  EXPECT_THAT(profiles_.LastRefusal(), HasSubstr("Disk full"));
  profiles_.ForgetRefusal();
  EXPECT_EQ(profiles_.LastRefusal(), "");
}

TEST_F(CachedProfileFilesTest, Write_TextsWithLineBreaks_AreRefused) {
  Put(kFile, "[A]\r\nK=1\r\n");
  for (const std::string_view bad : {"v\r\n[B]"sv, "v\nK=2"sv, "v\r"sv, "v\0w"sv}) {
    EXPECT_FALSE(Set("A", "K", bad));
    EXPECT_FALSE(Set("A", bad, "v"));
    EXPECT_FALSE(Set(bad, "K", "v"));
    EXPECT_THAT(profiles_.LastRefusal(), HasSubstr(kFile));
  }
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
}

TEST_F(CachedProfileFilesTest, Write_FileThatCannotBeRead_IsRefusedAndLeftAlone) {
  Put(kFile, "[A]\r\nK=1\r\n");
  files_.Fail(FileOperation::kRead, failure::kPermissionDenied);
  EXPECT_EQ(Get("A", "K"), "-");
  EXPECT_FALSE(Set("A", "L", "2"));
  files_.Heal();
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
  EXPECT_EQ(Get("A", "K"), "1");
}

TEST_F(CachedProfileFilesTest, Write_ReadOnlyFile_IsRefused) {
  Put(kFile, "[A]\r\nK=1\r\n");
  real_->SetAttributes(kFile, attribute::kReadOnly);
  EXPECT_FALSE(Set("A", "K", "2"));
  EXPECT_EQ(Content(kFile), "[A]\r\nK=1\r\n");
}

TEST_F(CachedProfileFilesTest, Write_MissingFolder_IsRefused) {
  EXPECT_FALSE(Set("A", "K", "2", R"(\nowhere\Trans.pxf)"));
  EXPECT_EQ(profiles_.LastRefusal(), R"(\nowhere\Trans.pxf: Path not found)");
}

TEST_F(CachedProfileFilesTest, Length_IsThatOfTheFile) {
  Put(kFile, "[A]\r\nK=1\r\n");
  EXPECT_EQ(profiles_.Length(kFile), 10U);
  EXPECT_TRUE(Set("A", "K", "22"));
  EXPECT_EQ(profiles_.Length(kFile), 11U);
}

TEST_F(CachedProfileFilesTest, Length_MissingFile_Raises53) {
  try {
    profiles_.Length(kFile);
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), failure::kFileNotFound);
  }
}

TEST_F(CachedProfileFilesTest, WriteInsideAFolderThatIsLockedHere_DoesNotWaitForItself) {
  const std::unique_ptr<FileLock> lock = real_->Lock(kFile);
  EXPECT_TRUE(Set("A", "K", "1"));
}

}  // namespace
}  // namespace qb
