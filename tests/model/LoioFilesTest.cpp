#include <gmock/gmock.h>

#include "model/CLoioEntry.h"
#include "model/CPxfFile.h"
#include "support/ModelTest.h"
#include "support/Raises.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class LoioFilesTest : public ModelTest {
 protected:
  static PackageBuilder ThreeFiles() {
    return PackageBuilder()
        .Loio("A")
        .Phio("DST_CURR", "dst")
        .File("a.css", "PRIM")
        .File("b.gif")
        .File("c.gif");
  }

  static PackageBuilder OnlySource() {
    return PackageBuilder().Loio("A").Phio("SRC_CURR", "src").File("a.css", "PRIM");
  }

  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    const auto phio = Loio("A").GetPhio(false);
    for (std::size_t i = 1; i <= phio->Components.Count(); ++i) {
      const auto& file = *phio->Components.Item(i);
      names.push_back(file.FileName + (file.FileFormat.empty() ? "" : ":" + file.FileFormat));
    }
    return names;
  }
};

TEST_F(LoioFilesTest, DstFileAndPath_AreThoseOfTheFirstTranslation) {
  LoadPackage(ThreeFiles().Phio("DST_CURR", "other").File("d.gif", "PRIM"));
  EXPECT_EQ(Loio("A").GetDstFile("b.gif")->FileName, "b.gif");
  EXPECT_EQ(Loio("A").GetDstFile("B.GIF"), nullptr);
  EXPECT_EQ(Loio("A").GetDstFile("d.gif"), nullptr);
  EXPECT_EQ(Loio("A").GetDstPath(), "dst");
}

TEST_F(LoioFilesTest, WithoutATranslation_OperationsGiveNothing) {
  LoadPackage(OnlySource());
  CLoioEntry& loio = Loio("A");
  EXPECT_EQ(loio.GetDstFile("a.css"), nullptr);
  EXPECT_EQ(loio.GetDstPath(), "");
  EXPECT_FALSE(loio.AddDstFile("x", "A"));
  EXPECT_FALSE(loio.MarkDstFileAsPrimary("a.css"));
  EXPECT_FALSE(loio.IsDstFile("a.css"));
  EXPECT_TRUE(loio.SavePhioFiles(role::kDstCurr));
  EXPECT_FALSE(loio.RemoveAllDstFiles());
  EXPECT_FALSE(loio.RemoveDstFile("a.css"));
  EXPECT_EQ(loio.GetTimeStamp(), "00000000000000");
  EXPECT_THAT([&] { loio.GetTranslationFileName(); }, RaisesNumber(91));
}

TEST_F(LoioFilesTest, GetTimeStamp_AsksForAStampThatNeverComes) {
  LoadPackage(ThreeFiles());
  EXPECT_THAT([&] { Loio("A").GetTimeStamp(); }, RaisesNumber(28));
}

TEST_F(LoioFilesTest, GetTranslationFileName_IsRelativeToThePackage) {
  LoadPackage(ThreeFiles());
  EXPECT_EQ(Loio("A").GetTranslationFileName(), R"(dst\a.css)");
}

TEST_F(LoioFilesTest, GetSourceFileName_TakesTheFirstSourceInTheOrderOfThePackage) {
  LoadPackage(ThreeFiles()
                  .Phio("SRC_PREV", "old")
                  .File("o.css", "PRIM")
                  .Phio("SRC_CURR", "src")
                  .File("s.css", "PRIM"));
  EXPECT_EQ(Loio("A").GetSourceFileName(), R"(old\o.css)");
  LoadPackage(ThreeFiles()
                  .Phio("SRC_CURR", "src")
                  .File("s.css", "PRIM")
                  .Phio("SRC_PREV", "old")
                  .File("o.css", "PRIM"));
  EXPECT_EQ(Loio("A").GetSourceFileName(), R"(src\s.css)");
}

TEST_F(LoioFilesTest, GetSourceFileName_WithoutPrimaryTakesTheFirstFile) {
  LoadPackage(ThreeFiles().Phio("SRC_CURR", "src").File("s.css", "PRIM").File("t.css"));
  Loio("A").PHIOs()[1]->Components.Item(1)->FileFormat.clear();
  EXPECT_EQ(Loio("A").GetSourceFileName(), R"(src\s.css)");
}

TEST_F(LoioFilesTest, GetSourceFileName_NoSource_IsEmpty) {
  LoadPackage(ThreeFiles().Phio("DST_PREV", "old").File("o.css", "PRIM"));
  EXPECT_EQ(Loio("A").GetSourceFileName(), "");
  LoadPackage(ThreeFiles().Phio("SRC_CURR", "src"));
  EXPECT_EQ(Loio("A").GetSourceFileName(), "");
}

TEST_F(LoioFilesTest, IsDstFile_IgnoresDirectories) {
  LoadPackage(ThreeFiles());
  EXPECT_TRUE(Loio("A").IsDstFile("b.gif"));
  EXPECT_TRUE(Loio("A").IsDstFile(R"(C:\anywhere\b.gif)"));
  EXPECT_TRUE(Loio("A").IsDstFile("x/b.gif"));
  EXPECT_FALSE(Loio("A").IsDstFile("B.gif"));
  EXPECT_FALSE(Loio("A").IsDstFile("src"));
}

TEST_F(LoioFilesTest, AddDstFile_ByDocumentOrFileKey_AddsUnderTheDocument) {
  for (const char* key : {"A", "A_b.gif"}) {
    LoadPackage(ThreeFiles());
    EXPECT_TRUE(Loio("A").AddDstFile("new.gif", key));
    const TreeNode& node = Tree().Nodes("A_new.gif");
    EXPECT_EQ(node.Parent(), &Tree().Nodes("A")) << key;
    EXPECT_EQ(node.Text(), "new.gif");
    EXPECT_EQ(node.Image(), 12);
    EXPECT_EQ(node.ExpandedImage(), -1);
    EXPECT_EQ(node.SelectedImage(), 0);
    EXPECT_THAT(Names(), ElementsAre("a.css:PRIM", "b.gif", "c.gif", "new.gif"));
    EXPECT_EQ(Loio("A").GetDstFile("new.gif")->ShortName, "");
    EXPECT_EQ(Entry("1", "1FILE_COUNT"), "3");  // written by a later save
  }
}

TEST_F(LoioFilesTest, AddDstFile_ListedName_AddsNothing) {
  LoadPackage(ThreeFiles());
  EXPECT_FALSE(Loio("A").AddDstFile("b.gif", "A"));
  EXPECT_THAT(Names(), ElementsAre("a.css:PRIM", "b.gif", "c.gif"));
  EXPECT_EQ(Tree().Nodes("A").Children().size(), 3U);
}

TEST_F(LoioFilesTest, AddDstFile_UnknownKey_Raises5) {
  LoadPackage(ThreeFiles());
  EXPECT_THAT([&] { Loio("A").AddDstFile("new.gif", "B"); }, RaisesNumber(5));
  EXPECT_THAT([&] { Loio("A").AddDstFile("new.gif", "@ROOT"); }, RaisesNumber(91));
}

TEST_F(LoioFilesTest, MarkDstFileAsPrimary_MovesItToTheFront) {
  LoadPackage(ThreeFiles());
  EXPECT_TRUE(Loio("A").MarkDstFileAsPrimary(R"(C:\x\b.gif)"));
  EXPECT_THAT(Names(), ElementsAre("b.gif:PRIM", "a.css", "c.gif"));
  EXPECT_EQ(Entry("1", "1FILE_NAME1"), "b.gif");
  EXPECT_EQ(Entry("1", "1FORMAT1"), "PRIM");
  EXPECT_EQ(Entry("1", "1SHORT_NAME1"), "b.gif");
  EXPECT_EQ(Entry("1", "1FILE_NAME2"), "a.css");
  EXPECT_EQ(Entry("1", "1FORMAT2"), "");
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "3");
  for (const auto& [key, image] : {std::pair{"A_b.gif", 10}, std::pair{"A_a.css", 12}}) {
    EXPECT_EQ(Tree().Nodes(key).Image(), image);
    EXPECT_EQ(Tree().Nodes(key).ExpandedImage(), image);
  }
}

TEST_F(LoioFilesTest, MarkDstFileAsPrimary_UnknownName_LeavesNoPrimary) {
  LoadPackage(ThreeFiles());
  const std::string before = PackageBytes();
  EXPECT_FALSE(Loio("A").MarkDstFileAsPrimary("x.gif"));
  EXPECT_THAT(Names(), ElementsAre("a.css", "b.gif", "c.gif"));
  EXPECT_EQ(PackageBytes(), before);
  EXPECT_EQ(Tree().Nodes("A_a.css").Image(), 12);
}

TEST_F(LoioFilesTest, MarkDstFileAsPrimary_ThePrimaryItself_Stays) {
  LoadPackage(ThreeFiles());
  EXPECT_TRUE(Loio("A").MarkDstFileAsPrimary("a.css"));
  EXPECT_THAT(Names(), ElementsAre("a.css:PRIM", "b.gif", "c.gif"));
}

TEST_F(LoioFilesTest, SavePhioFiles_WritesTheListAndRepaints) {
  LoadPackage(ThreeFiles());
  Loio("A").GetPhio(false)->Components.Remove(3);
  Tree().Nodes("A").SetText("?");
  EXPECT_TRUE(Loio("A").SavePhioFiles(role::kDstCurr));
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "2");
  EXPECT_EQ(Tree().Nodes("A").Text(), "");
}

TEST_F(LoioFilesTest, RemoveAllDstFiles_EmptiesTheListAndLeavesTheTree) {
  LoadPackage(ThreeFiles());
  EXPECT_TRUE(Loio("A").RemoveAllDstFiles());
  EXPECT_THAT(Names(), ElementsAre());
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "0");
  EXPECT_EQ(Entry("1", "1FILE_NAME1"), "");
  EXPECT_EQ(Tree().Nodes("A").Children().size(), 3U);
}

TEST_F(LoioFilesTest, RemoveGoneFileNodes_BringsTheTreeInLineWithTheList) {
  LoadPackage(ThreeFiles());
  Tree().Select(&Tree().Nodes("A_b.gif"));
  RemoveGoneFileNodes(Loio("A"));
  EXPECT_EQ(Tree().Nodes("A").Children().size(), 3U);
  EXPECT_EQ(Tree().SelectedItem(), &Tree().Nodes("A_b.gif"));
  Loio("A").RemoveAllDstFiles();
  Loio("A").AddDstFile("new.gif", "A");
  RemoveGoneFileNodes(Loio("A"));
  ASSERT_EQ(Tree().Nodes("A").Children().size(), 1U);
  EXPECT_EQ(Tree().Nodes("A").Children()[0]->Key(), "A_new.gif");
  EXPECT_EQ(Tree().SelectedItem(), &Tree().Nodes("A"));
}

TEST_F(LoioFilesTest, RemoveGoneFileNodes_WithoutATranslation_KeepsTheSourcesFiles) {
  LoadPackage(OnlySource());
  RemoveGoneFileNodes(Loio("A"));
  EXPECT_EQ(Tree().Nodes("A").Children().size(), 1U);
}

TEST_F(LoioFilesTest, RemoveDstFile_TakesTheFileAndTheSelectedNode) {
  LoadPackage(ThreeFiles());
  Tree().Select(&Tree().Nodes("A_b.gif"));
  EXPECT_TRUE(Loio("A").RemoveDstFile(R"(dst\b.gif)"));
  EXPECT_THAT(Names(), ElementsAre("a.css:PRIM", "c.gif"));
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "2");
  EXPECT_EQ(Tree().FindNode("A_b.gif"), nullptr);
  EXPECT_EQ(Tree().SelectedItem(), nullptr);
}

TEST_F(LoioFilesTest, RemoveDstFile_NothingSelected_Raises91AfterTheWrite) {
  LoadPackage(ThreeFiles());
  EXPECT_THAT([&] { Loio("A").RemoveDstFile("b.gif"); }, RaisesNumber(91));
  EXPECT_EQ(Entry("1", "1FILE_COUNT"), "2");
}

TEST_F(LoioFilesTest, RemoveDstFile_UnknownName_IsFalse) {
  LoadPackage(ThreeFiles());
  const std::string before = PackageBytes();
  EXPECT_FALSE(Loio("A").RemoveDstFile("B.gif"));
  EXPECT_EQ(PackageBytes(), before);
}

TEST_F(LoioFilesTest, RemoveDstFile_SearchesEveryTranslation) {
  LoadPackage(ThreeFiles().Phio("DST_CURR", "other").File("d.gif", "PRIM"));
  Tree().Select(&Tree().Nodes("A_c.gif"));
  EXPECT_TRUE(Loio("A").RemoveDstFile("d.gif"));
  EXPECT_EQ(Loio("A").PHIOs()[1]->Components.Count(), 0U);
  EXPECT_EQ(Entry("1", "2FILE_COUNT"), "1");  // the first translation's list is what is written
}

}  // namespace
}  // namespace qb
