#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
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

TEST_F(LinuxFileSystemTest, RelativePath_StartsInTheCurrentDirectory) {
  Put(R"(\work\b.txt)", "1");
  const std::filesystem::path before = std::filesystem::current_path();
  EXPECT_EQ(files_.CurrentDirectory(), R"(\)") << "the present one lies outside of the drive";
  std::filesystem::current_path(Native(R"(\work)"));
  EXPECT_EQ(files_.CurrentDirectory(), R"(\work)");
  EXPECT_EQ(files_.Read("b.txt"), "1");
  EXPECT_THAT(files_.Search("", kOrdinary), ElementsAre("b.txt"));
  EXPECT_EQ(files_.Resolved("b.txt"), R"(\work\b.txt)");
  std::filesystem::current_path(before);
}

TEST_F(LinuxFileSystemTest, Names_AreLookedUpInAnyCaseComponentByComponent) {
  Put(R"(\Pkg\Dst\ÜBER.Doc)", "1");
  EXPECT_EQ(files_.Read(R"(\pKG\DST\über.dOC)"), "1");
  EXPECT_EQ(files_.Find(R"(\PKG\dst\über.doc)")->name, "ÜBER.Doc");
  EXPECT_EQ(files_.Read(R"(\PKG\dst\..\DST\.\über.doc)"), "1");
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

TEST_F(LinuxFileSystemTest, NewFiles_GoIntoTheFolderOfAnyCase) {
  Put(R"(\Dst\old)", "");
  files_.OpenForWriting(R"(\DST\new)")->Write("1");
  files_.ReplaceContent(R"(\dST\OLD)", {"2"});
  EXPECT_EQ(Content(R"(\Dst\new)"), "1");
  EXPECT_EQ(Content(R"(\Dst\old)"), "2");
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

TEST_F(LinuxFileSystemTest, MissingFiles_AreCheapToAskFor) {
  for (int i = 0; i < 1000; ++i) Put(R"(\d\file)" + std::to_string(i), "");
  LetFilesSettle();
  EXPECT_FALSE(files_.Find(R"(\d\missing)").has_value());
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 10'000; ++i) EXPECT_THAT(files_.Search(R"(\d\missing.ttx)", kOrdinary), IsEmpty());
  const std::chrono::duration<double, std::micro> each = (std::chrono::steady_clock::now() - start) / 10'000;
  // Reading the folder each time would take ten times as long even on a fast machine.
  EXPECT_LT(each.count(), 100);
  RecordProperty("microseconds", std::to_string(each.count()));
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

TEST_F(LinuxFileSystemTest, Search_WithoutWildcards_FindsTheFileItself) {
  Put(R"(\d\F.txt)", "");
  EXPECT_THAT(files_.Search(R"(\D\f.TXT)", kOrdinary), ElementsAre("F.txt"));
  EXPECT_THAT(files_.Search(R"(\d)", kOrdinary), IsEmpty()) << "a folder comes only if asked for";
  EXPECT_THAT(files_.Search(R"(\d)", attribute::kDirectory), ElementsAre("d"));
  EXPECT_THAT(files_.Search(R"(\d\g.txt)", kOrdinary), IsEmpty());
}

TEST_F(LinuxFileSystemTest, Search_Patterns_Table) {
  for (const std::string_view name : {"a.doc", "B.DOC", "b.ppt", "noext", "x1.doc", "[y].doc"}) {
    Put(R"(\d\)" + std::string(name), "");
  }
  std::filesystem::create_directory(Native(R"(\d\sub.doc)"));
  struct Row {
    std::string_view pattern;
    unsigned attributes;
    std::vector<std::string> names;
  };
  for (const Row& row : std::vector<Row>{
           {"*.*", kOrdinary, {"B.DOC", "[y].doc", "a.doc", "b.ppt", "noext", "x1.doc"}},
           {"*", kOrdinary, {"B.DOC", "[y].doc", "a.doc", "b.ppt", "noext", "x1.doc"}},
           {"", kOrdinary, {"B.DOC", "[y].doc", "a.doc", "b.ppt", "noext", "x1.doc"}},
           {"*.doc", kOrdinary, {"B.DOC", "[y].doc", "a.doc", "x1.doc"}},
           {"*.doc", attribute::kDirectory, {"B.DOC", "[y].doc", "a.doc", "sub.doc", "x1.doc"}},
           {"?.DOC", kOrdinary, {"B.DOC", "a.doc"}},
           {"[y]*", kOrdinary, {"[y].doc"}},
           {"*.xls", kOrdinary, {}},
       }) {
    EXPECT_THAT(files_.Search(R"(\d\)" + std::string(row.pattern), row.attributes),
                ::testing::UnorderedElementsAreArray(row.names))
        << row.pattern;
  }
}

TEST_F(LinuxFileSystemTest, Search_ComesInTheOrderOfUpperCaseNames) {
  for (const std::string_view name : {"b", "C", "a"}) Put(R"(\d\)" + std::string(name), "");
  EXPECT_THAT(files_.Search(R"(\d\*)", kOrdinary), ElementsAre("a", "b", "C"));
}

TEST_F(LinuxFileSystemTest, Search_UnknownFolder_GivesNone) {
  EXPECT_THAT(files_.Search(R"(\no\*.*)", kOrdinary), IsEmpty());
  EXPECT_THAT(files_.Search(R"(\no\f)", kOrdinary), IsEmpty());
}

TEST_F(LinuxFileSystemTest, Failures_Table) {
  Put(R"(\file)", "x");
  Put(R"(\readonly)", "x");
  ASSERT_EQ(chmod(Native(R"(\readonly)").c_str(), 0444), 0);
  std::filesystem::create_directory(Native(R"(\folder)"));
  EXPECT_EQ(Raised([&] { files_.Read(R"(\no)"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { files_.Read(R"(\no\no)"); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.Read(R"(\file\no)"); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.Read(R"(\folder)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.OpenForWriting(R"(\no\no)"); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.OpenForWriting(R"(\folder)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.OpenForWriting(R"(\readonly)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.OpenForAppending(R"(\readonly)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\readonly)", {"y"}); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\folder)", {"y"}); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\no\no)", {"y"}); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\no)", R"(\to)"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\folder)", R"(\to)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\file)", R"(\no\to)"); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\file)", R"(\readonly)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.Remove(R"(\no)"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { files_.Remove(R"(\folder)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Remove(R"(\readonly)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.CheckRemovable(R"(\no)"); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { files_.CheckRemovable(R"(\folder)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.CheckRemovable(R"(\readonly)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.MakeDirectory(R"(\folder)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.MakeDirectory(R"(\no\no)"); }), failure::kPathNotFound);
  EXPECT_EQ(Raised([&] { files_.SetAttributes(R"(\no)", 0); }), failure::kFileNotFound);
  EXPECT_EQ(Raised([&] { files_.Lock(R"(\no\no)"); }), failure::kPathNotFound);
  EXPECT_EQ(Content(R"(\readonly)"), "x");
}

TEST_F(LinuxFileSystemTest, Failures_NameThePath) {
  try {
    files_.Read(R"(\no)");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), R"(File not found ('\no'))");
  }
}

TEST_F(LinuxFileSystemTest, Pipes_AreNoFilesToRead) {
  ASSERT_EQ(mkfifo(Native(R"(\pipe)").c_str(), 0600), 0);
  Put(R"(\file)", "x");
  EXPECT_EQ(Raised([&] { files_.Read(R"(\pipe)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\pipe)", R"(\to)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.Copy(R"(\file)", R"(\pipe)"); }), failure::kPathFileAccess);
  EXPECT_NE(Raised([&] { files_.OpenForWriting(R"(\pipe)"); }), 0);
}

TEST_F(LinuxFileSystemTest, CheckRemovable_LeavesTheFile) {
  Put(R"(\f)", "x");
  files_.CheckRemovable(R"(\F)");
  EXPECT_EQ(Content(R"(\f)"), "x");
}

TEST_F(LinuxFileSystemTest, SetAttributes_TurnsTheReadOnlyBit) {
  Put(R"(\f)", "x");
  files_.SetAttributes(R"(\f)", attribute::kReadOnly | attribute::kArchive);
  EXPECT_EQ(files_.Find(R"(\f)")->attributes, attribute::kReadOnly);
  files_.SetAttributes(R"(\f)", files_.Find(R"(\f)")->attributes - attribute::kReadOnly);
  EXPECT_EQ(files_.Find(R"(\f)")->attributes, 0U);
  files_.Remove(R"(\f)");
  EXPECT_FALSE(Exists(R"(\f)"));
}

TEST_F(LinuxFileSystemTest, SetAttributes_ThatChangesNothing_KeepsTheMode) {
  Put(R"(\f)", "x");
  ASSERT_EQ(chmod(Native(R"(\f)").c_str(), 0664), 0);
  files_.SetAttributes(R"(\f)", 0);
  EXPECT_EQ(Mode(R"(\f)"), 0664U);
}

TEST_F(LinuxFileSystemTest, Stamp_ChangesWithTheFile) {
  EXPECT_FALSE(files_.Stamp(R"(\f)").has_value());
  Put(R"(\f)", "1");
  const std::optional<FileStamp> first = files_.Stamp(R"(\f)");
  EXPECT_EQ(files_.Stamp(R"(\F)"), first);
  Put(R"(\f)", "12");
  EXPECT_NE(files_.Stamp(R"(\f)"), first);
  EXPECT_FALSE(files_.Stamp(R"(\)").has_value()) << "a folder is no file";
}

TEST_F(LinuxFileSystemTest, Resolved_TakesOutLinksAndDots) {
  Put(R"(\pkg\Dst\f)", "");
  std::filesystem::create_symlink("pkg", Native(R"(\link)"));
  EXPECT_EQ(files_.Resolved(R"(\link\dst\.\f)"), R"(\pkg\Dst\f)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\dst\..\new\..\other)"), R"(\pkg\other)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\no\..\..\f)"), R"(\f)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\)"), R"(\pkg)");
  EXPECT_EQ(files_.Resolved(R"(\)"), R"(\)");
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

TEST_F(LinuxFileSystemTest, Lock_LeavesNoFile_AndMayBeTakenTwiceInOneProcess) {
  Put(R"(\d\f)", "x");
  const auto first = files_.Lock(R"(\d\f)");
  const auto second = LinuxFileSystem(Root()).Lock(R"(\D\other)");
  EXPECT_THAT(NamesIn(R"(\d)"), ElementsAre("f"));
}

}  // namespace
}  // namespace qb
