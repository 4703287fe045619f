#include <fmt/format.h>
#include <gmock/gmock.h>

#include "runtime/RuntimeError.h"
#include "support/FaultyFileSystem.h"
#include "ui/Toolkit.h"
#include "ui/frmContextMenu.h"
#include "workflow/OpenPackage.h"
#include "workflow/TitleFixture.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST_F(TranslateTitleTest, Ok_NewTitle_ReachesPackageStateProtocolAndTrace) {
  Translate("TITLED", Type("Style sheets"));
  EXPECT_EQ(StoredTitle(), "Style sheets");
  EXPECT_EQ(Value("ADD1", "1VALUE"), "Ann");
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED_C_MODIFIED_T");
  EXPECT_EQ(Value("1", "1STATE"), "MODIFIED");
  EXPECT_EQ(Value("GLOBAL", "FILESIZE"), fmt::format("{:08}", Bytes(kPackage).size()));
  EXPECT_EQ(Window().TransPackTree.Nodes("TITLED").Text(), "Style sheets");
  EXPECT_THAT(Protocol(), HasSubstr("Translating title: TITLED"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtTranslateTitle: TRANSLATING TITLE: TITLED"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Kit().calls,
              ElementsAre("focus ctlTitleTrans", "show modal frmTranslateTitle", "hide frmTranslateTitle"));
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

TEST_F(TranslateTitleTest, Dialog_ShowsSourceAndTargetWithAllOfTheTargetSelected) {
  Translate("TITLED", [this](frmTranslateTitle& form) {
    EXPECT_EQ(form.Caption.Get(), "Translate Title");
    EXPECT_EQ(form.ctlTitleOrig.Text.Get(), "Stile");
    EXPECT_TRUE(form.ctlTitleOrig.Locked);
    EXPECT_EQ(form.ctlTitleTrans.Text.Get(), "Styles");
    EXPECT_EQ(form.ctlTitleTrans.SelStart.Get(), 0);
    EXPECT_EQ(form.ctlTitleTrans.SelLength.Get(), 6);
    EXPECT_EQ(State("TITLED"), "UNCHANGED_C_OPENUNCHANGED_T");
    EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED") << "the edit itself is not written";
    EXPECT_FALSE(Window().tmrTimer1.Enabled);
    form.btnCancel.Click();
  });
  EXPECT_EQ(gTitleDialogResult, "2");
}

TEST_F(TranslateTitleTest, CancelAfterTyping_DropsTheTextAndTakesTheEditBack) {
  Translate("TITLED", [](frmTranslateTitle& form) {
    form.ctlTitleTrans.Text = std::string("thrown away");
    form.btnCancel.Click();
  });
  EXPECT_EQ(StoredTitle(), "Styles");
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
  EXPECT_EQ(Window().TransPackTree.Nodes("TITLED").Text(), "Styles");
  EXPECT_THAT(Protocol(), Not(HasSubstr("Translating title")));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TranslateTitleTest, ClosingTheWindow_CancelsAndKeepsTheForm) {
  Translate("TITLED", [](frmTranslateTitle& form) {
    form.ctlTitleTrans.Text = std::string("thrown away");
    EXPECT_FALSE(TheToolkit().Unload(form, Form::kUnloadByUser));
  });
  EXPECT_EQ(StoredTitle(), "Styles");
  EXPECT_EQ(State("TITLED"), "UNCHANGED");
  EXPECT_TRUE(TheForms().HasDefault<frmTranslateTitle>());
}

TEST_F(TranslateTitleTest, DialogThatGoesWithoutAnAnswer_CountsAsCancel) {
  Translate("TITLED", Type("Style sheets"));
  Translate("TITLED", [](frmTranslateTitle& form) { form.ctlTitleTrans.Text = std::string(); });
  EXPECT_EQ(StoredTitle(), "Style sheets");
}

TEST_F(TranslateTitleTest, Ok_OnlyBlanksAddedAtTheEnds_CountsAsCancel) {
  const std::string before = Bytes(kPackage);
  Translate("TITLED", Type("  Styles   "));
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_EQ(State("TITLED"), "UNCHANGED");
  EXPECT_EQ(gTitleDialogResult, "1");
}

TEST_F(TranslateTitleTest, NoTitleYet_OffersThePreviousOneAndOkWithoutAChangeLeavesItEmpty) {
  Translate("NEW", [](frmTranslateTitle& form) {
    EXPECT_EQ(form.ctlTitleOrig.Text.Get(), "Altes Men\xC3\xBC");
    EXPECT_EQ(form.ctlTitleTrans.Text.Get(), "Old menu");
    EXPECT_EQ(form.ctlTitleTrans.SelLength.Get(), 8);
    form.btnOkay.Click();
  });
  EXPECT_EQ(gLoios->Item("NEW")->GetTitle(role::kDstCurr), "");
  EXPECT_EQ(Value("2", "1PROPSECTION"), "");
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
}

TEST_F(TranslateTitleTest, FirstTitleOfADocument_ReachesThePackageAtOnce) {
  Translate("NEW", Type("Menu"));
  const std::string section = Value("2", "1PROPSECTION");
  ASSERT_FALSE(section.empty());
  EXPECT_EQ(Value(section, "COUNT"), "1");
  EXPECT_EQ(Value(section, "1NAME"), "DESCRIPTION");
  EXPECT_EQ(Value(section, "1VALUE"), "Menu");
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED_C_MODIFIED_T");
  QbtOpen(kPackage);
  EXPECT_EQ(gLoios->Item("NEW")->GetTitle(role::kDstCurr), "Menu");
}

TEST_F(TranslateTitleTest, DocumentWithADescription_KeepsItAndTakesTheTitleAsItsProperty) {
  Translate("DESCRIBED", Type("Beschrieben"));
  EXPECT_EQ(Value("5", "1DESCRIPTION"), "Described");
  EXPECT_EQ(Value(Value("5", "1PROPSECTION"), "1VALUE"), "Beschrieben");
  EXPECT_EQ(gLoios->Item("DESCRIBED")->GetTitle(role::kDstCurr), "Described");
}

TEST_F(TranslateTitleTest, TitleIsPartOfTheDocument_GetsTheTwoLineBoxAndNoDialog) {
  SelectNode("INSIDE");
  QbtTranslateTitle();
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(
      Boxes().Shown()[0].text,
      "Document title need not be translated separately \r\nfor this type of document as it is part of the "
      "document itself");
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  EXPECT_THAT(Kit().calls, Not(Contains("show modal frmTranslateTitle")));
  EXPECT_EQ(Value("3", "PROGRESS"), "UNCHANGED");
  EXPECT_EQ(State("INSIDE"), "UNCHANGED");
}

TEST_F(TranslateTitleTest, RootOrNothingSelected_DoesNothing) {
  QbtTranslateTitle();
  SelectNode("@ROOT");
  QbtTranslateTitle();
  EXPECT_THAT(Kit().calls, IsEmpty());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TranslateTitleTest, FileNode_StandsForItsDocument) {
  Translate("TITLED_a.css", Type("By its file"));
  EXPECT_EQ(StoredTitle(), "By its file");
}

struct Refusal {
  const char* state;
  const char* box;
};

class TitleRefusalTest : public TranslateTitleTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(TitleRefusalTest, State_IsRefusedAndStays) {
  gLoios->Item("TITLED")->state->InternalizeState(GetParam().state);
  const std::string before = Bytes(kPackage);
  SelectNode("TITLED");
  QbtTranslateTitle();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(GetParam().box));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  EXPECT_THAT(Kit().calls, IsEmpty());
  EXPECT_EQ(State("TITLED"), GetParam().state);
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

INSTANTIATE_TEST_SUITE_P(
    Table, TitleRefusalTest,
    ::testing::Values(Refusal{"READONLY_OPEN", "Cannot change progress status of a read-only object"},
                      Refusal{"READONLY", "Cannot translate titles for this type of document"},
                      Refusal{"OPENUNCHANGED_C_UNCHANGED_T", "Cannot translate title of open documents"},
                      Refusal{"UNCHANGED_C_OPENMODIFIED_T",
                              "Cannot translate titles for this type of document"}));

TEST_F(TranslateTitleTest, DocumentInItsEditor_IsRefusedUntilTheEditorIsGone) {
  Write(R"(\pkg\dst\a.css)", "x");
  Write(R"(\pkg\src\a.css)", "x");
  SelectNode("TITLED");
  ASSERT_TRUE(QbtTranslate());
  QbtTranslateTitle();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot translate title of open documents"));
  TheShell().EndAllProcesses();
  Translate("TITLED", Type("Style sheets"));
  EXPECT_EQ(StoredTitle(), "Style sheets");
}

struct StateAfter {
  const char* before;
  const char* afterOk;
  const char* afterCancel;
};

class TitleStateTest : public TranslateTitleTest, public ::testing::WithParamInterface<StateAfter> {};

TEST_P(TitleStateTest, Ok_MovesTheState) {
  gLoios->Item("TITLED")->state->InternalizeState(GetParam().before);
  Translate("TITLED", Type("Style sheets"));
  EXPECT_EQ(Value("1", "PROGRESS"), GetParam().afterOk);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_P(TitleStateTest, Cancel_TakesTheEditBack) {
  gLoios->Item("TITLED")->state->InternalizeState(GetParam().before);
  Translate("TITLED", [](frmTranslateTitle& form) { form.btnCancel.Click(); });
  EXPECT_EQ(Value("1", "PROGRESS"), GetParam().afterCancel);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, TitleStateTest,
                         ::testing::Values(StateAfter{"UNCHANGED", "UNCHANGED_C_MODIFIED_T", "UNCHANGED"},
                                           StateAfter{"UNCHANGED_C_MODIFIED_T", "UNCHANGED_C_MODIFIED_T",
                                                      "UNCHANGED_C_MODIFIED_T"},
                                           StateAfter{"MODIFIED_C_UNCHANGED_T", "MODIFIED",
                                                      "MODIFIED_C_UNCHANGED_T"},
                                           StateAfter{"MODIFIED", "MODIFIED", "MODIFIED"},
                                           StateAfter{"COMPLETE", "MODIFIED", "MODIFIED"}));

TEST_F(TranslateTitleTest, StateMovesOnWhileTheDialogIsUp_SaysSoAndStillRepaints) {
  Translate("TITLED", [](frmTranslateTitle& form) {
    gLoios->Item("TITLED")->state->InternalizeState("UNCHANGED");
    form.btnCancel.Click();
  });
  EXPECT_THAT(Boxes().Texts(), ElementsAre("State change failed"));
  Boxes().Forget();
  Translate("TITLED", [](frmTranslateTitle& form) {
    gLoios->Item("TITLED")->state->InternalizeState("UNCHANGED");
    form.ctlTitleTrans.Text = std::string("Style sheets");
    form.btnOkay.Click();
  });
  EXPECT_THAT(Boxes().Texts(), ElementsAre("State change failed"));
  EXPECT_THAT(Protocol(), Not(HasSubstr("Translating title")));
}

TEST_F(TranslateTitleTest, PackageThatIsGone_IsToldWhileTheTextIsStillThere) {
  const std::string package = Bytes(kPackage);
  Translate("TITLED", [&](frmTranslateTitle& form) {
    std::filesystem::remove(Native(kPackage));
    form.ctlTitleTrans.Text = std::string("Style sheets");
    form.btnOkay.Click();
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(R"(could not be changed: \pkg\Trans.pxf: )")));
    ASSERT_TRUE(form.Visible);
    Write(kPackage, package);
    form.btnOkay.Click();
    EXPECT_FALSE(form.Visible);
  });
  EXPECT_EQ(StoredTitle(), "Style sheets");
}

TEST_F(TranslateTitleTest, AnotherPackageInItsPlace_IsToldAndKept) {
  const std::string other =
      PackageBuilder().Loio("OTHER").Phio("DST_CURR", "dst").File("a.css", "PRIM").Text();
  Translate("TITLED", [&](frmTranslateTitle& form) {
    Write(kPackage, other);
    form.ctlTitleTrans.Text = std::string("Style sheets");
    form.btnOkay.Click();
    EXPECT_TRUE(form.Visible);
    form.btnCancel.Click();
  });
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("another package stands in its place")));
  EXPECT_EQ(Bytes(kPackage), other);
}

TEST_F(TranslateTitleTest, TitleAndStateOfAFullDisk_AreToldAndWrittenWithTheNextChange) {
  FaultyFileSystem& files = InstallFaultyFiles(ThePlatform());
  files.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  const std::string before = Bytes(kPackage);
  Translate("TITLED", Type("Style sheets"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("The package file could not be changed: ")));
  EXPECT_EQ(Bytes(kPackage), before) << "neither the title nor the state alone";
  files.Heal();
  Translate("TITLED", [](frmTranslateTitle& form) {
    EXPECT_EQ(form.ctlTitleTrans.Text.Get(), "Style sheets");
    form.btnOkay.Click();
  });
  EXPECT_EQ(StoredTitle(), "Style sheets");
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED_C_MODIFIED_T");
}

TEST_F(TranslateTitleTest, BadPropertyList_IsReportedAndLeavesTheDocumentAsItWas) {
  PackageBuilder package;
  package.Loio("BAD")
      .Phio("DST_CURR", "dst")
      .File("a.css", "PRIM")
      .Property("DESCRIPTION", "x")
      .Property("", "y");
  Write(R"(\bad\Trans.pxf)", package.Text());
  QbtOpen(R"(\bad\Trans.pxf)");
  Boxes().Forget();
  const std::string before = Bytes(R"(\bad\Trans.pxf)");
  Translate("BAD", Type("new"));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred during title translation: #91: ")));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(TraceLines(),
              Contains(HasSubstr("TranslateMod.QbtTranslateTitle: An error has occurred during title")));
  EXPECT_EQ(State("BAD"), "UNCHANGED");
  EXPECT_EQ(Bytes(R"(\bad\Trans.pxf)"), before);
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

TEST_F(TranslateTitleTest, BothMenus_RunTheCommand) {
  SelectNode("TITLED");
  Window().mniTranslateTitle.Click();
  Default<frmContextMenu>().mniTranslateTitle.Click();
  EXPECT_THAT(Kit().calls, ElementsAre("focus ctlTitleTrans", "show modal frmTranslateTitle",
                                       "focus ctlTitleTrans", "show modal frmTranslateTitle"));
}

TEST_F(TranslateTitleTest, TranslateProperties_OnADocument_DoesNothingAtAll) {
  SelectNode("TITLED");
  const std::string before = Bytes(kPackage);
  const std::string protocol = Protocol();
  const std::size_t lines = TraceLines().size();
  Window().mniTranslateProperties.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Kit().calls, IsEmpty());
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_EQ(Protocol(), protocol);
  EXPECT_EQ(TraceLines().size(), lines);
}

TEST_F(TranslateTitleTest, TranslateProperties_PendingFailure_IsReportedOnce) {
  Err.Set(RuntimeError(5, "test", "something"));
  QbtTranslateProperties();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred during property translation: #5: something")));
  EXPECT_EQ(Err.Number, 0);
  QbtTranslateProperties();
  EXPECT_EQ(Boxes().Shown().size(), 1U);
}

TEST_F(TranslateTitleTest, ContextMenuEntryForProperties_SaysThatItIsNotThereYet) {
  Default<frmContextMenu>().mniTranslateProperties.Click();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Not implemented yet"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
}

}  // namespace
}  // namespace qb
