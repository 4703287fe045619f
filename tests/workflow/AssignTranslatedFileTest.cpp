#include "workflow/AssignTranslatedFileTest.h"

#include "ui/frmContextMenu.h"
#include "workflow/DocumentCommands.h"

namespace qb {
namespace {

using namespace std::string_literals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

TEST_F(AssignTranslatedFileTest, ChosenFile_BecomesTheTranslationUnderItsOwnName) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new.css)");
  EXPECT_EQ(Bytes(R"(\done\new.css)"), R"(\done\new.css)");
  EXPECT_THAT(FilesIn(R"(\pkg\dst)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM"));
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Value("1", "1STATE"), "MODIFIED");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 1);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kFirstQuestion, "Operation completed successfully"));
  EXPECT_THAT(BoxStyles(), ElementsAre(35, 0));
  EXPECT_THAT(Protocol(), HasSubstr("Message         Assigning translated file: DOC1"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtAssignTranslatedFile: CHECKIN MM: DOC1"));
  EXPECT_TRUE(TimersAreOn());
}

TEST_F(AssignTranslatedFileTest, Chooser_AsksForFilesOfTheSourcesFormat) {
  OpenSmallPackage();
  SelectNode("DOC1");
  QbtAssignTranslatedFile();
  ASSERT_THAT(Dialogs().Shown(), SizeIs(1));
  const OpenFileRecord& asked = Dialogs().Shown()[0];
  EXPECT_EQ(asked.title, "Select a file to check in as translation");
  EXPECT_EQ(asked.filter, "*.CSS Files \0*.CSS\0All Files (*.*)\0*.*\0\0"s);
  EXPECT_EQ(asked.filterIndex, 1U);
  EXPECT_EQ(asked.defaultExtension, "*.CSS");
  EXPECT_EQ(asked.initialDirectory, "");
  EXPECT_EQ(asked.flags, openfile::kFileMustExist | openfile::kAllowMultiSelect | openfile::kHideReadOnly);
  EXPECT_FALSE(asked.owner.has_value());
}

TEST_F(AssignTranslatedFileTest, Localization_HasItsOwnWording) {
  OpenSmallPackage(true);
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Dialogs().Shown()[0].title, "Select a file to check in as localization");
  EXPECT_EQ(Dialog().Caption.Get(), "Quillbank Translator: Checkin File As Localized");
  EXPECT_THAT(Protocol(), HasSubstr("Assigning localized file: DOC1"));
  EXPECT_EQ(Boxes().Texts()[0], kFirstQuestion) << "the questions speak of translation all the same";
}

TEST_F(AssignTranslatedFileTest, Dialog_ShowsTheTargetAndMovesItsBar) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  std::vector<int> bar;
  Kit().onRepaint = [&](Form& form) {
    if (&form != &Dialog()) return;
    EXPECT_TRUE(form.Visible);
    bar.push_back(Dialog().ctlProgressBar.Value);
    EXPECT_EQ(Dialog().ctlCurrentFile.Text.Get(), bar.size() < 3 ? "" : R"(\pkg\dst\styles.css)");
  };
  Boxes().AnswerNext(box::kNo, [&] { EXPECT_FALSE(Dialog().Visible) << "gone before the question"; });
  QbtAssignTranslatedFile();
  EXPECT_THAT(bar, ElementsAre(0, 25, 25, 50, 75, 100));
  EXPECT_EQ(Dialog().ctlCurrentFile.Text.Get(), R"(\pkg\dst\styles.css)");
  EXPECT_THAT(DialogCalls(), ElementsAre("show", "hide", "hide"));
}

TEST_F(AssignTranslatedFileTest, SecondCheckIn_StartsTheBarAnew) {
  OpenSmallPackage();
  ShowCheckinProgress();
  SetCheckinProgress(1.0);
  EXPECT_EQ(Dialog().ctlProgressBar.Value.Get(), 100);
  Dialog().ctlProgressBar.Visible = false;
  ShowCheckinProgress();
  EXPECT_EQ(Dialog().ctlProgressBar.Value.Get(), 0);
  EXPECT_TRUE(Dialog().ctlProgressBar.Visible.Get());
  SetCheckinProgress(0.5);
  SetCheckinProgress(0.25);
  EXPECT_EQ(Dialog().ctlProgressBar.Value.Get(), 50) << "the bar never goes back";
}

TEST_F(AssignTranslatedFileTest, ChooserCancelled_LeavesTheStateAsItWas) {
  OpenSmallPackage();
  SelectNode("DOC1");
  QbtAssignTranslatedFile();
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(DialogCalls(), ElementsAre("hide"));
  EXPECT_TRUE(TimersAreOn());
}

TEST_F(AssignTranslatedFileTest, ChooserCancelledAfterAChange_LeavesTheChange) {
  OpenSmallPackage();
  Loio("DOC1").ContentEditTransition();
  Loio("DOC1").SaveTransition();
  SelectNode("DOC1");
  QbtAssignTranslatedFile();
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(AssignTranslatedFileTest, WhileTheChooserIsUp_TheDocumentIsOpenAndTheTimersAreOff) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Dialogs().AnswerNext([&](OpenFileRecord&) {
    EXPECT_EQ(Value("1", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T");
    EXPECT_FALSE(Window().tmrTimer1.Enabled.Get());
    EXPECT_FALSE(Window().tmrTimer2.Enabled.Get());
    return false;
  });
  QbtAssignTranslatedFile();
}

TEST_F(AssignTranslatedFileTest, ExtensionInOtherCase_Passes) {
  OpenPackageText(SmallPackageWith("2FILE_NAME1=styles.css", "2FILE_NAME1=styles.CSS"));
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new.css)");
}

TEST_F(AssignTranslatedFileTest, OtherFormat_IsRefusedBeforeTheDiskIsTouched) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.doc)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Wrong format"));
  EXPECT_THAT(BoxStyles(), ElementsAre(0));
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
  EXPECT_THAT(DialogCalls(), ElementsAre("hide"));
}

TEST_F(AssignTranslatedFileTest, SourceWithoutExtension_TakesOnlyFilesWithoutOne) {
  OpenPackageText(SmallPackageWith("2FILE_NAME1=styles.css", "2FILE_NAME1=styles"));
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Dialogs().Shown()[0].filter, ::testing::StartsWith(" Files \0\0"s));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Wrong format"));
  Choose(R"(\done\new)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new)");
}

TEST_F(AssignTranslatedFileTest, ChosenFileIsGone_IsSaidAndTakenBack) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Dialogs().ChooseNext(R"(\done\gone.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("File does not exist"));
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\pkg\dst\styles.css)");
}

TEST_F(AssignTranslatedFileTest, ChosenFileIsADirectory_DoesNotExist) {
  OpenSmallPackage();
  SelectNode("DOC1");
  MakeFolder(R"(\done\folder.css)");
  Dialogs().ChooseNext(R"(\done\folder.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("File does not exist"));
}

TEST_F(AssignTranslatedFileTest, SeveralFilesChosen_AreNoFile) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Dialogs().ChooseNext(R"(\done a.css b.css)");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("File does not exist"));
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED");
}

TEST_F(AssignTranslatedFileTest, PathWithBlanks_IsTaken) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\my files\new styles.css)");
  Boxes().AnswerNext(box::kNo);
  QbtAssignTranslatedFile();
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\my files\new styles.css)");
}

TEST_F(AssignTranslatedFileTest, StateThatCannotBeTakenBack_IsSaidToo) {
  OpenSmallPackage();
  for (const auto& [chosen, text] : {std::pair{"", ""}, std::pair{R"(\done\new.doc)", "Wrong format"},
                                     std::pair{R"(\done\gone.css)", "File does not exist"}}) {
    Boxes().Forget();
    Loio("DOC1").state->InternalizeState("UNCHANGED");
    SelectNode("DOC1");
    Dialogs().AnswerNext([&, chosen = chosen](OpenFileRecord& record) {
      Loio("DOC1").state->InternalizeState("UNCHANGED");
      record.fileName = chosen;
      return *chosen != '\0';
    });
    QbtAssignTranslatedFile();
    std::vector<std::string> expected{"State change failed"};
    if (*text != '\0') expected.insert(expected.begin(), text);
    EXPECT_EQ(Boxes().Texts(), expected) << chosen;
    EXPECT_TRUE(TimersAreOn());
  }
}

TEST_F(AssignTranslatedFileTest, NothingOrTheRootSelected_DoesNothing) {
  OpenSmallPackage();
  for (const char* key : {"", "@ROOT"}) {
    if (*key != '\0') SelectNode(key);
    QbtAssignTranslatedFile();
    EXPECT_THAT(Dialogs().Shown(), IsEmpty());
    EXPECT_TRUE(TimersAreOn());
  }
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(AssignTranslatedFileTest, ReadOnlyDocument_IsRefused) {
  for (const auto& [localization, text] : {std::pair{false, "Cannot translate readonly documents"},
                                           std::pair{true, "Cannot localize readonly documents"}}) {
    OpenSmallPackage(localization);
    Boxes().Forget();
    Loio("DOC1").state->InternalizeState("READONLY_OPEN");
    SelectNode("DOC1");
    QbtAssignTranslatedFile();
    EXPECT_THAT(Boxes().Texts(), ElementsAre(text));
    EXPECT_THAT(Dialogs().Shown(), IsEmpty());
    ResetProgramState();
  }
}

TEST_F(AssignTranslatedFileTest, OpenDocument_IsRefused) {
  OpenSmallPackage();
  SelectNode("DOC1");
  QbtTranslate();
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Document is already open"));
  EXPECT_THAT(Dialogs().Shown(), IsEmpty());
}

TEST_F(AssignTranslatedFileTest, EditorAlreadyGone_IsNoticedBeforeTheStateIsRead) {
  OpenSmallPackage();
  SelectNode("DOC1");
  QbtTranslate();
  TheShell().EndAllProcesses();
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Dialogs().Shown(), SizeIs(1));
}

TEST_F(AssignTranslatedFileTest, SourceDocument_FailsInItsTransition) {
  OpenSmallPackage();
  Loio("DOC1").state->InternalizeState("READONLY");
  SelectNode("DOC1");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("State change failed"));
  EXPECT_THAT(Dialogs().Shown(), IsEmpty());
}

TEST_F(AssignTranslatedFileTest, WhileVisioWindowsAreOut_RunsAllTheSame) {
  OpenSmallPackage();
  gVisioWindows = 2;
  SelectNode("DOC1");
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Dialogs().Shown(), SizeIs(1));
}

TEST_F(AssignTranslatedFileTest, SaveThatIsNotAllowed_IsSaidAfterTheCopy) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\done\new.css)");
  Kit().onRepaint = [&](Form& form) {
    if (&form == &Dialog() && Dialog().ctlProgressBar.Value == 50) {
      Loio("DOC1").state->InternalizeState("UNCHANGED");
    }
  };
  QbtAssignTranslatedFile();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("State change failed"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\styles.css)"), R"(\done\new.css)");
  EXPECT_THAT(Protocol(), Not(HasSubstr("Assigning")));
}

TEST_F(AssignTranslatedFileTest, Events_AllThreeRunTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Window().mniAssignTranslatedFile.Click();
  Default<frmContextMenu>().mniAssignTranslatedFile.Click();
  Window().Toolbar.ButtonClick(5);
  EXPECT_THAT(Dialogs().Shown(), SizeIs(3));
}

}  // namespace
}  // namespace qb
