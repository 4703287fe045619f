#include <gmock/gmock.h>

#include "model/CLoioEntry.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "support/ModelTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::Property;
using ::testing::StartsWith;
using ::testing::Throws;

class CLoioEntryTest : public ModelTest {
 protected:
  static PackageBuilder OneDocument(std::string_view process = "CSS", std::string_view format = "CSS",
                                    std::string_view progress = {}) {
    return PackageBuilder()
        .Loio("A", process, progress)
        .Phio("DST_CURR", "dst", format, "Title")
        .File("a.css", "PRIM")
        .Phio("SRC_CURR", "src", format, "Titel")
        .File("a.css", "PRIM");
  }

  void LoadInState(int number) {
    LoadPackage(OneDocument());
    Loio("A").state->myState = number;
  }
};

TEST_F(CLoioEntryTest, NewObject_IsEmpty) {
  const CLoioEntry loio;
  EXPECT_TRUE(loio.PHIOs().empty());
  ASSERT_NE(loio.state, nullptr);
  EXPECT_EQ(loio.state->myState, 0);
  EXPECT_EQ(loio.Key() + loio.TechnicalName() + loio.EditProcess(), "");
  EXPECT_EQ(loio.LoioNo() + loio.MasterDocumentNo() + loio.SubdocumentNo() + loio.SlideNo(), 0);
  EXPECT_FALSE(loio.hasDocumentBridge() || loio.hasHTMLEditor() || loio.hasNotePad() ||
               loio.hasTitleProperty() || loio.hasTradosSupport() || loio.hasTitleToSet() ||
               loio.hasHyperlink() || loio.hasSingleDocEditor());
}

struct CapabilityRow {
  const char* process;
  const char* format;
  const char* flags;  ///< bridge, HTML editor, notepad, title property, TRADOS, title to set, link, single
};

class CapabilityTest : public CLoioEntryTest, public ::testing::WithParamInterface<CapabilityRow> {};

TEST_P(CapabilityTest, ProcessAndFormat_DecideTheFlags) {
  LoadPackage(OneDocument(GetParam().process, GetParam().format));
  const CLoioEntry& loio = Loio("A");
  const auto mark = [](bool flag) { return flag ? 'T' : '-'; };
  const std::string flags{mark(loio.hasDocumentBridge()), mark(loio.hasHTMLEditor()),
                          mark(loio.hasNotePad()),        mark(loio.hasTitleProperty()),
                          mark(loio.hasTradosSupport()),  mark(loio.hasTitleToSet()),
                          mark(loio.hasHyperlink()),      mark(loio.hasSingleDocEditor())};
  EXPECT_EQ(flags, GetParam().flags) << GetParam().process << " / " << GetParam().format;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CapabilityTest,
    ::testing::Values(
        // each row of the table
        CapabilityRow{"DOC_HTML", "DOC", "T--TT-T-"}, CapabilityRow{"PPT_HTML", "PPT", "T--TT-T-"},
        CapabilityRow{"", "DOC", "T--TTTT-"}, CapabilityRow{"", "PPT", "T--TTTT-"},
        CapabilityRow{"VSD_HTML", "VSD", "T--T----"}, CapabilityRow{"HTML", "HTML", "TT----TT"},
        CapabilityRow{"HTML", "HTM", "TT----TT"}, CapabilityRow{"THTM", "", "--T--TT-"},
        CapabilityRow{"", "HTM", "-T----T-"}, CapabilityRow{"JS", "JS", "--------"},
        CapabilityRow{"CSS", "CSS", "--------"}, CapabilityRow{"PAW_XML", "XML", "-----T--"},
        CapabilityRow{"", "", "--------"},
        // the order of the rows, and rows that fail by a hair
        CapabilityRow{"DOC_HTML", "PPT", "T--TTTT-"}, CapabilityRow{"PPT_HTML", "DOC", "T--TTTT-"},
        CapabilityRow{"THTM", "DOC", "T--TTTT-"}, CapabilityRow{"THTM", "HTM", "--T--TT-"},
        CapabilityRow{"JS", "HTM", "-T----T-"}, CapabilityRow{"PAW_XML", "HTM", "-T----T-"},
        CapabilityRow{"PAW_XML", "DOC", "T--TTTT-"}, CapabilityRow{"", "VSD", "--------"},
        CapabilityRow{"VSD_HTML", "HTM", "-T----T-"}, CapabilityRow{"", "HTML", "--------"},
        CapabilityRow{"html", "HTML", "--------"}, CapabilityRow{"", "doc", "--------"},
        CapabilityRow{"JS", "CSS", "--------"}, CapabilityRow{"DOC_HTML", "", "--------"}));

TEST_F(CLoioEntryTest, Capabilities_FormatOfAPreviousVersion_Counts) {
  LoadPackage(
      PackageBuilder().Loio("A").Phio("DST_CURR", "d", "").File("x", "PRIM").Phio("SRC_PREV", "p", "DOC"));
  EXPECT_TRUE(Loio("A").hasDocumentBridge());  // by the previous version's format
}

TEST_F(CLoioEntryTest, GetDocumentFormat_FallsBackInTheOrderOfTheRoles) {
  const auto format = [&](std::initializer_list<std::pair<const char*, const char*>> versions) {
    PackageBuilder package;
    package.Loio("A");
    for (const auto& [role, word] : versions) package.Phio(role, "x", word).File("f", "PRIM");
    LoadPackage(package.Phio("DST_CURR", "x", "").File("f", "PRIM"));
    return Loio("A").GetDocumentFormat();
  };
  EXPECT_EQ(format({{"DST_PREV", "D"}, {"SRC_PREV", "C"}, {"SRC_CURR", "B"}, {"DST_CURR", "A"}}), "A");
  EXPECT_EQ(format({{"DST_PREV", "D"}, {"SRC_PREV", "C"}, {"SRC_CURR", "B"}}), "B");
  EXPECT_EQ(format({{"DST_PREV", "D"}, {"SRC_PREV", "C"}}), "C");
  EXPECT_EQ(format({{"DST_PREV", "D"}}), "D");
  EXPECT_EQ(format({}), "");
  EXPECT_EQ(format({{"DST_CURR", ""}, {"SRC_CURR", "B"}}), "B");
}

TEST_F(CLoioEntryTest, TitleAndFormatOfARole_AskItsFirstVersion) {
  LoadPackage(OneDocument().Phio("DST_CURR", "x", "DOC", "second").File("f", "PRIM"));
  EXPECT_EQ(Loio("A").GetTitle(role::kDstCurr), "Title");
  EXPECT_EQ(Loio("A").GetTitle(role::kSrcCurr), "Titel");
  EXPECT_EQ(Loio("A").GetTitle(role::kSrcPrev), "");
  EXPECT_EQ(Loio("A").GetPhioDocumentFormat(role::kDstCurr), "CSS");
  EXPECT_EQ(Loio("A").GetPhioDocumentFormat(role::kDstPrev), "");
}

TEST_F(CLoioEntryTest, OnlySource_IsTheBestVersionAndHasNoTitle) {
  LoadPackage(PackageBuilder().Loio("A").Phio("SRC_CURR", "src", "DOC", "Titel").File("a.doc", "PRIM"));
  CLoioEntry& loio = Loio("A");
  EXPECT_EQ(loio.GetDocumentFormat(), "DOC");
  EXPECT_EQ(loio.GetTitle(role::kDstCurr), "");
  EXPECT_EQ(loio.GetPhio(true), loio.PHIOs()[0]);
  EXPECT_EQ(loio.GetPhio(false), nullptr);
  EXPECT_FALSE(loio.SetTitle("x"));
  EXPECT_TRUE(loio.SaveTitle("x"));
}

TEST_F(CLoioEntryTest, GetPhio_PrefersTheTranslation) {
  LoadPackage(PackageBuilder()
                  .Loio("A")
                  .Phio("SRC_CURR", "src")
                  .File("f", "PRIM")
                  .Phio("DST_CURR", "dst")
                  .File("f", "PRIM")
                  .Phio("DST_CURR", "dst2")
                  .File("f", "PRIM"));
  EXPECT_EQ(Loio("A").GetPhio(true)->GetPath(), "dst");
  EXPECT_EQ(Loio("A").GetPhio(false)->GetPath(), "dst");
}

TEST_F(CLoioEntryTest, SetTitleAndSaveTitle_PassItToTheTranslation) {
  LoadPackage(OneDocument());
  EXPECT_TRUE(Loio("A").SetTitle("first"));
  EXPECT_TRUE(Loio("A").SaveTitle("second"));
  EXPECT_EQ(Entry(Entry("1", "1PROPSECTION"), "1VALUE"), "second");
  EXPECT_EQ(Entry("1", "2PROPSECTION"), "");
}

TEST_F(CLoioEntryTest, Init_DoubledKey_IsReportedAndTheFirstStays) {
  LoadPackage(OneDocument());
  auto second = std::make_shared<CLoioEntry>();
  second->Init("T", "P", "a", "C", 2, 0, 0, 0, std::make_shared<CState>(), {});
  EXPECT_THAT(Boxes().Texts(), ElementsAre(StartsWith("CLoioEntry::Init() #457:")));
  EXPECT_EQ(gLoios->Count(), 1U);
  EXPECT_EQ(gLoios->Item("A")->TechnicalName(), "A");
  EXPECT_EQ(second->TechnicalName(), "T");
}

TEST_F(CLoioEntryTest, GetStateIcon_FollowsTheTable) {
  const int icons[] = {0, 0, 11, 11, 11, 1, 1, 1, 11, 1, 11, 11, 11, 2, 2, 9};
  CLoioEntry loio;
  for (int number = 0; number < 16; ++number) {
    loio.state->myState = number;
    EXPECT_EQ(loio.GetStateIcon(), icons[number]) << number;
  }
  loio.state->myState = 99;
  EXPECT_EQ(loio.GetStateIcon(), 8);
  loio.state.reset();
  EXPECT_EQ(loio.GetStateIcon(), 8);
}

TEST_F(CLoioEntryTest, IsReadOnly_IsThatOfTheState) {
  CLoioEntry loio;
  loio.state->myState = 14;
  EXPECT_FALSE(loio.isReadOnly());
  loio.state->myState = 15;
  EXPECT_TRUE(loio.isReadOnly());
}

TEST_F(CLoioEntryTest, SavePLState_WritesWordProgressAndSize) {
  LoadInState(13);
  Loio("A").SavePLState();
  EXPECT_EQ(Loio("A").GetPhio(false)->GetState(), "MODIFIED");
  EXPECT_EQ(Entry("1", "1STATE"), "MODIFIED");
  EXPECT_EQ(Entry("1", "2STATE"), "READONLY");
  EXPECT_EQ(Entry("1", "PROGRESS"), "COMPLETE");
  EXPECT_EQ(std::stoul(Entry("GLOBAL", "FILESIZE")), PackageBytes().size());
}

struct TransitionRow {
  const char* name;
  bool (CLoioEntry::*transition)();
  int from;
  int to;
};

class LoioTransitionTest : public CLoioEntryTest, public ::testing::WithParamInterface<TransitionRow> {};

TEST_P(LoioTransitionTest, Allowed_WritesAndRepaints) {
  LoadInState(GetParam().from);
  EXPECT_TRUE((Loio("A").*GetParam().transition)());
  const CState& state = *Loio("A").state;
  EXPECT_EQ(state.myState, GetParam().to);
  EXPECT_EQ(Entry("1", "PROGRESS"), state.ExternalizeState());
  EXPECT_EQ(Entry("1", "1STATE"), state.GetDstCurrState());
  EXPECT_EQ(List().Rows("A").SubItems(2), state.ExternalizeState());
  EXPECT_EQ(Tree().Nodes("A").Image(), Loio("A").GetStateIcon());
}

INSTANTIATE_TEST_SUITE_P(
    All, LoioTransitionTest,
    ::testing::Values(TransitionRow{"Open", &CLoioEntry::OpenTransition, 12, 7},
                      TransitionRow{"Save", &CLoioEntry::SaveTransition, 3, 6},
                      TransitionRow{"Cancel", &CLoioEntry::CancelTransition, 8, 5},
                      TransitionRow{"Close", &CLoioEntry::CloseTransition, 11, 6},
                      TransitionRow{"TitleEdit", &CLoioEntry::TitleEditTransition, 1, 2},
                      TransitionRow{"Changed", &CLoioEntry::ChangedTransition, 1, 7},
                      TransitionRow{"Unchanged", &CLoioEntry::UnchangedTransition, 13, 1},
                      TransitionRow{"ContentEdit", &CLoioEntry::ContentEditTransition, 1, 3},
                      TransitionRow{"Complete", &CLoioEntry::CompleteTransition, 7, 13}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CLoioEntryTest, RefusedTransition_WritesAndRepaintsNothing) {
  LoadInState(3);
  const std::string before = PackageBytes();
  Tree().Nodes("A").SetImage(77);
  EXPECT_FALSE(Loio("A").ChangedTransition());
  EXPECT_EQ(PackageBytes(), before);
  EXPECT_EQ(Tree().Nodes("A").Image(), 77);
}

TEST_F(CLoioEntryTest, Update_AlwaysWritesAndRepaints) {
  LoadInState(3);
  Loio("A").Update();
  EXPECT_EQ(Entry("1", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_EQ(Tree().Nodes("A").Image(), 11);
}

TEST_F(CLoioEntryTest, Transition_PackageClosedMeanwhile_Raises91) {
  LoadInState(1);
  const auto loio = gLoios->Item("A");
  const auto package = gPxfFile;
  gPxfFile.reset();
  EXPECT_THAT([&] { loio->ChangedTransition(); },
              Throws<RuntimeError>(Property(&RuntimeError::Number, failure::kObjectNotSet)));
  gPxfFile = package;
}

TEST_F(CLoioEntryTest, UpdateView_BringsTreeAndListInLine) {
  LoadPackage(OneDocument());
  TreeNode& node = Tree().Nodes("A");
  ListRow& row = List().Rows("A");
  node.SetText("?");
  node.SetTitle("?");
  node.SetImage(77);
  node.SetExpandedImage(77);
  row.SetSubItems(2, "?");
  row.SetSmallIcon(77);
  Loio("A").state->myState = 7;
  EXPECT_TRUE(Loio("A").UpdateView());
  EXPECT_EQ(node.Text(), "Title");
  EXPECT_EQ(node.Title(), "A");
  EXPECT_EQ(node.Image(), 1);
  EXPECT_EQ(node.ExpandedImage(), 1);
  EXPECT_EQ(row.SubItems(2), "MODIFIED");
  EXPECT_EQ(row.SmallIcon(), 1);
  EXPECT_EQ(row.Icon(), 0);  // stays what the load gave it
}

TEST_F(CLoioEntryTest, UpdateView_NodeMissing_Raises5) {
  LoadPackage(OneDocument());
  Tree().RemoveNode("A");
  EXPECT_THAT([&] { Loio("A").UpdateView(); },
              Throws<RuntimeError>(Property(&RuntimeError::Number, failure::kInvalidArgument)));
}

class UpdateTtxNodesTest : public CLoioEntryTest {
 protected:
  void LoadThreeFiles() {
    LoadPackage(PackageBuilder().Loio("A").Phio("DST_CURR", "dst").File("1", "PRIM").File("2").File("3"));
  }

  bool HasCompanionNode(const std::string& file) { return Tree().FindNode("A_" + file + ".ttx") != nullptr; }
};

TEST_F(UpdateTtxNodesTest, CompanionAppears_NodeIsAddedAndTheDocumentCollapses) {
  LoadThreeFiles();
  Tree().Nodes("A").SetExpanded(true);
  Write(R"(\pkg\dst\2.ttx)", "x");
  UpdateTtxNodes("A");
  const TreeNode& node = Tree().Nodes("A_2.ttx");
  EXPECT_EQ(node.Parent(), &Tree().Nodes("A_2"));
  EXPECT_EQ(node.Text(), "2.ttx");
  EXPECT_EQ(node.Image(), 12);
  EXPECT_EQ(node.ExpandedImage(), 12);
  EXPECT_EQ(node.SelectedImage(), 12);
  EXPECT_FALSE(Tree().Nodes("A").Expanded());
}

TEST_F(UpdateTtxNodesTest, CompanionStays_NothingIsAddedTwice) {
  LoadThreeFiles();
  Write(R"(\pkg\dst\2.ttx)", "x");
  UpdateTtxNodes("A");
  Tree().Nodes("A").SetExpanded(true);
  UpdateTtxNodes("A");
  EXPECT_EQ(Tree().Nodes("A_2").Children().size(), 1U);
  EXPECT_TRUE(Tree().Nodes("A").Expanded());
}

TEST_F(UpdateTtxNodesTest, CompanionGoes_NodeGoesAtTheNextUpdateView) {
  LoadThreeFiles();
  Write(R"(\pkg\dst\2.ttx)", "x");
  Loio("A").UpdateView();
  EXPECT_TRUE(HasCompanionNode("2"));
  std::filesystem::remove(Native(R"(\pkg\dst\2.ttx)"));
  Loio("A").UpdateView();
  EXPECT_FALSE(HasCompanionNode("2"));
}

TEST_F(UpdateTtxNodesTest, SeveralCompanionsAtOnce_AllAreAdded) {
  LoadThreeFiles();
  Write(R"(\pkg\dst\1.ttx)", "x");
  Write(R"(\pkg\dst\3.ttx)", "x");
  UpdateTtxNodes("A");
  EXPECT_TRUE(HasCompanionNode("1"));
  EXPECT_FALSE(HasCompanionNode("2"));
  EXPECT_TRUE(HasCompanionNode("3"));
}

TEST_F(UpdateTtxNodesTest, FirstNodeThatIsThere_EndsTheWalk) {
  LoadThreeFiles();
  Write(R"(\pkg\dst\1.ttx)", "x");
  UpdateTtxNodes("A");
  Write(R"(\pkg\dst\3.ttx)", "x");
  UpdateTtxNodes("A");
  EXPECT_FALSE(HasCompanionNode("3"));
  std::filesystem::remove(Native(R"(\pkg\dst\1.ttx)"));
  UpdateTtxNodes("A");  // takes the first node away, and leaves it at that
  EXPECT_FALSE(HasCompanionNode("1"));
  EXPECT_FALSE(HasCompanionNode("3"));
  UpdateTtxNodes("A");
  EXPECT_TRUE(HasCompanionNode("3"));
}

TEST_F(UpdateTtxNodesTest, FolderOfTheName_IsNoCompanion) {
  LoadThreeFiles();
  MakeFolder(R"(\pkg\dst\2.ttx)");
  UpdateTtxNodes("A");
  EXPECT_FALSE(HasCompanionNode("2"));
}

TEST_F(UpdateTtxNodesTest, FileWithoutANode_IsPassedOver) {
  LoadThreeFiles();
  Tree().RemoveNode("A_2");
  Write(R"(\pkg\dst\2.ttx)", "x");
  UpdateTtxNodes("A");
  EXPECT_FALSE(HasCompanionNode("2"));
}

TEST_F(UpdateTtxNodesTest, SelectedCompanionGoes_NothingIsSelected) {
  LoadThreeFiles();
  Write(R"(\pkg\dst\2.ttx)", "x");
  UpdateTtxNodes("A");
  Tree().Select(&Tree().Nodes("A_2.ttx"));
  std::filesystem::remove(Native(R"(\pkg\dst\2.ttx)"));
  UpdateTtxNodes("A");
  EXPECT_EQ(Tree().SelectedItem(), nullptr);
}

}  // namespace
}  // namespace qb
