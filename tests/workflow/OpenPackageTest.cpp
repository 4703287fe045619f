#include <gmock/gmock.h>

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "support/FaultyFileSystem.h"
#include "support/Links.h"
#include "support/WorkflowTest.h"
#include "ui/frmContextMenu.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class OpenPackageTest : public WorkflowTest {
 protected:
  void WritePackage(bool localization = false) { Write(kPackage, SmallPackage(localization)); }
};

TEST_F(OpenPackageTest, QbtOpen_FreshPackage_ListsItsDocuments) {
  WritePackage();
  Start(kPackage);
  TableTree& tree = Window().TransPackTree;
  ASSERT_NE(tree.Root(), nullptr);
  EXPECT_EQ(tree.Root()->Key(), "@ROOT");
  EXPECT_EQ(tree.Root()->Text(), kPackage);
  EXPECT_EQ(tree.Root()->Title(), "Small package");
  EXPECT_EQ(tree.Root()->Image(), 11);
  EXPECT_EQ(tree.Nodes("DOC1").Text(), "Styles");
  EXPECT_EQ(tree.Nodes("DOC1").Title(), "STYLES");
  EXPECT_EQ(tree.Nodes("DOC2").Text(), "Menu");
  EXPECT_EQ(tree.Nodes("DOC2_menu.js").Image(), 10);
  EXPECT_EQ(tree.Nodes("DOC2_menu.gif").Image(), 12);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Kit().calls, Contains("focus TransPackTree"));
}

TEST_F(OpenPackageTest, QbtOpen_Columns_AreTechNameAndTitleBehindTheOthers) {
  WritePackage();
  Start(kPackage);
  QbtOpen(kPackage);
  TableTree& tree = Window().TransPackTree;
  ASSERT_EQ(tree.ColumnCount(), 5);
  EXPECT_EQ(tree.ColumnAt(4).name, "TechName");
  EXPECT_EQ(tree.ColumnAt(5).name, "Title");
  EXPECT_EQ(tree.ColumnAt(4).width, "300");
  EXPECT_EQ(tree.ColumnAt(5).width, "300");
  EXPECT_EQ(tree.TreeColumnWidth.Get(), "300");
}

TEST_F(OpenPackageTest, QbtOpen_FreshPackage_BacksItUpAsDelivered) {
  WritePackage();
  Start(kPackage);
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), SmallPackage());
  EXPECT_EQ(Entry(kPackage, "TRANS", "TOUCHED"), "TRUE");
}

TEST_F(OpenPackageTest, QbtOpen_TouchedPackage_MakesNoNewBackup) {
  WritePackage();
  Start(kPackage);
  Write(R"(\pkg\Trans.BAK)", "mine");
  QbtOpen(kPackage);
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), "mine");
}

TEST_F(OpenPackageTest, QbtOpen_TouchedFalse_CountsAsTouched) {
  Write(kPackage, SmallPackage() + "[X]\r\n");
  Start();
  ThePlatform().profiles->WritePrivateProfileString("TRANS", "TOUCHED", "FALSE", kPackage);
  QbtOpen(kPackage);
  EXPECT_FALSE(Exists(R"(\pkg\Trans.BAK)"));
}

TEST_F(OpenPackageTest, QbtOpen_SecondTime_WritesNoByte) {
  WritePackage();
  Start(kPackage);
  const std::string before = Bytes(kPackage);
  const auto stamp = ThePlatform().files->Stamp(kPackage);
  QbtOpen(kPackage);
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_EQ(ThePlatform().files->Stamp(kPackage), stamp);
}

TEST_F(OpenPackageTest, QbtOpen_Always_LeavesATrueFileSize) {
  WritePackage();
  Start(kPackage);
  EXPECT_EQ(std::stoul(Entry(kPackage, "GLOBAL", "FILESIZE")), Bytes(kPackage).size());
}

TEST_F(OpenPackageTest, QbtOpen_DialogCancelled_LeavesTheOpenPackage) {
  WritePackage();
  Start(kPackage);
  Dialogs().CancelNext();
  QbtOpen("");
  EXPECT_EQ(gPxfFile->strFileName, kPackage);
  EXPECT_EQ(gLoios->Count(), 2U);
  EXPECT_NE(Window().TransPackTree.FindNode("DOC1"), nullptr);
}

TEST_F(OpenPackageTest, QbtOpen_Dialog_AsksForPackages) {
  WritePackage();
  Start();
  Dialogs().ChooseNext(std::string(kPackage));
  QbtOpen("");
  ASSERT_EQ(Dialogs().Shown().size(), 1U);
  const OpenFileRecord& asked = Dialogs().Shown()[0];
  EXPECT_EQ(asked.title, "Open Translation/Localization Package");
  EXPECT_EQ(asked.filter, std::string("Package Exchange Files (*.pxf)\0*.pxf\0All Files (*.*)\0*.*\0\0", 58));
  EXPECT_EQ(asked.flags, openfile::kFileMustExist | openfile::kHideReadOnly);
  EXPECT_EQ(asked.defaultExtension, ".pxf");
  EXPECT_EQ(gLoios->Count(), 2U);
}

TEST_F(OpenPackageTest, QbtOpen_MissingFile_SaysSoAndLeavesTheOpenPackage) {
  WritePackage();
  Start(kPackage);
  Boxes().Forget();
  QbtOpen(R"(\pkg\none.pxf)");
  ASSERT_EQ(Boxes().Texts().size(), 1U);
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("File does not exist"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kExclamation);
  EXPECT_EQ(gPxfFile->strFileName, kPackage);
}

TEST_F(OpenPackageTest, Main_PathInQuotes_DoesNotExist) {
  WritePackage();
  Start("\"" + std::string(kPackage) + "\"");
  ASSERT_EQ(Boxes().Texts().size(), 1U);
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("File does not exist"));
}

TEST_F(OpenPackageTest, QbtOpen_ADirectory_DoesNotExist) {
  MakeFolder(R"(\pkg\folder.pxf)");
  Start(R"(\pkg\folder.pxf)");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("File does not exist")));
}

TEST_F(OpenPackageTest, QbtOpen_WriteRefused_SaysSoAndListsTheDocuments) {
  WritePackage();
  InstallFaultyFiles(ThePlatform())
      .Fail(FileOperation::kReplaceContent, failure::kPermissionDenied, "Trans.pxf");
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Error updating translation package")));
  EXPECT_EQ(gLoios->Count(), 2U);
  EXPECT_NE(Window().TransPackTree.FindNode("DOC2"), nullptr);
  EXPECT_EQ(Bytes(kPackage), SmallPackage());
}

TEST_F(OpenPackageTest, QbtOpen_LocalizationWriteRefused_HasItsOwnWords) {
  WritePackage(true);
  InstallFaultyFiles(ThePlatform()).Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("Error updating localization package")));
}

TEST_F(OpenPackageTest, QbtOpen_LocalizationPackage_ChangesTheWording) {
  WritePackage(true);
  Start(kPackage);
  EXPECT_EQ(Window().mniToBeTranslated.Caption.Get(), "to be localized");
  EXPECT_EQ(Window().Toolbar.Buttons(5).ToolTipText.Get(), "Declare a file to be a document's localization");
  Write(R"(\other\Trans.pxf)", SmallPackage(false));
  QbtOpen(R"(\other\Trans.pxf)");
  EXPECT_EQ(Window().mniToBeTranslated.Caption.Get(), "in translation");
}

TEST_F(OpenPackageTest, QbtOpen_AnotherPackage_ReplacesTheViews) {
  WritePackage();
  Start(kPackage);
  std::string other = SmallPackage();
  for (std::size_t at = other.find("DOC"); at != std::string::npos; at = other.find("DOC", at + 3)) {
    if (other.compare(at, 5, "DOC1\r") == 0 || other.compare(at, 5, "DOC2\r") == 0) other[at] = 'E';
  }
  Write(R"(\other\Trans.pxf)", other);
  QbtOpen(R"(\other\Trans.pxf)");
  TableTree& tree = Window().TransPackTree;
  EXPECT_EQ(tree.FindNode("DOC1"), nullptr);
  EXPECT_NE(tree.FindNode("EOC1"), nullptr);
  EXPECT_EQ(Window().lvInfoObjectList.AllRows().size(), 2U);
  EXPECT_EQ(tree.Root()->Text(), R"(\other\Trans.pxf)");
}

TEST_F(OpenPackageTest, QbtOpen_NoPackageOfThisProgram_SaysSoAndEndsTheProcess) {
  Write(kPackage, "[GLOBAL]\r\nINFOBJS=0\r\n[TRANS]\r\nTRANSTYPE=TWB2\r\n");
  EXPECT_TRUE(EndsProcess([&] { Start(kPackage); }));
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("Not a Quillbank Translator package.")));
}

TEST_F(OpenPackageTest, QbtOpen_NoPackageWhileVisioWindowsAreOut_EndsTheProcessAllTheSame) {
  Write(kPackage, "[TRANS]\r\nTRANSTYPE=none\r\n");
  Start();
  gVisioWindows = 2;
  EXPECT_TRUE(EndsProcess([&] { QbtOpen(kPackage); }));
  EXPECT_THAT(Boxes().Texts(), Contains("Close all Visio windows before continuing!"));
}

TEST_F(OpenPackageTest, QbtOpen_FailedLoad_LeavesTheRootAndNoPackage) {
  std::string text = SmallPackage();
  text.replace(text.find("LOIO=DOC2"), 9, "LOIO=DOC1");
  Write(kPackage, text);
  Start(kPackage);
  EXPECT_EQ(gPxfFile, nullptr);
  EXPECT_FALSE(Window().mniTranslate.Enabled);
  EXPECT_FALSE(Window().mnuMark.Enabled);
  ASSERT_NE(Window().TransPackTree.Root(), nullptr);
  EXPECT_TRUE(Window().TransPackTree.Root()->Children().empty());
  EXPECT_TRUE(Window().lvInfoObjectList.AllRows().empty());
  Write(R"(\good\Trans.pxf)", SmallPackage());
  QbtOpen(R"(\good\Trans.pxf)");
  ASSERT_NE(gPxfFile, nullptr);
  EXPECT_TRUE(Window().mniTranslate.Enabled);
}

TEST_F(OpenPackageTest, QbtOpen_TtxBesideAFile_IsTheThirdLevelUntilItIsDeleted) {
  WritePackage();
  Write(R"(\pkg\dst\menu.js.ttx)", "x");
  Start(kPackage);
  TableTree& tree = Window().TransPackTree;
  ASSERT_NE(tree.FindNode("DOC2_menu.js.ttx"), nullptr);
  EXPECT_EQ(tree.Nodes("DOC2_menu.js.ttx").Image(), 12);
  EXPECT_EQ(tree.Nodes("DOC2_menu.js.ttx").Parent(), &tree.Nodes("DOC2_menu.js"));
  ThePlatform().files->Remove(R"(\pkg\dst\menu.js.ttx)");
  gLoios->Item("DOC2")->UpdateView();
  EXPECT_EQ(tree.FindNode("DOC2_menu.js.ttx"), nullptr);
}

TEST_F(OpenPackageTest, QbtOpen_Always_StampsTheSession) {
  WritePackage();
  TheClock().SetLocalNow({2004, 2, 29, 3, 4, 5});
  Start(kPackage);
  EXPECT_EQ(gSessionStamp, "20040229030405");
}

TEST_F(OpenPackageTest, QbtOpen_Always_EntersTheRecentFiles) {
  WritePackage();
  Start(kPackage);
  EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), "&1 " + std::string(kPackage));
}

TEST_F(OpenPackageTest, QbtOpen_Protocol_NewHeaderThenOldFooter) {
  WritePackage();
  Start(kPackage);
  const std::string protocol = Bytes(R"(\pkg\Protocol.txt)");
  const std::size_t header = protocol.find("ORB Quillbank Translator 7.1.3");
  const std::size_t footer = protocol.find("Application finished execution. 0 errors occurred.");
  ASSERT_NE(header, std::string::npos);
  ASSERT_NE(footer, std::string::npos);
  EXPECT_LT(header, footer);
  EXPECT_THAT(Bytes(R"(\Protocol.txt)"), HasSubstr("ORB Quillbank Translator 7.1.3"));
}

TEST_F(OpenPackageTest, Backup_LinkInItsPlace_IsReplacedAndNotFollowed) {
  WritePackage();
  Write(R"(\outside\precious.txt)", "precious");
  if (!MadeLink(Native(R"(\outside\precious.txt)"), Native(R"(\pkg\Trans.BAK)"))) GTEST_SKIP() << kNoLinks;
  Start(kPackage);
  EXPECT_EQ(Bytes(R"(\outside\precious.txt)"), "precious");
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), SmallPackage());
}

TEST_F(OpenPackageTest, QbtOpen_FileDialogFails_IsReportedOnce) {
  Start();
  Dialogs().AnswerNext(
      [](OpenFileRecord&) -> bool { throw RuntimeError(failure::kInternalError, {}, "no dialog"); });
  QbtOpen("");
  EXPECT_THAT(Boxes().Texts(), ElementsAre("error:no dialog"));
}

TEST_F(OpenPackageTest, Backup_CopyRefused_GoesOn) {
  WritePackage();
  InstallFaultyFiles(ThePlatform()).Fail(FileOperation::kCopy, failure::kDiskFull, "Trans.BAK");
  Start(kPackage);
  EXPECT_EQ(gLoios->Count(), 2U);
  EXPECT_FALSE(Exists(R"(\pkg\Trans.BAK)"));
}

/// Everything that the commands of a package are switched by.
std::vector<std::pair<std::string, bool>> SwitchedItems(frmQBTranslator& window) {
  std::vector<std::pair<std::string, bool>> items;
  for (MenuItem* item :
       {&window.mniAssignTranslatedFile, &window.mniTranslateProperties, &window.mniTranslateTitle,
        &window.mniCompleted, &window.mniCopy, &window.mniInProgress, &window.mniPrint, &window.mniProperties,
        &window.mniSave, &window.mniToBeTranslated, &window.mniTranslate, &window.mnuMark,
        &window.mniComponents}) {
    items.emplace_back(item->Name(), item->Enabled.Get());
  }
  for (const int button : {2, 4, 5, 7, 8, 9}) {
    items.emplace_back(window.Toolbar.Buttons(button).Key(), window.Toolbar.Buttons(button).Enabled.Get());
  }
  auto& context = Default<frmContextMenu>();
  for (MenuItem* item : {&context.mniAssignTranslatedFile, &context.mniCompleted, &context.mniCopy,
                         &context.mniInProgress, &context.mniToBeTranslated, &context.mniTranslate,
                         &context.mniTranslateProperties, &context.mniTranslateTitle}) {
    items.emplace_back("context " + item->Name(), item->Enabled.Get());
  }
  return items;
}

TEST_F(OpenPackageTest, Commands_WithoutPackage_AreOffAndOnlyTheseAre) {
  Start();
  for (const auto& [name, enabled] : SwitchedItems(Window())) EXPECT_FALSE(enabled) << name;
  for (MenuItem* item : {&Window().mniOpen, &Window().mniExit, &Window().mniRefresh, &Window().mniShortView,
                         &Window().mniOptions, &Window().mniHelp, &Window().mniAbout, &Window().mniTrace}) {
    EXPECT_TRUE(item->Enabled) << item->Name();
  }
  for (int button = 1; button <= Window().Toolbar.ButtonCount(); ++button) {
    if (Window().Toolbar.Buttons(button).IsSeparator()) continue;
    EXPECT_EQ(Window().Toolbar.Buttons(button).Enabled.Get(), button == 1 || button == 11) << button;
  }
}

TEST_F(OpenPackageTest, Commands_WithPackage_AreOn) {
  WritePackage();
  Start(kPackage);
  for (const auto& [name, enabled] : SwitchedItems(Window())) EXPECT_TRUE(enabled) << name;
}

TEST_F(OpenPackageTest, QbtRefresh_WithoutPackage_OnlyRepaints) {
  Start();
  const int before = Kit().repaints;
  QbtRefresh();
  EXPECT_EQ(Kit().repaints, before + 1);
}

}  // namespace
}  // namespace qb
