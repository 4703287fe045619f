#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <thread>

#include "platform/FileSystemFixture.h"
#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystem.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class Win32FileWritingTest : public FileSystemTest {
 protected:
  /// Another program that has the file open and lets others do what `sharing` says.
  SystemHandle Held(std::string_view path, DWORD sharing) const {
    return SystemHandle(
        CreateFileW(Native(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
  }
};

TEST_F(Win32FileWritingTest, Writer_HiddenFile_IsWritten) {
  Put(R"(\f)", "longer");
  files_.SetAttributes(R"(\f)", attribute::kHidden);
  files_.OpenForWriting(R"(\f)")->Write("new");
  EXPECT_EQ(Content(R"(\f)"), "new");
}

TEST_F(Win32FileWritingTest, Copy_TakesContentAttributesAndTime) {
  Put(R"(\from)", std::string(3'000'000, 'x') + "end");
  Put(R"(\to)", "something longer before it");
  std::filesystem::last_write_time(Native(R"(\from)"),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000));
  files_.SetAttributes(R"(\from)", attribute::kReadOnly);
  EXPECT_TRUE(files_.Copy(R"(\from)", R"(\to)"));
  EXPECT_EQ(Content(R"(\to)"), Content(R"(\from)"));
  EXPECT_NE(files_.Find(R"(\to)")->attributes & attribute::kReadOnly, 0U);
  EXPECT_EQ(files_.Find(R"(\to)")->lastWrite, files_.Find(R"(\from)")->lastWrite);
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("from", "to"));
  files_.SetAttributes(R"(\from)", 0);
  files_.SetAttributes(R"(\to)", 0);
}

TEST_F(Win32FileWritingTest, Copy_ReadOnlyFileOntoAHeldOne_LeavesNothingBehind) {
  Put(R"(\from)", "new");
  Put(R"(\to)", "old");
  files_.SetAttributes(R"(\from)", attribute::kReadOnly);
  const SystemHandle held = Held(R"(\to)", FILE_SHARE_READ);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\from)", R"(\to)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Content(R"(\to)"), "old");
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("from", "to"));
  files_.SetAttributes(R"(\from)", 0);
}

TEST_F(Win32FileWritingTest, ReplaceContent_KeepsAttributesAndTellsTheNewState) {
  Put(R"(\f)", "old");
  files_.SetAttributes(R"(\f)", attribute::kHidden);
  const FileTime creation = files_.Find(R"(\f)")->creation;
  const FileStamp stamp = files_.ReplaceContent(R"(\f)", {"new content"});
  EXPECT_EQ(Content(R"(\f)"), "new content");
  EXPECT_EQ(files_.Find(R"(\f)")->attributes & ~attribute::kArchive, attribute::kHidden);
  EXPECT_EQ(files_.Stamp(R"(\f)"), stamp);
  EXPECT_LE(files_.Find(R"(\f)")->creation.seconds, creation.seconds + 1);
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("f"));
}

TEST_F(Win32FileWritingTest, ReplaceContent_HeldFile_KeepsTheOldContentAndLeavesNothing) {
  Put(R"(\f)", "old");
  const SystemHandle held = Held(R"(\f)", FILE_SHARE_READ);
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\f)", {"new"}); }), failure::kPermissionDenied);
  EXPECT_EQ(Content(R"(\f)"), "old");
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("f"));
}

TEST_F(Win32FileWritingTest, ReplaceContent_FileThatIsLookedAtForAMoment_IsWaitedFor) {
  Put(R"(\f)", "old");
  SystemHandle held = Held(R"(\f)", FILE_SHARE_READ);
  std::thread other([&held] {
    Sleep(100);
    held.Close();
  });
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\f)", {"new"}); }), 0);
  other.join();
  EXPECT_EQ(Content(R"(\f)"), "new");
}

TEST_F(Win32FileWritingTest, Lock_OfAnotherThread_IsWaitedForAndThenRaises70) {
  Put(R"(\d\f)", "x");
  const auto held = files_.Lock(R"(\d\f)");
  long raised = 0;
  std::thread other([&] {
    Win32FileSystem impatient(Root(), std::chrono::milliseconds(30));
    raised = Raised([&] { impatient.Lock(R"(\d\f)"); });
  });
  other.join();
  EXPECT_EQ(raised, failure::kPermissionDenied);
}

}  // namespace
}  // namespace qb
