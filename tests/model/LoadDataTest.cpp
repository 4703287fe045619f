#include <gmock/gmock.h>

#include "foundation/CTrace.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class LoadDataTest : public ModelTest {
 protected:
  /// A translation of two files with its source.
  static PackageBuilder OneDocument(std::string_view progress = {}) {
    return PackageBuilder()
        .Loio("A", "CSS", progress)
        .Phio("DST_CURR", "dst", "CSS", "Styles")
        .File("a.css", "PRIM")
        .File("b.gif")
        .Phio("SRC_CURR", "src", "CSS", "Stile")
        .File("a.css", "PRIM");
  }

  std::vector<std::string> FileNames(const CPhioEntry& phio) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= phio.Components.Count(); ++i) {
      const auto& file = *phio.Components.Item(i);
      names.push_back(file.FileName + (file.FileFormat.empty() ? "" : ":" + file.FileFormat));
    }
    return names;
  }

  static std::vector<std::string> ChildKeys(const TreeNode& node) {
    std::vector<std::string> keys;
    for (const auto& child : node.Children()) keys.push_back(child->Key());
    return keys;
  }
};

TEST_F(LoadDataTest, NoDocuments_SucceedsWithEmptyViewsAndFreshObjects) {
  for (const auto& package : {PackageBuilder(), PackageBuilder().In("GLOBAL").Without("INFOBJS"),
                              PackageBuilder().In("GLOBAL").Set("INFOBJS", "-4")}) {
    gLoios.reset();
    newEditorSlots_ = 0;
    WritePackage(package);
    const std::string before = PackageBytes();
    EXPECT_TRUE(Load());
    ASSERT_NE(gLoios, nullptr);
    EXPECT_EQ(gLoios->Count(), 0U);
    EXPECT_EQ(newEditorSlots_, 1);
    EXPECT_THAT(ChildKeys(*Tree().Root()), ElementsAre());
    EXPECT_TRUE(List().AllRows().empty());
    EXPECT_EQ(PackageBytes(), before);
  }
}

TEST_F(LoadDataTest, MissingInfobjs_SetsTheMark) {
  WritePackage(PackageBuilder().In("GLOBAL").Without("INFOBJS"));
  Load();
  EXPECT_TRUE(Package().blnCountMissing);
}

TEST_F(LoadDataTest, WholeModel_StandsAsTheFileSays) {
  LoadPackage(OneDocument()
                  .Property("SOURCE", "de")
                  .In("1")
                  .Set("RVD_TECH_NAME", "STYLES")
                  .Set("MASTER", "3")
                  .Set("SEQNR1", "4")
                  .Set("SEQNR2", "5"));
  const CLoioEntry& loio = Loio("A");
  EXPECT_EQ(loio.Key(), "A");
  EXPECT_EQ(loio.LOIO_GUID(), "A");
  EXPECT_EQ(loio.TechnicalName(), "STYLES");
  EXPECT_EQ(loio.EditProcess(), "CSS");
  EXPECT_EQ(loio.LoioNo(), 1);
  EXPECT_EQ(loio.MasterDocumentNo(), 3);
  EXPECT_EQ(loio.SubdocumentNo(), 4);
  EXPECT_EQ(loio.SlideNo(), 5);
  ASSERT_EQ(loio.PHIOs().size(), 2U);
  CPhioEntry& target = *loio.PHIOs()[0];
  EXPECT_EQ(target.erRole, role::kDstCurr);
  EXPECT_EQ(target.PhioNo(), 1);
  EXPECT_EQ(target.GetPath(), "dst");
  EXPECT_EQ(target.GetDocumentFormat(), "CSS");
  EXPECT_EQ(target.GetTitle(), "Styles");
  EXPECT_EQ(target.Properties()->Count(), 0U);
  EXPECT_EQ(target.Hyperlinks()->Count(), 0U);
  EXPECT_THAT(FileNames(target), ElementsAre("a.css:PRIM", "b.gif"));
  EXPECT_EQ(target.Components.Item(2)->ShortName, "b.gif");
  const CPhioEntry& source = *loio.PHIOs()[1];
  EXPECT_EQ(source.erRole, role::kSrcCurr);
  EXPECT_EQ(source.PhioNo(), 2);
  EXPECT_EQ(source.GetState(), "READONLY");
  EXPECT_EQ(source.Properties()->Item(1).Value, "de");
}

TEST_F(LoadDataTest, FreshPackage_WholeFileAfterTheLoad) {
  WritePackage(OneDocument().In("GLOBAL").Set("FILESIZE", "00000000"));
  ASSERT_TRUE(Load());
  const std::string expected =
      "[GLOBAL]\r\nTITLE=A package\r\nSRCLANGUAGE=DE\r\nDSTLANGUAGE=EN\r\nINFOBJS=1\r\nFILESIZE=00000628\r\n"
      "\r\n[TRANS]\r\nTRANSTYPE=GEN\r\n"
      "\r\n[1]\r\nLOIO=A\r\nCLASS=DOCUMENT\r\nRVD_TECH_NAME=A\r\nPROCESS=CSS\r\nPHIO_COUNT=2\r\n"
      "1PHIO=1P1\r\n1CLASS=DOCUMENT\r\n1ROLE=DST_CURR\r\n1PATH=dst\r\n1STATE=UNCHANGED\r\n"
      "1DOCUMENT_FORMAT=CSS\r\n1DESCRIPTION=Styles\r\n1FILE_COUNT=2\r\n"
      "1FILE_NAME1=a.css\r\n1FORMAT1=PRIM\r\n1SHORT_NAME1=a.css\r\n"
      "1FILE_NAME2=b.gif\r\n1FORMAT2=\r\n1SHORT_NAME2=b.gif\r\n"
      "2PHIO=1P2\r\n2CLASS=DOCUMENT\r\n2ROLE=SRC_CURR\r\n2PATH=src\r\n2STATE=READONLY\r\n"
      "2DOCUMENT_FORMAT=CSS\r\n2DESCRIPTION=Stile\r\n2FILE_COUNT=1\r\n"
      "2FILE_NAME1=a.css\r\n2FORMAT1=PRIM\r\n2SHORT_NAME1=a.css\r\nPROGRESS=UNCHANGED\r\n";
  EXPECT_EQ(PackageBytes(), expected);
  EXPECT_EQ(expected.size(), 628U);
}

TEST_F(LoadDataTest, SecondLoad_WritesNoByte) {
  WritePackage(OneDocument()
                   .Loio("B")
                   .Phio("DST_CURR", "dst")
                   .File("b.js", "PRIM")
                   .In("GLOBAL")
                   .Set("FILESIZE", "00000000"));
  ASSERT_TRUE(Load());
  const auto stamp = ThePlatform().files->Stamp(kPackage);
  const std::string before = PackageBytes();
  ASSERT_TRUE(Load());
  EXPECT_EQ(ThePlatform().files->Stamp(kPackage), stamp);
  EXPECT_EQ(PackageBytes(), before);
}

TEST_F(LoadDataTest, LineFeedsOnly_StayAsTheyAre) {
  WritePackage(OneDocument().LineEnds("\n").In("GLOBAL").Set("FILESIZE", "00000000"));
  ASSERT_TRUE(Load());
  EXPECT_THAT(PackageBytes(), Not(HasSubstr("\r")));
  EXPECT_EQ(Entry("1", "PROGRESS"), "UNCHANGED");
}

TEST_F(LoadDataTest, Tree_ShowsDocumentsAndTheirFiles) {
  LoadPackage(
      OneDocument("MODIFIED").Loio("B").Phio("SRC_CURR", "src", "DOC", "Quelle").File("x.doc", "PRIM"));
  EXPECT_THAT(ChildKeys(*Tree().Root()), ElementsAre("A", "B"));
  const TreeNode& node = Tree().Nodes("A");
  EXPECT_EQ(node.Text(), "Styles");
  EXPECT_EQ(node.Title(), "A");
  EXPECT_EQ(node.Image(), 1);
  EXPECT_EQ(node.ExpandedImage(), 1);
  EXPECT_EQ(node.SelectedImage(), 0);
  EXPECT_FALSE(node.Expanded());
  EXPECT_TRUE(Tree().Root()->Expanded());  // each document was made visible
  EXPECT_THAT(ChildKeys(node), ElementsAre("A_a.css", "A_b.gif"));
  const TreeNode& primary = Tree().Nodes("A_a.css");
  EXPECT_EQ(primary.Text(), "a.css");
  EXPECT_EQ(primary.Image(), 10);
  EXPECT_EQ(primary.ExpandedImage(), 10);
  const TreeNode& component = Tree().Nodes("A_b.gif");
  EXPECT_EQ(component.Text(), "b.gif");
  EXPECT_EQ(component.Image(), 12);
  EXPECT_EQ(component.ExpandedImage(), 12);
  EXPECT_EQ(component.SelectedImage(), 0);
  EXPECT_EQ(Tree().Nodes("B").Text(), "");  // the title is that of the translation, which it has not
  EXPECT_THAT(ChildKeys(Tree().Nodes("B")), ElementsAre("B_x.doc"));
}

TEST_F(LoadDataTest, List_HasARowForEachDocument) {
  LoadPackage(OneDocument("COMPLETE"));
  ASSERT_EQ(List().AllRows().size(), 1U);
  const ListRow& row = List().Rows("A");
  EXPECT_EQ(row.Text(), "A");
  EXPECT_EQ(row.Icon(), 2);
  EXPECT_EQ(row.SmallIcon(), 2);
  EXPECT_EQ(row.SubItems(1), "");
  EXPECT_EQ(row.SubItems(2), "COMPLETE");
  EXPECT_EQ(row.SubItems(3), "");
  EXPECT_EQ(row.SubItems(4), "");
  EXPECT_EQ(row.SubItems(5), "a.css");
  EXPECT_EQ(row.SubItems(6), "CSS");
}

TEST_F(LoadDataTest, List_FormatIsThatOfTheLastVersionRead) {
  LoadPackage(OneDocument().Phio("DST_PREV", "old", "DOC").File("x.doc", "PRIM"));
  EXPECT_EQ(List().Rows("A").SubItems(6), "DOC");
}

TEST_F(LoadDataTest, States_ComeFromProgressElseFromTheRoles) {
  struct {
    const char* progress;
    const char* role;
    const char* state;
  } const rows[] = {
      {"", "DST_CURR", "UNCHANGED"},
      {"", "SRC_CURR", "READONLY"},
      {"MODIFIED", "DST_CURR", "MODIFIED"},
      {"OPENMODIFIED_C_OPENMODIFIED_T", "DST_CURR", "MODIFIED"},
      {"OPENUNCHANGED_C_UNCHANGED_T", "DST_CURR", "UNCHANGED"},
      {"READONLY_OPEN", "DST_CURR", "READONLY"},
      {"READONLY", "DST_CURR", "READONLY"},
      {"DUMMY", "DST_CURR", "UNCHANGED"},
      {"a word of the future", "DST_CURR", "UNCHANGED"},
      {"COMPLETE", "SRC_CURR", "COMPLETE"},
  };
  for (const auto& row : rows) {
    LoadPackage(PackageBuilder().Loio("A", "", row.progress).Phio(row.role, "x").File("a.css", "PRIM"));
    EXPECT_EQ(Loio("A").state->ExternalizeState(), row.state) << row.progress;
    EXPECT_EQ(Entry("1", "PROGRESS"), row.state) << row.progress;
  }
}

TEST_F(LoadDataTest, WordOfTheVersion_IsNeverTheStateOfTheDocument) {
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "dst").Set("1STATE", "MODIFIED").File("a.css", "PRIM"));
  EXPECT_EQ(Loio("A").state->ExternalizeState(), "UNCHANGED");
  EXPECT_EQ(Entry("1", "1STATE"), "UNCHANGED");
}

TEST_F(LoadDataTest, WordOfTheTargetVersion_FollowsTheState) {
  LoadPackage(OneDocument("OPENMODIFIED_C_UNCHANGED_T"));
  EXPECT_EQ(Entry("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Entry("1", "1STATE"), "MODIFIED");
  EXPECT_EQ(Entry("1", "2STATE"), "READONLY");
}

TEST_F(LoadDataTest, EmptyProcess_Loads) {
  LoadPackage(OneDocument().In("1").Set("PROCESS", ""));
  EXPECT_EQ(Loio("A").EditProcess(), "");
}

TEST_F(LoadDataTest, PrimaryFile_ComesFirstInMemory) {
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("1").File("2", "PRIM").File("3", "GIF"));
  EXPECT_THAT(FileNames(*Loio("A").GetPhio(false)), ElementsAre("2:PRIM", "1", "3:GIF"));
  EXPECT_TRUE(Package().blnPrimarySeen);
}

TEST_F(LoadDataTest, NoPrimaryFile_TheFirstBecomesItInMemoryOnly) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("1").File("2", "prim"));
  EXPECT_THAT(FileNames(*Loio("A").GetPhio(false)), ElementsAre("1:PRIM", "2:prim"));
  EXPECT_EQ(Entry("1", "1FORMAT1"), "");
  EXPECT_FALSE(Package().blnPrimarySeen);
  EXPECT_EQ(Tree().Nodes("A_1").Image(), 10);
}

TEST_F(LoadDataTest, SeveralPrimaryFiles_AllComeFirstAndStay) {
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("1").File("2", "PRIM").File("3", "PRIM"));
  EXPECT_THAT(FileNames(*Loio("A").GetPhio(false)), ElementsAre("2:PRIM", "3:PRIM", "1"));
}

TEST_F(LoadDataTest, BadPropertyList_SaysSoAndGoesOn) {
  LoadPackage(OneDocument().Property("N1", "V1").Property("", "V2"));
  EXPECT_EQ(Loio("A").PHIOs()[1]->Properties(), nullptr);
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Error while loading properties"));
  EXPECT_TRUE(quits_.empty());
}

TEST_F(LoadDataTest, BadPropertyListOfAnUntitledTranslation_ShowsAnEmptyTitle) {
  LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM").Property("", "V"));
  EXPECT_EQ(Tree().Nodes("A").Text(), "");
}

TEST_F(LoadDataTest, Hourglass_IsShownDuringTheLoad) {
  LoadPackage(OneDocument());
  EXPECT_THAT(Pointer().shapes, ElementsAre(MousePointer::kHourglass, MousePointer::kDefault));
}

TEST_F(LoadDataTest, TouchedFlag_IsTakenAtTheStart) {
  LoadPackage(OneDocument());
  EXPECT_FALSE(gTouchedBeforeLoad);
  LoadPackage(OneDocument().In("TRANS").Set("TOUCHED", "TRUE"));
  EXPECT_TRUE(gTouchedBeforeLoad);
}

TEST_F(LoadDataTest, SecondPackage_ReplacesTheObjects) {
  LoadPackage(OneDocument());
  const auto loios = gLoios;
  LoadPackage(PackageBuilder().Loio("B").Phio("DST_CURR", "dst").File("b.css", "PRIM"));
  EXPECT_NE(gLoios, loios);
  EXPECT_EQ(gLoios->Count(), 1U);
  EXPECT_EQ(newEditorSlots_, 2);
}

TEST_F(LoadDataTest, ReadOnlyPlace_ListsTheDocumentsAllTheSame) {
  WritePackage(OneDocument());
  const std::string before = PackageBytes();
  ThePlatform().files->SetAttributes(kPackage, attribute::kReadOnly);
  EXPECT_TRUE(Load());
  EXPECT_EQ(gLoios->Count(), 1U);
  EXPECT_EQ(Boxes().Shown().size(), 0U);
  EXPECT_EQ(PackageBytes(), before);
  EXPECT_THAT(TakeRefusedWrite(), HasSubstr(kPackage));
}

TEST_F(LoadDataTest, Companion_ShowsAsThirdLevel) {
  const PackageBuilder package = OneDocument();
  WriteDocumentFiles(package);
  Write(R"(\pkg\dst\a.css.ttx)", "x");
  LoadPackage(package);
  EXPECT_THAT(ChildKeys(Tree().Nodes("A_a.css")), ElementsAre("A_a.css.ttx"));
  EXPECT_THAT(ChildKeys(Tree().Nodes("A_b.gif")), ElementsAre());
}

TEST_F(LoadDataTest, Companions_OnlyThatOfTheFirstFileThatHasOneShows) {
  for (const char* file : {"b.gif.ttx", "c.gif.ttx"}) Write(std::string(R"(\pkg\dst\)") + file, "x");
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("a.css", "PRIM").File("b.gif").File("c.gif"));
  EXPECT_THAT(ChildKeys(Tree().Nodes("A_b.gif")), ElementsAre("A_b.gif.ttx"));
  EXPECT_THAT(ChildKeys(Tree().Nodes("A_c.gif")), ElementsAre());
}

TEST_F(LoadDataTest, CompanionOfTheSourceOnly_DoesNotShow) {
  Write(R"(\pkg\src\a.css.ttx)", "x");
  LoadPackage(PackageBuilder().Loio("A").Phio("SRC_CURR", "src").File("a.css", "PRIM"));
  EXPECT_THAT(ChildKeys(Tree().Nodes("A_a.css")), ElementsAre());
}

TEST_F(LoadDataTest, Trace_OpensAndClosesTheProcedure) {
  WritePackage(PackageBuilder());
  StartTrace();
  Load();
  EXPECT_THAT(TraceLines(),
              ElementsAre("CPxfFile.LoadData: ->", "CPxfFile.IsTouched: read PXF: isTouched: 'False'",
                          "CPxfFile.LoadData: <-"));
}

TEST_F(LoadDataTest, Trace_ReadsTheKeysInTheirOrder) {
  WritePackage(PackageBuilder().Loio("A").Phio("DST_CURR", "d").File("f", "PRIM"));
  StartTrace();
  Load();
  std::vector<std::string> keys;
  for (const std::string& line : TraceLines()) {
    const std::size_t at = line.find("Entry: '");
    if (at != std::string::npos) keys.push_back(line.substr(at + 8, line.find('\'', at + 8) - at - 8));
  }
  EXPECT_THAT(keys, ElementsAre("PHIO", "CLASS", "DOCUMENT_FORMAT", "DESCRIPTION", "STATE", "ROLE", "PATH",
                                "PROPSECTION", "FILE_COUNT", "FILE_NAME", "SHORT_NAME", "FORMAT"));
}

}  // namespace
}  // namespace qb
