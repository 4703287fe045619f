#include <gtest/gtest.h>

#include <vector>

#include "MockPlatform.h"
#include "foundation/gRvdFile.h"
#include "runtime/RuntimeError.h"
#include "support/TestPlatform.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::NiceMock;
using ::testing::Throw;

class gRvdFileTest : public PlatformTest {};

struct ReplaceCase {
  std::string text;
  std::string old;
  std::string replacement;
  std::string result;
  std::size_t count;
};

TEST(gRvdFile, ReplaceAll_Table) {
  const std::vector<ReplaceCase> table = {
      {"aXbXc", "X", "-", "a-b-c", 2},
      {"aXbXc", "X", "", "abc", 2},
      {"abc", "x", "y", "abc", 0},
      {"", "x", "y", "", 0},
      {"abc", "", "y", "abc", 0},
      {"aAa", "A", "b", "aba", 1},   // exact comparison
      {"aa", "a", "ba", "baba", 2},  // what was put in does not match again
      {"aaaa", "aa", "a", "a", 3},   // a longer `old` resumes before the end of the replacement
      {"xaab", "aab", "ab", "xab", 1},
      {"aaab", "aab", "b", "ab", 1},  // resumes one character before the place of the match
      {"aaabb", "ab", "", "a", 2},
      {"üäüä", "ü", "öö", "ööäööä", 2},  // counts characters
      {"äabab", "ab", "", "ä", 2},
  };
  for (const ReplaceCase& row : table) {
    std::string text = row.text;
    EXPECT_EQ(ReplaceAll(text, row.old, row.replacement), row.count) << row.text << " / " << row.old;
    EXPECT_EQ(text, row.result) << row.text << " / " << row.old;
  }
}

TEST(gRvdFile, JoinFile_Table) {
  EXPECT_EQ(JoinFile(R"(C:\a)", "b.txt"), R"(C:\a\b.txt)");
  EXPECT_EQ(JoinFile(R"(C:\a\)", "b.txt"), R"(C:\a\b.txt)");
  EXPECT_EQ(JoinFile("C:/a/", "b.txt"), "C:/a/b.txt");
  EXPECT_EQ(JoinFile("", "b.txt"), R"(\b.txt)");
  EXPECT_EQ(JoinFile("a", ""), R"(a\)");
  EXPECT_EQ(JoinFile("", R"(.\Protocol.txt)"), R"(\.\Protocol.txt)");
}

TEST(gRvdFile, JoinPath6_Table) {
  EXPECT_EQ(JoinPath6("a", "b"), R"(a\b)");
  EXPECT_EQ(JoinPath6(" a ", " b ", " c ", "d", "e", "f"), R"(a\b\c\d\e\f)");
  EXPECT_EQ(JoinPath6(R"(a\)", "b/", "c"), R"(a\b/c)");
  EXPECT_EQ(JoinPath6("", "b"), R"(\b)");
  EXPECT_EQ(JoinPath6("a", "", "c"), R"(a\c)");
  EXPECT_EQ(JoinPath6("a", "b", "", "d"), R"(a\b)");
  EXPECT_EQ(JoinPath6("a", "b", "c", "d", "", "f"), R"(a\b\c\d)");
  EXPECT_EQ(JoinPath6("a", "b", " ", "d"), R"(a\b\d)");  // blanks alone are not empty
}

TEST(gRvdFile, JoinPath6_EmptyThirdPiece_IgnoresTheFourth) {
  EXPECT_EQ(JoinPath6("a", "b", "", "d"), R"(a\b)");
}

TEST(gRvdFile, DirectoryOf_Table) {
  EXPECT_EQ(DirectoryOf(R"(C:\a\b.txt)"), R"(C:\a)");
  EXPECT_EQ(DirectoryOf(R"(C:\a\)"), "C:");
  EXPECT_EQ(DirectoryOf("b.txt"), "");
  EXPECT_EQ(DirectoryOf("a/b"), "");
  EXPECT_EQ(DirectoryOf(R"(a\b/c)"), "a");
  EXPECT_EQ(DirectoryOf(R"(\b)"), "");
  EXPECT_EQ(DirectoryOf(R"(\)"), "");
  EXPECT_EQ(DirectoryOf(R"(a\\)"), "a");
  EXPECT_EQ(DirectoryOf(""), "");
  EXPECT_EQ(DirectoryOf("x"), "");
}

TEST(gRvdFile, FileNameOf_Table) {
  EXPECT_EQ(FileNameOf(R"(C:\a\b.txt)"), "b.txt");
  EXPECT_EQ(FileNameOf("a/b"), "b");
  EXPECT_EQ(FileNameOf(R"(a\b/c)"), "c");
  EXPECT_EQ(FileNameOf("b.txt"), "b.txt");
  EXPECT_EQ(FileNameOf(R"(C:\a\)"), "");
  EXPECT_EQ(FileNameOf("a/"), "");
  EXPECT_EQ(FileNameOf(""), "");
}

TEST(gRvdFile, ExtensionOf_Table) {
  EXPECT_EQ(ExtensionOf("a.txt"), ".txt");
  EXPECT_EQ(ExtensionOf("a.tar.gz"), ".gz");
  EXPECT_EQ(ExtensionOf(".x"), ".x");
  EXPECT_EQ(ExtensionOf(R"(a.b\c)"), R"(.b\c)");
  EXPECT_EQ(ExtensionOf("a."), "");
  EXPECT_EQ(ExtensionOf("a.b."), ".b.");
  EXPECT_EQ(ExtensionOf("a"), "");
  EXPECT_EQ(ExtensionOf("."), "");
  EXPECT_EQ(ExtensionOf(""), "");
}

TEST(gRvdFile, ChangeExtension_Table) {
  EXPECT_EQ(ChangeExtension("x.tar.gz", ".lan"), "x.tar.lan");
  EXPECT_EQ(ChangeExtension(R"(dir.d\file)", "lan"), R"(dir.d\file.lan)");
  EXPECT_EQ(ChangeExtension("dir.d/file", "lan"), "dir.d/file.lan");
  EXPECT_EQ(ChangeExtension("x", "lan"), "x.lan");
  EXPECT_EQ(ChangeExtension("x.", "lan"), "x.lan");
  EXPECT_EQ(ChangeExtension("x.a", "..lan"), "x..lan");
  EXPECT_EQ(ChangeExtension("x.a", ""), "x.");
  EXPECT_EQ(ChangeExtension("", "lan"), ".lan");
}

TEST_F(gRvdFileTest, FileExists_MaskZero_FindsOrdinaryFilesOnly) {
  Write(R"(\pkg\a.txt)", "");
  MakeFolder(R"(\pkg\sub)");
  EXPECT_TRUE(FileExists(R"(\pkg\a.txt)", 0));
  EXPECT_FALSE(FileExists(R"(\pkg\sub)", 0));
  EXPECT_TRUE(FileExists(R"(\pkg\sub)", attribute::kDirectory));
  EXPECT_FALSE(FileExists(R"(\pkg\b.txt)", 0));
  EXPECT_FALSE(FileExists(R"(\none\a.txt)", 0));
}

TEST_F(gRvdFileTest, FileExists_Wildcards_Count) {
  Write(R"(\pkg\a.txt)", "");
  EXPECT_TRUE(FileExists(R"(\pkg\*.txt)", 0));
  EXPECT_TRUE(FileExists(R"(\pkg\?.t*)", 0));
  EXPECT_FALSE(FileExists(R"(\pkg\*.doc)", 0));
}

TEST_F(gRvdFileTest, FileExists_FailingSearch_IsFalse) {
  auto& files = Replace<NiceMock<MockFileSystem>>(ThePlatform().files);
  ON_CALL(files, Search(_, _)).WillByDefault(Throw(RuntimeError(failure::kPathNotFound)));
  EXPECT_FALSE(FileExists(R"(\pkg\a.txt)", 0));
}

}  // namespace
}  // namespace qb
