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

class ReplaceAllComponentsTest : public FileCommandTest {
 protected:
  /// Writes files into `\work` and lets the next file dialog choose them.
  void ChooseInWork(std::initializer_list<const char*> names) {
    std::string answer = R"(\work)";
    for (const char* name : names) {
      Write(R"(\work\)"s + name, R"(\work\)"s + name);
      answer += " "s + name;
    }
    Dialogs().ChooseNext(answer);
  }
};

TEST_F(ReplaceAllComponentsTest, SeveralFiles_BecomeTheList) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif", "two.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM", "one.gif", "two.gif"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("new.js", "one.gif", "two.gif"));
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC2_new.js").Image(), 10);
  EXPECT_EQ(Bytes(R"(\pkg\dst\two.gif)"), R"(\work\two.gif)");
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.js)")) << "the old files stay on disk";
  EXPECT_THAT(FilesIn(R"(\pkg\dst\BAK)"), UnorderedElementsAre("styles.css", "menu.js", "menu.gif"));
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(ReplaceAllComponentsTest, ProtocolAndTrace_NameEveryFile) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif"});
  QbtReplaceAllComponents();
  const std::string protocol = Protocol();
  const std::size_t start = protocol.find("Message         Replacing all component files: DOC2");
  const std::size_t first = protocol.find(R"(Message         Component \pkg\dst\new.js)");
  const std::size_t second = protocol.find(R"(Message         Component \pkg\dst\one.gif)");
  EXPECT_TRUE(start < first && first < second && second != std::string::npos) << protocol;
  for (const char* line : {"REPLACING ALL COMPONENTS: DOC2", R"(COMPONENT 1: \pkg\dst\new.js)",
                           R"(COMPONENT 2: \pkg\dst\one.gif)"}) {
    EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtReplaceAllComponents: "s + line));
  }
}

TEST_F(ReplaceAllComponentsTest, Chooser_AsksForManyFilesOfAnyKind) {
  OpenSmallPackage();
  SelectNode("DOC2");
  QbtReplaceAllComponents();
  ASSERT_THAT(Dialogs().Shown(), SizeIs(1));
  const OpenFileRecord& asked = Dialogs().Shown()[0];
  EXPECT_EQ(asked.title, "Select all the files you want to replace");
  EXPECT_EQ(asked.filter, "*.* Files \0*.*\0All Files (*.*)\0*.*\0\0"s);
  EXPECT_EQ(asked.defaultExtension, "*.*");
  EXPECT_EQ(asked.flags, openfile::kFileMustExist | openfile::kAllowMultiSelect | openfile::kHideReadOnly);
}

TEST_F(ReplaceAllComponentsTest, ChooserCancelled_LeavesTheDocumentWithoutFiles) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Dialogs().AnswerNext([&](OpenFileRecord&) {
    EXPECT_THAT(Listed("2"), IsEmpty()) << "emptied before the choice";
    return false;
  });
  QbtReplaceAllComponents();
  EXPECT_THAT(Listed("2"), IsEmpty());
  EXPECT_THAT(Shown("DOC2"), IsEmpty()) << "the tree agrees with the package";
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.js)"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Value("2", "PROGRESS"), "UNCHANGED");
}

TEST_F(ReplaceAllComponentsTest, ChooserCancelled_InsertBringsTheFilesBack) {
  OpenSmallPackage();
  SelectNode("DOC2");
  QbtReplaceAllComponents();
  bool cancelled = false;
  std::string file;
  Dialogs().ChooseNext(R"(\pkg\dst\menu.js)");
  EXPECT_TRUE(QbtInsertComponent(cancelled, file));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js"));
}

TEST_F(ReplaceAllComponentsTest, DocumentWithoutFiles_IsWarnedOfInTheStatusLine) {
  constexpr const char* kWarning = "SCRIPT has no component files. Insert one: ";
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Window().sbcStatusBar.SimpleText.Get(), Not(HasSubstr(kWarning)));
  QbtReplaceAllComponents();
  EXPECT_THAT(Window().sbcStatusBar.SimpleText.Get(), HasSubstr(kWarning));
}

TEST_F(ReplaceAllComponentsTest, OneFile_EmptiesTheListAndSaysNothing) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Choose(R"(\work\new.js)");
  QbtReplaceAllComponents();
  EXPECT_THAT(Listed("2"), IsEmpty());
  EXPECT_FALSE(Exists(R"(\pkg\dst\new.js)"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Protocol(), Not(HasSubstr("Replacing all")));
}

TEST_F(ReplaceAllComponentsTest, FolderWithBlanks_BreaksTheAnswer) {
  OpenSmallPackage();
  Write(R"(\my work\new.js)", "x");
  Write(R"(\my work\one.gif)", "x");
  SelectNode("DOC2");
  Dialogs().ChooseNext(R"(\my work new.js one.gif)");
  QbtReplaceAllComponents();
  EXPECT_THAT(Listed("2"), IsEmpty());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(ReplaceAllComponentsTest, NameWithBlanks_FailsAtItsFirstPart) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "my logo.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(R"(Could not copy file: \work\my -> \pkg\dst\my)")));
  EXPECT_THAT(BoxStyles(), ElementsAre(box::kStop));
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM"));
}

TEST_F(ReplaceAllComponentsTest, OldNamesAgain_AreTakenAnew) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"menu.js", "menu.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js", "menu.gif"));
  EXPECT_EQ(Bytes(R"(\pkg\dst\menu.gif)"), R"(\work\menu.gif)");
  EXPECT_EQ(Bytes(R"(\pkg\dst\BAK\menu.gif)"), R"(\pkg\dst\menu.gif)");
  ResetProgramState();
  Start(kPackage);
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js", "menu.gif")) << "opened again";
}

TEST_F(ReplaceAllComponentsTest, NameThatIsInTheListAlready_StopsThereAndKeepsTheEarlierOnes) {
  for (const auto& [localization, text] :
       {std::pair{false, "A file with the same name is already part of the translation package"},
        std::pair{true, "A file with the same name is already part of the localization package"}}) {
    OpenSmallPackage(localization);
    Boxes().Forget();
    SelectNode("DOC2");
    ChooseInWork({"new.js", "one.gif", "new.js", "two.gif"});
    QbtReplaceAllComponents();
    EXPECT_THAT(Boxes().Texts(), ElementsAre(text));
    EXPECT_THAT(BoxStyles(), ElementsAre(0));
    EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM", "one.gif"));
    EXPECT_FALSE(Exists(R"(\pkg\dst\two.gif)"));
    ResetProgramState();
  }
}

TEST_F(ReplaceAllComponentsTest, FilesOfTheDocumentsOwnFolder_AreRefused) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Dialogs().ChooseNext(R"(\pkg\dst menu.js menu.gif)");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("A file with the same name is already part of the translation package"));
  EXPECT_THAT(Listed("2"), IsEmpty());
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.js)"));
}

TEST_F(ReplaceAllComponentsTest, FileThatCannotBeCopied_StopsThereAndKeepsTheEarlierOnes) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif", "two.gif"});
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kCopy, failure::kDiskFull, "one.gif");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr(R"(Could not copy file: \work\one.gif -> \pkg\dst\one.gif)")));
  EXPECT_THAT(BoxStyles(), ElementsAre(box::kStop));
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM"));
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(ReplaceAllComponentsTest, FirstPieceIsNoFolder_Stops) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Dialogs().ChooseNext(R"(\gone a.js b.gif)");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Listed("2"), IsEmpty());
  EXPECT_THAT(Protocol(), Not(HasSubstr("Replacing all")));
}

TEST_F(ReplaceAllComponentsTest, PackageThatCannotBeWritten_GoesOnWithTheNextFile) {
  OpenSmallPackage();
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif"});
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  const std::string before = Bytes(kPackage);
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not write to PXF", "Could not write to PXF",
                                           HasSubstr("could not be changed: ")));
  EXPECT_TRUE(Exists(R"(\pkg\dst\one.gif)"));
  EXPECT_EQ(Bytes(kPackage), before);
}

TEST_F(ReplaceAllComponentsTest, FileNodeSelected_SelectionGoesToTheDocument) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  ChooseInWork({"new.js", "one.gif"});
  QbtReplaceAllComponents();
  EXPECT_EQ(SelectedKey(), "DOC2");
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM", "one.gif"));
}

TEST_F(ReplaceAllComponentsTest, CompanionSelected_SelectionGoesToTheDocument) {
  OpenSmallPackage();
  Write(R"(\pkg\dst\menu.js.ttx)", "x");
  Loio("DOC2").UpdateView();
  SelectNode("DOC2_menu.js.ttx");
  QbtReplaceAllComponents();
  EXPECT_EQ(SelectedKey(), "DOC2");
  EXPECT_THAT(Shown("DOC2"), IsEmpty());
}

TEST_F(ReplaceAllComponentsTest, ListIsShown_TakesTheSelectedRow) {
  OpenSmallPackage();
  gViewDetailed = true;
  Window().lvInfoObjectList.Select(&Window().lvInfoObjectList.Rows("DOC2"));
  ChooseInWork({"new.js", "one.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM", "one.gif"));
}

TEST_F(ReplaceAllComponentsTest, SourceDocument_HasNoPath) {
  OpenPackageText(SmallPackageWith("DST_CURR", "DST_PREV"));
  SelectNode("DOC2");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Path for object not found"));
}

TEST_F(ReplaceAllComponentsTest, FolderThatCannotBeSaved_KeepsTheList) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kMakeDirectory, failure::kPermissionDenied, "BAK");
  SelectNode("DOC2");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while replacing all component files: #70: ")));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
  EXPECT_THAT(Dialogs().Shown(), IsEmpty());
}

TEST_F(ReplaceAllComponentsTest, ReadOnlyOrOpenDocument_IsRefused) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Loio("DOC2").state->InternalizeState("READONLY_OPEN");
  QbtReplaceAllComponents();
  Loio("DOC2").state->InternalizeState("UNCHANGED");
  QbtTranslate();
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Cannot translate readonly documents", "Document is already open"));
  EXPECT_THAT(Listed("2"), SizeIs(2));
}

TEST_F(ReplaceAllComponentsTest, PathLeadsOutOfThePackage_WritesNothing) {
  MakeFolder(R"(\outside)");
  OpenPackageText(SmallPackageWith("1PATH=dst", R"(1PATH=..\outside)"));
  SelectNode("DOC2");
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_THAT(FilesIn(R"(\outside)"), IsEmpty());
  EXPECT_THAT(Listed("2"), SizeIs(2));
}

TEST_F(ReplaceAllComponentsTest, TargetIsALinkOutOfThePackage_StopsThere) {
  OpenSmallPackage();
  Write(R"(\outside\secret.gif)", "secret");
  if (!MadeLink(Native(R"(\outside\secret.gif)"), Native(R"(\pkg\dst\one.gif)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC2");
  ChooseInWork({"new.js", "one.gif"});
  QbtReplaceAllComponents();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_EQ(Bytes(R"(\outside\secret.gif)"), "secret");
  EXPECT_THAT(Listed("2"), ElementsAre("new.js:PRIM"));
}

TEST_F(ReplaceAllComponentsTest, MenuEntry_RunsTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC2");
  Window().mniReplaceAllComponents.Click();
  EXPECT_THAT(Dialogs().Shown(), SizeIs(1));
}

}  // namespace
}  // namespace qb
