#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystemFixture.h"
#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystem.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

constexpr unsigned kOrdinary = 0;

using Win32FileSystemTest = FileSystemTest;

TEST_F(Win32FileSystemTest, Paths_TakeEitherSeparator) {
  Put(R"(\Pkg\f)", "1");
  EXPECT_EQ(files_.Read("/pkg/f"), "1");
}

TEST_F(Win32FileSystemTest, Paths_OfTheMachine_AreTakenAsTheyAre) {
  Put(R"(\b.txt)", "1");
  EXPECT_EQ(Win32FileSystem().Read(Root() + R"(\b.txt)"), "1");
  EXPECT_EQ(files_.Read(Root() + R"(\b.txt)"), "1");
  EXPECT_EQ(files_.Resolved(Root() + R"(\b.txt)"), R"(\b.txt)");
}

TEST_F(Win32FileSystemTest, Paths_LongerThanTheOldLimit_Work) {
  std::string folder;
  for (int i = 0; i < 8; ++i) {
    folder += "\\" + std::string(50, static_cast<char>('a' + i));
    files_.MakeDirectory(folder);
  }
  const std::string file = folder + R"(\file.txt)";
  files_.ReplaceContent(file, {"1"});
  files_.ReplaceContent(file, {"2"});
  EXPECT_EQ(files_.Read(file), "2");
  EXPECT_EQ(files_.Find(file)->size, 1U);
  EXPECT_THAT(files_.Search(folder + R"(\*.*)", kOrdinary), ElementsAre("file.txt"));
  EXPECT_EQ(files_.Resolved(folder + R"(\..\)" + folder.substr(folder.rfind('\\') + 1) + R"(\file.txt)"),
            file);
  EXPECT_TRUE(files_.Copy(file, folder + R"(\copy.txt)"));
  files_.Remove(file);
  EXPECT_FALSE(files_.Find(file).has_value());
}

TEST_F(Win32FileSystemTest, FolderJustBelowTheOldLimit_HoldsFilesBeyondIt) {
  const std::size_t prefix = Root().size();
  ASSERT_LT(prefix, 120U);
  const std::string outer = "\\" + std::string(100, 'a');
  const std::string folder = outer + "\\" + std::string(236 - prefix - outer.size() - 1, 'b');
  files_.MakeDirectory(outer);
  files_.MakeDirectory(folder);
  const std::string file = folder + "\\" + std::string(60, 'c') + ".txt";
  files_.ReplaceContent(file, {"1"});
  EXPECT_THAT(files_.Search(file, kOrdinary), ElementsAre(std::string(60, 'c') + ".txt"));
  EXPECT_THAT(files_.Search(folder + R"(\*.*)", kOrdinary), ElementsAre(std::string(60, 'c') + ".txt"));
  EXPECT_EQ(files_.Read(file), "1");
  const std::optional<std::string> name = files_.ShortPathName(file);
  ASSERT_TRUE(name.has_value());
  EXPECT_FALSE(name->starts_with(R"(\\?\)")) << *name;
}

TEST_F(Win32FileSystemTest, HostilePaths_FindNothing) {
  Put(R"(\a)", "x");
  std::string deep;
  for (int i = 0; i < 20'000; ++i) deep += R"(\..\x)";
  for (const std::string& path :
       {deep, std::string("\\") + std::string(40'000, 'x'), std::string(R"(\a)") + '\0' + "b", std::string(),
        std::string("\\\xFF\xFE"), std::string(R"(\a\\b\)"), std::string(R"(\\.\C:)"),
        std::string(R"(\a:stream)"), std::string(R"(\a\)"), std::string(R"(\*)"), std::string(R"(\?)"),
        std::string(R"(\<)"), std::string(R"(\a>)")}) {
    EXPECT_FALSE(files_.Find(path).has_value()) << path.substr(0, 20);
    EXPECT_FALSE(files_.Stamp(path).has_value()) << path.substr(0, 20);
    EXPECT_NE(Raised([&] { files_.Read(path); }), 0) << path.substr(0, 20);
  }
}

TEST_F(Win32FileSystemTest, StreamsInsideAFile_AreNotWritten) {
  Put(R"(\a)", "x");
  EXPECT_EQ(Raised([&] { files_.OpenForWriting(R"(\a:stream)"); }), failure::kPathFileAccess);
  EXPECT_EQ(Raised([&] { files_.ReplaceContent(R"(\a:stream)", {"y"}); }), failure::kPathFileAccess);
  EXPECT_EQ(Content(R"(\a)"), "x");
}

TEST_F(Win32FileSystemTest, Find_TellsWhatTheSystemKnows) {
  Put(R"(\d\f.txt)", "12345");
  const SystemHandle file(CreateFileW(Native(R"(\d\f.txt)").c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
  const std::uint64_t ticks = (1053181329ULL + 11644473600ULL) * 10'000'000ULL + 1'234'567ULL;
  const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
  ASSERT_TRUE(file);
  ASSERT_NE(SetFileTime(file.Get(), nullptr, nullptr, &time), FALSE);
  const std::optional<FileInfo> info = files_.Find(R"(\d\f.txt)");
  ASSERT_TRUE(info.has_value());
  EXPECT_EQ(info->name, "f.txt");
  EXPECT_EQ(info->size, 5U);
  EXPECT_EQ(info->attributes & ~attribute::kArchive, 0U);
  EXPECT_EQ(info->lastWrite, (FileTime{1053181329, 123456700}));
  EXPECT_EQ(files_.Find(R"(\d)")->attributes, attribute::kDirectory);
  EXPECT_EQ(files_.Find(R"(\d\)")->name, "d");
  EXPECT_TRUE(files_.Find(R"(\)").has_value());
}

TEST_F(Win32FileSystemTest, FileThatAnotherProgramHoldsForItself_CannotBeReadWrittenOrRemoved) {
  Put(R"(\f)", "x");
  const SystemHandle held(CreateFileW(Native(R"(\f)").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held);
  EXPECT_EQ(Raised([&] { files_.Read(R"(\f)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.OpenForWriting(R"(\f)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.CheckRemovable(R"(\f)"); }), failure::kPermissionDenied);
  EXPECT_EQ(Raised([&] { files_.Remove(R"(\f)"); }), failure::kPermissionDenied);
  EXPECT_TRUE(files_.Find(R"(\f)").has_value());
}

TEST_F(Win32FileSystemTest, ShortPathName_OpensTheSameFile) {
  Put(R"(\A rather long name of a folder\termbase file.mtw)", "terms");
  const std::optional<std::string> name =
      files_.ShortPathName(R"(\A rather long name of a folder\termbase file.mtw)");
  ASSERT_TRUE(name.has_value());
  EXPECT_EQ(name->find("long name"), std::string::npos);
  EXPECT_EQ(Win32FileSystem().Read(*name), "terms");
  EXPECT_FALSE(files_.ShortPathName(R"(\no)").has_value());
}

TEST_F(Win32FileSystemTest, ProgramDirectory_HoldsTheProgram) {
  EXPECT_TRUE(
      Win32FileSystem().Find(Win32FileSystem().ProgramDirectory() + R"(\platform_tests.exe)").has_value());
}

TEST_F(Win32FileSystemTest, ProgramDirectory_OfADriveThatIsAFolder_StandsOnThatDrive) {
  const std::string directory = files_.ProgramDirectory();
  EXPECT_EQ(directory, Win32FileSystem().ProgramDirectory().substr(2));
  EXPECT_FALSE(files_.Find(directory + R"(\platform_tests.exe)").has_value());
}

}  // namespace
}  // namespace qb
