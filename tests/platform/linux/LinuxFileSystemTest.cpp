#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/LinuxFileSystemFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr unsigned kOrdinary = 0;

TEST_F(LinuxFileSystemTest, Paths_OnlySwapTheSeparators) {
  Put(R"(\a\b.txt)", "1");
  EXPECT_EQ(files_.Read(R"(\a\b.txt)"), "1");
  EXPECT_FALSE(files_.Find("/a/b.txt").has_value());
  EXPECT_FALSE(files_.Find(R"(C:\a\b.txt)").has_value());
}

TEST_F(LinuxFileSystemTest, Paths_WithoutARootOfTheirOwn_AreThoseOfTheMachine) {
  Put(R"(\b.txt)", "1");
  std::string path = Root() + "/b.txt";
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_EQ(LinuxFileSystem().Read(path), "1");
}

TEST_F(LinuxFileSystemTest, Names_ThatStandAsAskedForComeFirst) {
  Put(R"(\name)", "lower");
  Put(R"(\NAME)", "upper");
  EXPECT_EQ(files_.Read(R"(\name)"), "lower");
  EXPECT_EQ(files_.Read(R"(\NAME)"), "upper");
  EXPECT_EQ(files_.Read(R"(\Name)"), "upper") << "the first in the order of bytes";
}

TEST_F(LinuxFileSystemTest, Names_MadeAfterALookUp_AreFound) {
  Put(R"(\d\first)", "");
  LetFilesSettle();
  for (int i = 0; i < 20; ++i) {
    const std::string name = "Name" + std::to_string(i);
    EXPECT_FALSE(files_.Find(R"(\d\NAME)" + std::to_string(i)).has_value());
    Put(R"(\d\)" + name, "");
    EXPECT_TRUE(files_.Find(R"(\d\NAME)" + std::to_string(i)).has_value());
    std::filesystem::remove(Native(R"(\d\)" + name));
    EXPECT_FALSE(files_.Find(R"(\d\NAME)" + std::to_string(i)).has_value());
  }
}

TEST_F(LinuxFileSystemTest, HostilePaths_FindNothing) {
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += R"(\..\x)";
  for (const std::string& path :
       {deep, std::string("\\") + std::string(100'000, 'x'), std::string(R"(\a)") + '\0' + "b", std::string(),
        std::string("\\\xFF\xFE"), std::string(R"(\a\\b\)")}) {
    EXPECT_FALSE(files_.Find(path).has_value());
    EXPECT_FALSE(files_.Stamp(path).has_value());
    EXPECT_NE(Raised([&] { files_.Read(path); }), 0);
  }
}

TEST_F(LinuxFileSystemTest, MissingFiles_OfAFolderThatIsUnchanged_AreNotLookedForAgain) {
  Put(R"(\d\first)", "");
  LetFilesSettle();
  EXPECT_THAT(files_.Search(R"(\d\missing.ttx)", kOrdinary), IsEmpty());
  // Whoever reads the folder finds this one; the folder's stamp does not tell of it.
  const std::filesystem::path folder = Native(R"(\d)");
  const auto stamp = std::filesystem::last_write_time(folder);
  Put(R"(\d\Missing.ttx)", "");
  std::filesystem::last_write_time(folder, stamp);
  EXPECT_THAT(files_.Search(R"(\d\missing.ttx)", kOrdinary), IsEmpty());
  EXPECT_FALSE(files_.Find(R"(\d\missing.ttx)").has_value());
  Put(R"(\d\another)", "");
  EXPECT_THAT(files_.Search(R"(\d\missing.ttx)", kOrdinary), ElementsAre("Missing.ttx"));
}

TEST_F(LinuxFileSystemTest, Find_TellsWhatTheSystemKnows) {
  Put(R"(\d\f.txt)", "12345");
  struct timespec times[2] = {{1053181329, 0}, {1053181329, 123456789}};
  ASSERT_EQ(utimensat(AT_FDCWD, Native(R"(\d\f.txt)").c_str(), times, 0), 0);
  const std::optional<FileInfo> file = files_.Find(R"(\d\f.txt)");
  ASSERT_TRUE(file.has_value());
  EXPECT_EQ(file->name, "f.txt");
  EXPECT_EQ(file->size, 5U);
  EXPECT_EQ(file->attributes, 0U);
  EXPECT_EQ(file->lastWrite, (FileTime{1053181329, 123456789}));
  EXPECT_GT(file->creation.seconds, 1053181329);
  EXPECT_EQ(files_.Find(R"(\d)")->attributes, attribute::kDirectory);
  EXPECT_EQ(files_.Find(R"(\d\)")->name, "d");
}

TEST_F(LinuxFileSystemTest, Search_ComesInTheOrderOfUpperCaseNames) {
  for (const std::string_view name : {"b", "C", "a"}) Put(R"(\d\)" + std::string(name), "");
  EXPECT_THAT(files_.Search(R"(\d\*)", kOrdinary), ElementsAre("a", "b", "C"));
}

TEST_F(LinuxFileSystemTest, Pipes_AreNoFilesToRead) {
  ASSERT_EQ(mkfifo(Native(R"(\pipe)").c_str(), 0600), 0);
  Put(R"(\file)", "x");
  EXPECT_EQ(Raised([&] { files_.Read(R"(\pipe)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\pipe)", R"(\to)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\file)", R"(\pipe)"); }), failure::kPathFileAccess);
  EXPECT_NE(Raised([&] { files_.OpenForWriting(R"(\pipe)"); }), 0);
}

TEST_F(LinuxFileSystemTest, SetAttributes_ThatChangesNothing_KeepsTheMode) {
  Put(R"(\f)", "x");
  ASSERT_EQ(chmod(Native(R"(\f)").c_str(), 0664), 0);
  files_.SetAttributes(R"(\f)", 0);
  EXPECT_EQ(Mode(R"(\f)"), 0664U);
}

TEST_F(LinuxFileSystemTest, Resolved_TakesOutLinks) {
  Put(R"(\pkg\Dst\f)", "");
  std::filesystem::create_symlink("pkg", Native(R"(\link)"));
  EXPECT_EQ(files_.Resolved(R"(\link\dst\.\f)"), R"(\pkg\Dst\f)");
}

TEST_F(LinuxFileSystemTest, Resolved_PathThatLeavesTheDrive_IsSeenToDoSo) {
  std::filesystem::create_symlink("/usr", Native(R"(\out)"));
  EXPECT_EQ(files_.Resolved(R"(\out\bin)").substr(0, 4), R"(\usr)");
}

TEST_F(LinuxFileSystemTest, ProgramDirectory_IsWhereTheProgramStands) {
  std::string directory = LinuxFileSystem().ProgramDirectory();
  std::replace(directory.begin(), directory.end(), '\\', '/');
  EXPECT_EQ(directory, std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

}  // namespace
}  // namespace qb
