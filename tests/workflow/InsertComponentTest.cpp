#include "support/Links.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentCommands.h"
#include "workflow/FileCommandTest.h"

namespace qb {
namespace {

using namespace std::string_literals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class InsertComponentTest : public FileCommandTest {
 protected:
  bool Insert() { return QbtInsertComponent(cancelled_, file_); }

  bool cancelled_ = false;
  std::string file_;
};

TEST_F(InsertComponentTest, ChosenFile_IsCopiedListedAndShown) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_FALSE(cancelled_);
  EXPECT_EQ(file_, R"(\work\logo.gif)");
  EXPECT_EQ(Bytes(R"(\pkg\dst\logo.gif)"), R"(\work\logo.gif)");
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM", "logo.gif"));
  EXPECT_EQ(Value("1", "1SHORT_NAME2"), "");
  EXPECT_THAT(Shown("DOC1"), ElementsAre("styles.css", "logo.gif"));
  EXPECT_EQ(Value("1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Protocol(), HasSubstr("Message         Inserting component file: DOC1"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtInsertComponent: INSERT COMPONENT: DOC1"));
  EXPECT_FALSE(Exists(R"(\pkg\dst\BAK)"));
}

TEST_F(InsertComponentTest, Chooser_AsksForOneFileOfAnyKind) {
  OpenSmallPackage();
  SelectNode("DOC1");
  EXPECT_FALSE(Insert());
  ASSERT_THAT(Dialogs().Shown(), SizeIs(1));
  const OpenFileRecord& asked = Dialogs().Shown()[0];
  EXPECT_EQ(asked.title, "Select a file to check in as translation");
  EXPECT_EQ(asked.filter, " Files \0\0All Files (*.*)\0*.*\0\0"s);
  EXPECT_EQ(asked.defaultExtension, "");
  EXPECT_EQ(asked.flags, openfile::kFileMustExist | openfile::kHideReadOnly);
}

TEST_F(InsertComponentTest, ChooserCancelled_SaysSoToTheCallerAlone) {
  OpenSmallPackage();
  SelectNode("DOC1");
  const std::string before = Bytes(kPackage);
  EXPECT_FALSE(Insert());
  EXPECT_TRUE(cancelled_);
  EXPECT_EQ(file_, "");
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(InsertComponentTest, FileNodeSelected_AddsToItsDocument) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\logo.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js", "menu.gif", "logo.gif"));
}

TEST_F(InsertComponentTest, NameWithSeparatorOfKeys_StaysWhole) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\work\my_new_logo.gif)");
  EXPECT_TRUE(Insert());
  SelectNode("DOC1_my_new_logo.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM"));
}

TEST_F(InsertComponentTest, FileAtItsPlaceAndListed_IsRefusedAndTheStateLeftAlone) {
  for (const auto& [localization, text] :
       {std::pair{false, "A file with the same name is already part of the translation package"},
        std::pair{true, "A file with the same name is already part of the localization package"}}) {
    OpenSmallPackage(localization);
    Boxes().Forget();
    SelectNode("DOC2");
    Dialogs().ChooseNext(R"(\pkg\dst\menu.gif)");
    EXPECT_FALSE(Insert());
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(text)));
    EXPECT_THAT(BoxStyles(), ElementsAre(box::kStop));
    EXPECT_THAT(Protocol(), HasSubstr(text));
    EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
    EXPECT_FALSE(cancelled_);
    ResetProgramState();
  }
}

TEST_F(InsertComponentTest, FileAtItsPlaceButNotListed_IsListedWithoutACopy) {
  OpenSmallPackage();
  FaultyFileSystem& files = InstallFaultyFiles(ThePlatform());
  SelectNode("DOC1");
  Choose(R"(\pkg\dst\left.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_EQ(files.Count(FileOperation::kCopy), 0);
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM", "left.gif"));
  EXPECT_EQ(file_, R"(\pkg\dst\left.gif)");
}

TEST_F(InsertComponentTest, ListedNameFromElsewhere_ReplacesTheContentAndNothingElse) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Choose(R"(\work\menu.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.gif)"), R"(\work\menu.gif)");
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_EQ(Value("2", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T") << "no save follows";
  EXPECT_EQ(file_, "") << "only a new file is told to the caller";
  EXPECT_THAT(Protocol(), Not(HasSubstr("Inserting")));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(InsertComponentTest, StateThatCannotBeEdited_IsSaid) {
  OpenSmallPackage();
  Loio("DOC1").state->InternalizeState("READONLY");
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot change open status for object"));
  EXPECT_FALSE(Exists(R"(\pkg\dst\logo.gif)"));
}

TEST_F(InsertComponentTest, CopyThatFails_IsSaidAndTheFileListedAllTheSame) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Dialogs().ChooseNext(R"(\work\gone.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(R"(Could not copy file: \work\gone.gif -> \pkg\dst\gone.gif)"));
  EXPECT_THAT(BoxStyles(), ElementsAre(0));
  EXPECT_THAT(Listed("1"), ElementsAre("styles.css:PRIM", "gone.gif"));
  EXPECT_FALSE(Exists(R"(\pkg\dst\gone.gif)"));
  EXPECT_EQ(Value("1", "PROGRESS"), "UNCHANGED") << "the edit was taken back, so no save is allowed";
}

TEST_F(InsertComponentTest, CopyOverAListedFileFails_IsNotListedTwice) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kCopy, failure::kDiskFull, "menu.gif");
  SelectNode("DOC2");
  Choose(R"(\work\menu.gif)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(R"(Could not copy file: \work\menu.gif -> \pkg\dst\menu.gif)",
                                           "Could not add new component file"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js", "menu.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.gif)"), R"(\pkg\dst\menu.gif)");
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
}

TEST_F(InsertComponentTest, ChosenFileIsADirectory_CannotBeCopied) {
  OpenSmallPackage();
  SelectNode("DOC1");
  MakeFolder(R"(\work\folder.gif)");
  Dialogs().ChooseNext(R"(\work\folder.gif)");
  Insert();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Could not copy file: ")));
}

TEST_F(InsertComponentTest, PackageThatCannotBeWritten_IsSaid) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not write to PXF", HasSubstr("could not be changed: ")));
  EXPECT_EQ(file_, "");
}

TEST_F(InsertComponentTest, PathLeadsOutOfThePackage_WritesNothing) {
  OpenPackageText(SmallPackageWith("1PATH=dst", R"(1PATH=..\outside)"));
  MakeFolder(R"(\outside)");
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(R"(The path '\pkg\..\outside\logo.gif' leads out of the package. )"
                                           "Nothing is changed."));
  EXPECT_THAT(FilesIn(R"(\outside)"), IsEmpty());
  EXPECT_EQ(State("DOC1"), "UNCHANGED");
}

TEST_F(InsertComponentTest, FolderIsALinkOutOfThePackage_WritesNothing) {
  OpenSmallPackage();
  MakeFolder(R"(\outside)");
  std::filesystem::rename(Native(R"(\pkg\dst)"), Native(R"(\pkg\old)"));
  if (!MadeFolderLink(Native(R"(\outside)"), Native(R"(\pkg\dst)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_THAT(FilesIn(R"(\outside)"), IsEmpty());
}

TEST_F(InsertComponentTest, FileNamedAsThePackage_DoesNotOverwriteIt) {
  OpenPackageText(SmallPackageWith("1PATH=dst", "1PATH=."));
  SelectNode("DOC1");
  Choose(R"(\work\trans.PXF)");
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("is the package file itself")));
  EXPECT_EQ(Value("1", "LOIO"), "DOC1");
}

TEST_F(InsertComponentTest, PackagesFolderItself_TakesFiles) {
  OpenPackageText(SmallPackageWith("1PATH=dst", "1PATH=."));
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  EXPECT_TRUE(Insert());
  EXPECT_TRUE(Exists(R"(\pkg\logo.gif)"));
}

TEST_F(InsertComponentTest, UnknownDocument_IsReported) {
  OpenSmallPackage();
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(tree.Root(), TableTree::kChild, "GONE", "x", 0, 0, 0));
  EXPECT_FALSE(Insert());
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while inserting a component file: #5: ")));
  EXPECT_THAT(BoxStyles(), ElementsAre(box::kStop));
  EXPECT_THAT(TraceLines(), Contains(HasSubstr("TranslateMod.QbtInsertComponent: An error has occurred")));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(InsertComponentTest, ReadOnlyOrOpenDocument_IsRefused) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Loio("DOC1").state->InternalizeState("READONLY_OPEN");
  Insert();
  Loio("DOC1").state->InternalizeState("UNCHANGED");
  QbtTranslate();
  Insert();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Cannot translate readonly documents", "Document is already open"));
  EXPECT_THAT(Dialogs().Shown(), IsEmpty());
}

TEST_F(InsertComponentTest, MenuEntry_RunsTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Window().mniInsertComponent.Click();
  EXPECT_THAT(Dialogs().Shown(), SizeIs(1));
}

TEST_F(InsertComponentTest, OpenedAgain_ThePackageHasTheNewFile) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Choose(R"(\work\logo.gif)");
  Insert();
  ResetProgramState();
  Start(kPackage);
  EXPECT_THAT(Shown("DOC1"), ElementsAre("styles.css", "logo.gif"));
}

}  // namespace
}  // namespace qb
