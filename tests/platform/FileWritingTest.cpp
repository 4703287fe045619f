#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/FileSystemFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

using FileWritingTest = FileSystemTest;

TEST_F(FileWritingTest, Writer_BytesAreThereAfterFlushOrEnd) {
  Put(R"(\f)", "old");
  auto writer = files_.OpenForWriting(R"(\f)");
  writer->Write("a");
  writer->Flush();
  EXPECT_EQ(Content(R"(\f)"), "a");
  writer->Write("b");
  writer.reset();
  EXPECT_EQ(Content(R"(\f)"), "ab");
  files_.OpenForAppending(R"(\f)")->Write("c");
  files_.OpenForAppending(R"(\new)")->Write("d");
  EXPECT_EQ(Content(R"(\f)"), "abc");
  EXPECT_EQ(Content(R"(\new)"), "d");
}

TEST_F(FileWritingTest, Copy_EmptyFile) {
  Put(R"(\from)", "");
  EXPECT_TRUE(files_.Copy(R"(\from)", R"(\to)"));
  EXPECT_EQ(Content(R"(\to)"), "");
}

TEST_F(FileWritingTest, Copy_OntoItself_IsRefusedAndLosesNothing) {
  Put(R"(\From)", "x");
  for (const std::string_view target : {R"(\From)", R"(\FROM)", R"(\.\from)"}) {
    EXPECT_FALSE(files_.Copy(R"(\From)", target));
    EXPECT_EQ(Content(R"(\From)"), "x");
  }
}

TEST_F(FileWritingTest, NewFiles_GoIntoTheFolderOfAnyCase) {
  Put(R"(\Dst\old)", "");
  files_.OpenForWriting(R"(\DST\new)")->Write("1");
  files_.ReplaceContent(R"(\dST\OLD)", {"2"});
  EXPECT_EQ(Content(R"(\Dst\new)"), "1");
  EXPECT_EQ(Content(R"(\Dst\old)"), "2");
}

TEST_F(FileWritingTest, ReplaceContent_SmallAndGiantPieces_FollowOneAnother) {
  const std::string giant(1'000'000, 'g');
  const std::string large(200'000, 'l');
  files_.ReplaceContent(R"(\f)", {"a", large, large, "", "b", giant, "c", "d"});
  EXPECT_EQ(Content(R"(\f)"), "a" + large + large + "b" + giant + "cd");
  files_.ReplaceContent(R"(\f)", {});
  EXPECT_EQ(Content(R"(\f)"), "");
}

TEST_F(FileWritingTest, ReplaceContent_TwiceInOneMoment_GivesTwoStamps) {
  const FileStamp first = files_.ReplaceContent(R"(\f)", {"1"});
  const FileStamp second = files_.ReplaceContent(R"(\f)", {"2"});
  EXPECT_NE(first, second);
}

TEST_F(FileWritingTest, Lock_LeavesNoFile_AndMayBeTakenTwiceInOneProcess) {
  Put(R"(\d\f)", "x");
  const auto first = files_.Lock(R"(\d\f)");
  const auto second = MakeHostFileSystem(Root())->Lock(R"(\D\other)");
  EXPECT_THAT(NamesIn(R"(\d)"), ElementsAre("f"));
}

}  // namespace
}  // namespace qb
