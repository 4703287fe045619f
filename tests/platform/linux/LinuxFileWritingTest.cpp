#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/linux/LinuxFileSystemFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class LinuxFileWritingTest : public LinuxFileSystemTest {};

TEST_F(LinuxFileWritingTest, Copy_TakesContentModeAndTime) {
  Put(R"(\from)", std::string(3'000'000, 'x') + "end");
  Put(R"(\to)", "something longer before it");
  ASSERT_EQ(chmod(Native(R"(\from)").c_str(), 0640), 0);
  std::filesystem::last_write_time(Native(R"(\from)"),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000));
  EXPECT_TRUE(files_.Copy(R"(\from)", R"(\to)"));
  EXPECT_EQ(Content(R"(\to)"), Content(R"(\from)"));
  EXPECT_EQ(Mode(R"(\to)"), 0640U);
  EXPECT_EQ(files_.Find(R"(\to)")->lastWrite, files_.Find(R"(\from)")->lastWrite);
}

TEST_F(LinuxFileWritingTest, Copy_FileWithoutALengthOfItsOwn_IsCopiedWhole) {
  EXPECT_TRUE(LinuxFileSystem().Copy(R"(\proc\self\status)", [this] {
    std::string path = Native(R"(\to)").string();
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
  }()));
  EXPECT_THAT(Content(R"(\to)"), ::testing::HasSubstr("VmRSS"));
}

TEST_F(LinuxFileWritingTest, Copy_OntoALinkToItself_IsRefusedAndLosesNothing) {
  Put(R"(\From)", "x");
  std::filesystem::create_symlink(Native(R"(\From)"), Native(R"(\link)"));
  std::filesystem::create_hard_link(Native(R"(\From)"), Native(R"(\hard)"));
  for (const std::string_view target : {R"(\link)", R"(\hard)"}) {
    EXPECT_FALSE(files_.Copy(R"(\From)", target));
    EXPECT_EQ(Content(R"(\From)"), "x");
  }
}

TEST_F(LinuxFileWritingTest, ReplaceContent_KeepsTheMode_AndTellsTheNewState) {
  Put(R"(\f)", "old");
  ASSERT_EQ(chmod(Native(R"(\f)").c_str(), 0640), 0);
  ASSERT_EQ(chown(Native(R"(\f)").c_str(), getuid() == 0 ? 1234 : getuid(), getgid()), 0);
  const FileStamp stamp = files_.ReplaceContent(R"(\f)", {"new content"});
  EXPECT_EQ(Content(R"(\f)"), "new content");
  EXPECT_EQ(Mode(R"(\f)"), 0640U);
  struct stat status {};
  ASSERT_EQ(stat(Native(R"(\f)").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, getuid() == 0 ? 1234U : getuid());
  EXPECT_EQ(files_.Stamp(R"(\f)"), stamp);
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("f"));
}

TEST_F(LinuxFileWritingTest, ReplaceContent_MissingFile_IsMadeWithTheUsualMode) {
  const mode_t before = umask(0027);
  files_.ReplaceContent(R"(\f)", {"new"});
  umask(before);
  EXPECT_EQ(Content(R"(\f)"), "new");
  EXPECT_EQ(Mode(R"(\f)"), 0640U);
}

TEST_F(LinuxFileWritingTest, ReplaceContent_FollowsLinks) {
  Put(R"(\real\f)", "old");
  std::filesystem::create_symlink("real/f", Native(R"(\link)"));
  std::filesystem::create_symlink("link", Native(R"(\second)"));
  std::filesystem::create_symlink("real/new", Native(R"(\dangling)"));
  files_.ReplaceContent(R"(\second)", {"changed"});
  files_.ReplaceContent(R"(\dangling)", {"made"});
  EXPECT_EQ(Content(R"(\real\f)"), "changed");
  EXPECT_EQ(Content(R"(\real\new)"), "made");
  EXPECT_TRUE(std::filesystem::is_symlink(Native(R"(\second)")));
  EXPECT_TRUE(std::filesystem::is_symlink(Native(R"(\link)")));
}

TEST_F(LinuxFileWritingTest, ReplaceContent_LinksInACircle_Fail) {
  std::filesystem::create_symlink("b", Native(R"(\a)"));
  std::filesystem::create_symlink("a", Native(R"(\b)"));
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\a)", {"x"}); }), failure::kPathFileAccess);
}

/// A drive of 64 KiB; the test is skipped where drives cannot be mounted.
class FullDiskTest : public LinuxFileSystemTest {
 protected:
  void SetUp() override {
    std::filesystem::create_directory(Native(R"(\disk)"));
    mounted_ = mount("tmpfs", Native(R"(\disk)").c_str(), "tmpfs", 0, "size=64k") == 0;
    if (!mounted_) GTEST_SKIP() << "mounting is refused";
  }
  void TearDown() override {
    if (mounted_) umount2(Native(R"(\disk)").c_str(), MNT_DETACH);
  }

 private:
  bool mounted_ = false;
};

TEST_F(FullDiskTest, ReplaceContent_KeepsTheOldContentAndLeavesNothing) {
  Put(R"(\disk\f)", "old");
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\disk\f)", {std::string(100'000, 'x')}); }),
            failure::kDiskFull);
  EXPECT_EQ(Content(R"(\disk\f)"), "old");
  EXPECT_THAT(NamesIn(R"(\disk)"), ElementsAre("f"));
}

TEST_F(FullDiskTest, Copy_RemovesThePartialTarget) {
  Put(R"(\from)", std::string(100'000, 'x'));
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\from)", R"(\disk\to)"); }), failure::kDiskFull);
  EXPECT_FALSE(Exists(R"(\disk\to)"));
}

TEST_F(FullDiskTest, Writer_TellsOfIt) {
  auto writer = files_.OpenForWriting(R"(\disk\f)");
  EXPECT_EQ(Raised([&] {
              writer->Write(std::string(100'000, 'x'));
              writer->Flush();
            }),
            failure::kDiskFull);
}

}  // namespace
}  // namespace qb
