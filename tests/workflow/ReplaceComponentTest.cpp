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
using ::testing::UnorderedElementsAre;

class ReplaceComponentTest : public FileCommandTest {};

TEST_F(ReplaceComponentTest, OtherName_TakesTheOldFilesPlace) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.png"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js", "menu.png"));
  EXPECT_EQ(SelectedKey(), "DOC2_menu.png");
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.png)"), R"(\work\menu.png)");
  EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Protocol(), HasSubstr("Message         Replacing component file: DOC2"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtReplaceComponent: REPLACE COMPONENT: DOC2"));
}

TEST_F(ReplaceComponentTest, Chooser_AsksForTheOldFilesFormat) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  const std::string before = Bytes(kPackage);
  QbtReplaceComponent();
  ASSERT_THAT(Dialogs().Shown(), SizeIs(1));
  EXPECT_EQ(Dialogs().Shown()[0].filter, "*.gif Files \0*.gif\0All Files (*.*)\0*.*\0\0"s);
  EXPECT_EQ(Dialogs().Shown()[0].flags,
            openfile::kFileMustExist | openfile::kAllowMultiSelect | openfile::kHideReadOnly);
  EXPECT_EQ(Bytes(kPackage), before) << "cancelled";
  EXPECT_FALSE(Exists(R"(\pkg\dst\BAK)"));
}

TEST_F(ReplaceComponentTest, FirstReplacement_SavesTheFolder) {
  OpenSmallPackage();
  MakeFolder(R"(\pkg\dst\pictures)");
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(FilesIn(R"(\pkg\dst\BAK)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\BAK\menu.gif)"), R"(\pkg\dst\menu.gif)");
}

TEST_F(ReplaceComponentTest, SecondReplacement_LeavesTheSavedFolderAsItIs) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  Write(R"(\pkg\dst\menu.js)", "changed since");
  SelectNode("DOC2_menu.png");
  Choose(R"(\work\menu.svg)");
  QbtReplaceComponent();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.svg"));
  EXPECT_THAT(FilesIn(R"(\pkg\dst\BAK)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\BAK\menu.js)"), R"(\pkg\dst\menu.js)");
}

TEST_F(ReplaceComponentTest, FolderThatCannotBeListedForItsFirstState_KeepsListAndFiles) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  InstallFaultyFiles(ThePlatform()).Fail(FileOperation::kSearch, failure::kPermissionDenied, R"(\dst\*.*)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred attempting to replace a component file: #70: ")));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.gif)"), R"(\pkg\dst\menu.gif)");
}

TEST_F(ReplaceComponentTest, FileThatCannotBeCopiedForTheFirstState_IsPassedOver) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  InstallFaultyFiles(ThePlatform()).Fail(FileOperation::kCopy, failure::kPermissionDenied, R"(BAK\menu.js)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.png"));
  EXPECT_THAT(FilesIn(R"(\pkg\dst\BAK)"), UnorderedElementsAre("styles.css", "menu.gif"));
}

TEST_F(ReplaceComponentTest, PrimaryFileByAnotherFormat_IsRefused) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.js");
  for (const char* path : {R"(\work\menu.vbs)", R"(\work\menu.JS)"}) {
    Choose(path);
    QbtReplaceComponent();
  }
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("File extensions must not differ", "File extensions must not differ"))
      << "case counts";
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\BAK)")) << "the folder is saved before";
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
}

TEST_F(ReplaceComponentTest, PrimaryFileByTheSameFormat_LosesItsMark) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.js");
  Choose(R"(\work\new.js)");
  QbtReplaceComponent();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.gif", "new.js"));
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC2_new.js").Image(), 12);
}

TEST_F(ReplaceComponentTest, NewNameStandsThereAlready_IsTakenAsItStands) {
  OpenSmallPackage();
  Write(R"(\pkg\dst\left.png)", "left there");
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\left.png)");
  QbtReplaceComponent();
  EXPECT_EQ(Bytes(R"(\pkg\dst\left.png)"), "left there");
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "left.png"));
}

TEST_F(ReplaceComponentTest, SameName_IsTheFileThatGoes) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.gif)");
  QbtReplaceComponent();
  EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\BAK\menu.gif)"), R"(\pkg\dst\menu.gif)");
  EXPECT_EQ(Bytes(R"(\work\menu.gif)"), R"(\work\menu.gif)");
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(ReplaceComponentTest, NameOfAnotherListedFile_IsNotListedTwice) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.js)");
  QbtReplaceComponent();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.js)"), R"(\pkg\dst\menu.js)");
}

TEST_F(ReplaceComponentTest, CopyThatFails_KeepsTheOldFile) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Dialogs().ChooseNext(R"(\work\gone.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(R"(Could not copy file: \work\gone.png)"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
}

TEST_F(ReplaceComponentTest, SeveralFilesChosen_CannotBeCopied) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Dialogs().ChooseNext(R"(\work a.gif b.gif)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(R"(Could not copy file: \work a.gif b.gif)"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
}

TEST_F(ReplaceComponentTest, ReadOnlyOldFile_GoesToo) {
  OpenSmallPackage();
  ThePlatform().files->SetAttributes(R"(\pkg\dst\menu.gif)", attribute::kReadOnly);
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(ReplaceComponentTest, OldFileThatCannotBeDeleted_IsSaidAndTheListGoesOn) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kRemove, failure::kPermissionDenied, "menu.gif");
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Old file could not be deleted"));
  EXPECT_THAT(BoxStyles(), ElementsAre(0));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.png"));
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(ReplaceComponentTest, OldFileIsMissing_IsSaidAndTheListGoesOn) {
  OpenSmallPackage();
  std::filesystem::remove(Native(R"(\pkg\dst\menu.gif)"));
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Old file could not be deleted"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.png"));
}

TEST_F(ReplaceComponentTest, FolderThatCannotBeSaved_StopsItByName) {
  OpenSmallPackage();
  Write(R"(\pkg\dst\BAK)", "a file in the way");
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred attempting to replace a component file: #75: ")));
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr(R"(\pkg\dst\BAK)"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
}

TEST_F(ReplaceComponentTest, PackageThatCannotBeWritten_IsSaid) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not write to PXF", HasSubstr("could not be changed: ")));
  EXPECT_THAT(Protocol(), Not(HasSubstr("Replacing")));
}

TEST_F(ReplaceComponentTest, DocumentSelected_HasNoSuchFile) {
  OpenSmallPackage();
  SelectNode("DOC2");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Component file not found (DOC2)"));
  EXPECT_THAT(Dialogs().Shown(), IsEmpty());
}

TEST_F(ReplaceComponentTest, CompanionSelected_HasNoSuchFile) {
  OpenSmallPackage();
  Write(R"(\pkg\dst\menu.js.ttx)", "x");
  Loio("DOC2").UpdateView();
  SelectNode("DOC2_menu.js.ttx");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Component file not found (menu.js.ttx)"));
}

TEST_F(ReplaceComponentTest, ReadOnlyOrOpenDocument_IsRefused) {
  OpenSmallPackage(true);
  SelectNode("DOC2_menu.gif");
  Loio("DOC2").state->InternalizeState("READONLY_OPEN");
  QbtReplaceComponent();
  Loio("DOC2").state->InternalizeState("UNCHANGED");
  QbtTranslate();
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot localize readonly documents", "Document is already open"));
}

TEST_F(ReplaceComponentTest, HostileName_DeletesNothingOutside) {
  Write(R"(\outside\secret.gif)", "secret");
  OpenPackageText(SmallPackageWith("menu.gif", R"(..\..\outside\secret.gif)"));
  SelectNode(R"(DOC2_..\..\outside\secret.gif)");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_EQ(Bytes(R"(\outside\secret.gif)"), "secret");
  EXPECT_FALSE(Exists(R"(\pkg\dst\BAK)"));
}

TEST_F(ReplaceComponentTest, FolderIsALinkOutOfThePackage_IsNotSavedThere) {
  OpenSmallPackage();
  MakeFolder(R"(\outside)");
  Write(R"(\pkg\real.gif)", "inside");
  std::filesystem::rename(Native(R"(\pkg\dst)"), Native(R"(\pkg\old)"));
  if (!MadeFolderLink(Native(R"(\outside)"), Native(R"(\pkg\dst)"))) GTEST_SKIP() << kNoLinks;
  if (!MadeLink(Native(R"(\pkg\real.gif)"), Native(R"(\outside\menu.gif)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_THAT(FilesIn(R"(\outside)"), ElementsAre("menu.gif"));
}

TEST_F(ReplaceComponentTest, BackupIsALinkOutOfThePackage_IsRefused) {
  OpenSmallPackage();
  MakeFolder(R"(\outside)");
  if (!MadeFolderLink(Native(R"(\outside)"), Native(R"(\pkg\dst\BAK)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC2_menu.gif");
  Choose(R"(\work\menu.png)");
  QbtReplaceComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_THAT(FilesIn(R"(\outside)"), IsEmpty());
}

TEST_F(ReplaceComponentTest, MenuEntry_RunsTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Window().mniReplaceComponent.Click();
  EXPECT_THAT(Dialogs().Shown(), SizeIs(1));
}

}  // namespace
}  // namespace qb
