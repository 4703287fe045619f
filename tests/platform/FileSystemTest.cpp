#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystemFixture.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr unsigned kOrdinary = 0;

TEST_F(FileSystemTest, Names_AreFoundInAnyCaseComponentByComponent) {
  Put(R"(\Pkg\Dst\ÜBER.Doc)", "1");
  EXPECT_EQ(files_.Read(R"(\pKG\DST\über.dOC)"), "1");
  EXPECT_EQ(files_.Find(R"(\PKG\dst\über.doc)")->name, "ÜBER.Doc");
  EXPECT_EQ(files_.Read(R"(\PKG\dst\..\DST\.\über.doc)"), "1");
}

TEST_F(FileSystemTest, RelativePath_StartsInTheCurrentDirectory) {
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

TEST_F(FileSystemTest, Search_WithoutWildcards_FindsTheFileItself) {
  Put(R"(\d\F.txt)", "");
  EXPECT_THAT(files_.Search(R"(\D\f.TXT)", kOrdinary), ElementsAre("F.txt"));
  EXPECT_THAT(files_.Search(R"(\d)", kOrdinary), IsEmpty()) << "a folder comes only if asked for";
  EXPECT_THAT(files_.Search(R"(\d)", attribute::kDirectory), ElementsAre("d"));
  EXPECT_THAT(files_.Search(R"(\d\g.txt)", kOrdinary), IsEmpty());
}

TEST_F(FileSystemTest, Search_Patterns_Table) {
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

TEST_F(FileSystemTest, Search_UnknownFolder_GivesNone) {
  EXPECT_THAT(files_.Search(R"(\no\*.*)", kOrdinary), IsEmpty());
  EXPECT_THAT(files_.Search(R"(\no\f)", kOrdinary), IsEmpty());
}

TEST_F(FileSystemTest, Failures_Table) {
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

TEST_F(FileSystemTest, Failures_NameThePath) {
  try {
    files_.Read(R"(\no)");
    FAIL() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Description(), R"(File not found ('\no'))");
  }
}

TEST_F(FileSystemTest, CheckRemovable_LeavesTheFile) {
  Put(R"(\f)", "x");
  files_.CheckRemovable(R"(\F)");
  EXPECT_EQ(Content(R"(\f)"), "x");
}

TEST_F(FileSystemTest, SetAttributes_TurnsTheReadOnlyBit) {
  Put(R"(\f)", "x");
  files_.SetAttributes(R"(\f)", attribute::kReadOnly | attribute::kArchive);
  EXPECT_NE(files_.Find(R"(\f)")->attributes & attribute::kReadOnly, 0U);
  files_.SetAttributes(R"(\f)", files_.Find(R"(\f)")->attributes - attribute::kReadOnly);
  EXPECT_EQ(files_.Find(R"(\f)")->attributes & attribute::kReadOnly, 0U);
  files_.Remove(R"(\f)");
  EXPECT_FALSE(Exists(R"(\f)"));
}

TEST_F(FileSystemTest, Stamp_ChangesWithTheFile) {
  EXPECT_FALSE(files_.Stamp(R"(\f)").has_value());
  Put(R"(\f)", "1");
  const std::optional<FileStamp> first = files_.Stamp(R"(\f)");
  EXPECT_EQ(files_.Stamp(R"(\F)"), first);
  Put(R"(\f)", "12");
  EXPECT_NE(files_.Stamp(R"(\f)"), first);
  EXPECT_FALSE(files_.Stamp(R"(\)").has_value()) << "a folder is no file";
}

TEST_F(FileSystemTest, Resolved_TakesOutDots) {
  Put(R"(\pkg\Dst\f)", "");
  EXPECT_EQ(files_.Resolved(R"(\pkg\dst\..\new\..\other)"), R"(\pkg\other)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\no\..\..\f)"), R"(\f)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\)"), R"(\pkg)");
  EXPECT_EQ(files_.Resolved(R"(\)"), R"(\)");
  EXPECT_EQ(files_.Resolved(R"(\pkg\Dst\f)"), R"(\pkg\Dst\f)");
}

}  // namespace
}  // namespace qb
