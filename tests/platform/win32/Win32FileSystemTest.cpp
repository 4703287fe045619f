#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystemFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr unsigned kOrdinary = 0;

TEST_F(Win32FileSystemTest, Paths_WithAnySeparatorAndCase_FindTheFile) {
  Put(R"(\Pkg\ÜBER.Doc)", "1");
  EXPECT_EQ(files_.Read(R"(\pkg\über.doc)"), "1");
  EXPECT_EQ(files_.Read("/pkg/über.doc"), "1");
  EXPECT_EQ(files_.Find(R"(\PKG\über.doc)")->name, "ÜBER.Doc");
  EXPECT_EQ(files_.Read(R"(\PKG\..\pkg\.\über.doc)"), "1");
}

TEST_F(Win32FileSystemTest, Paths_OfTheMachine_AreTakenAsTheyAre) {
  Put(R"(\b.txt)", "1");
  EXPECT_EQ(Win32FileSystem().Read(Root() + R"(\b.txt)"), "1");
  EXPECT_EQ(files_.Read(Root() + R"(\b.txt)"), "1");
  EXPECT_EQ(files_.Resolved(Root() + R"(\b.txt)"), R"(\b.txt)");
}

TEST_F(Win32FileSystemTest, RelativePath_StartsInTheCurrentDirectory) {
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

TEST_F(Win32FileSystemTest, HostilePaths_FindNothing) {
  Put(R"(\a)", "x");
  std::string deep;
  for (int i = 0; i < 20'000; ++i) deep += R"(\..\x)";
  for (const std::string& path :
       {deep, std::string("\\") + std::string(40'000, 'x'), std::string(R"(\a)") + '\0' + "b", std::string(),
        std::string("\\\xFF\xFE"), std::string(R"(\a\\b\)"), std::string(R"(\\.\C:)"),
        std::string(R"(\a:stream)"), std::string(R"(\a\)"), std::string(R"(\*)"), std::string(R"(\?)")}) {
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

TEST_F(Win32FileSystemTest, Search_WithoutWildcards_FindsTheFileItself) {
  Put(R"(\d\F.txt)", "");
  EXPECT_THAT(files_.Search(R"(\D\f.TXT)", kOrdinary), ElementsAre("F.txt"));
  EXPECT_THAT(files_.Search(R"(\d)", kOrdinary), IsEmpty()) << "a folder comes only if asked for";
  EXPECT_THAT(files_.Search(R"(\d)", attribute::kDirectory), ElementsAre("d"));
  EXPECT_THAT(files_.Search(R"(\d\g.txt)", kOrdinary), IsEmpty());
}

TEST_F(Win32FileSystemTest, Search_Patterns_Table) {
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

TEST_F(Win32FileSystemTest, Search_UnknownFolder_GivesNone) {
  EXPECT_THAT(files_.Search(R"(\no\*.*)", kOrdinary), IsEmpty());
  EXPECT_THAT(files_.Search(R"(\no\f)", kOrdinary), IsEmpty());
}

TEST_F(Win32FileSystemTest, Failures_Table) {
  Put(R"(\file)", "x");
  Put(R"(\readonly)", "x");
  files_.SetAttributes(R"(\readonly)", attribute::kReadOnly);
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
  EXPECT_THAT(NamesIn(R"(\)"), ElementsAre("file", "folder", "readonly"));
  files_.SetAttributes(R"(\readonly)", 0);
}

TEST_F(Win32FileSystemTest, Failures_NameThePath) {
  try {
    files_.Read(R"(\no)");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), R"(File not found ('\no'))");
  }
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

TEST_F(Win32FileSystemTest, CheckRemovable_LeavesTheFile) {
  Put(R"(\f)", "x");
  files_.CheckRemovable(R"(\F)");
  EXPECT_EQ(Content(R"(\f)"), "x");
}

TEST_F(Win32FileSystemTest, SetAttributes_TurnsTheReadOnlyBit) {
  Put(R"(\f)", "x");
  files_.SetAttributes(R"(\f)", attribute::kReadOnly | attribute::kDirectory);
  EXPECT_NE(files_.Find(R"(\f)")->attributes & attribute::kReadOnly, 0U);
  files_.SetAttributes(R"(\f)", files_.Find(R"(\f)")->attributes - attribute::kReadOnly);
  EXPECT_EQ(files_.Find(R"(\f)")->attributes & attribute::kReadOnly, 0U);
  files_.Remove(R"(\f)");
  EXPECT_FALSE(Exists(R"(\f)"));
}

TEST_F(Win32FileSystemTest, Stamp_ChangesWithTheFile) {
  EXPECT_FALSE(files_.Stamp(R"(\f)").has_value());
  Put(R"(\f)", "1");
  const std::optional<FileStamp> first = files_.Stamp(R"(\f)");
  EXPECT_EQ(files_.Stamp(R"(\F)"), first);
  Put(R"(\f)", "12");
  EXPECT_NE(files_.Stamp(R"(\f)"), first);
  EXPECT_FALSE(files_.Stamp(R"(\)").has_value()) << "a folder is no file";
}

TEST_F(Win32FileSystemTest, Resolved_TakesOutDots) {
  Put(R"(\pkg\Dst\f)", "");
  EXPECT_EQ(files_.Resolved(R"(\pkg\dst\..\new\..\other)"), R"(\pkg\other)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\no\..\..\f)"), R"(\f)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\)"), R"(\pkg)");
  EXPECT_EQ(files_.Resolved(R"(\)"), R"(\)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\Dst\f)"), R"(\pkg\Dst\f)");
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

}  // namespace
}  // namespace qb
