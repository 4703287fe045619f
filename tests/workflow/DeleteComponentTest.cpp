#include "support/Links.h"
#include "workflow/ComponentCommands.h"
#include "workflow/FileCommandTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kQuestion = "Are you sure you want to delete the delected component file?";

class DeleteComponentTest : public FileCommandTest {};

TEST_F(DeleteComponentTest, Yes_TakesTheFileFromDiskPackageAndTree) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM"));
  EXPECT_EQ(Value("2", "1FILE_NAME2"), "");
  EXPECT_THAT(Shown("DOC2"), ElementsAre("menu.js"));
  EXPECT_EQ(SelectedKey(), "DOC2") << "the keyboard has something to go on with";
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kQuestion));
  EXPECT_THAT(BoxStyles(), ElementsAre(box::kYesNo));
  EXPECT_THAT(Protocol(), HasSubstr("Message         Deleting component file: DOC2"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtDeleteComponent: DELETE COMPONENT: DOC2"));
  EXPECT_FALSE(Exists(R"(\pkg\dst\BAK)"));
}

TEST_F(DeleteComponentTest, No_ChangesNothing) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  const std::string before = Bytes(kPackage);
  Boxes().AnswerNext(box::kNo);
  QbtDeleteComponent();
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
}

TEST_F(DeleteComponentTest, ReadOnlyFile_Goes) {
  OpenSmallPackage();
  ThePlatform().files->SetAttributes(R"(\pkg\dst\menu.gif)", attribute::kReadOnly);
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kQuestion));
}

TEST_F(DeleteComponentTest, PrimaryFile_IsRefusedBeforeThePathIsLookedAt) {
  OpenPackageText(SmallPackageWith("1PATH=dst", R"(1PATH=..\outside)"));
  SelectNode("DOC2_menu.js");
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Sorry, you may not delete the primary component file"));
  EXPECT_THAT(BoxStyles(), ElementsAre(0));
}

TEST_F(DeleteComponentTest, FileThatCannotBeDeleted_IsSaidAndLeavesTheList) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kRemove, failure::kPermissionDenied, "menu.gif");
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kQuestion, "File could not be deleted"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM"));
  EXPECT_TRUE(Exists(R"(\pkg\dst\menu.gif)"));
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(DeleteComponentTest, FileThatIsMissing_IsSaidAndLeavesTheList) {
  OpenSmallPackage();
  std::filesystem::remove(Native(R"(\pkg\dst\menu.gif)"));
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kQuestion, "File could not be deleted"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM"));
}

TEST_F(DeleteComponentTest, DocumentSelected_HasNoSuchFile) {
  OpenSmallPackage();
  SelectNode("DOC2");
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Component file not found (DOC2)"));
}

TEST_F(DeleteComponentTest, ListIsShown_HasNoSuchFile) {
  OpenSmallPackage();
  gViewDetailed = true;
  SelectNode("DOC2_menu.gif");
  Window().lvInfoObjectList.Select(&Window().lvInfoObjectList.Rows("DOC2"));
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Component file not found (DOC2)"));
}

TEST_F(DeleteComponentTest, NothingOrTheRootSelected_DoesNothing) {
  OpenSmallPackage();
  QbtDeleteComponent();
  SelectNode("@ROOT");
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(DeleteComponentTest, ReadOnlyOrOpenDocument_IsNotRefused) {
  for (const char* state : {"READONLY_OPEN", "OPENUNCHANGED_C_UNCHANGED_T"}) {
    OpenSmallPackage();
    Loio("DOC2").state->InternalizeState(state);
    SelectNode("DOC2_menu.gif");
    Boxes().AnswerNext(box::kYes);
    QbtDeleteComponent();
    EXPECT_FALSE(Exists(R"(\pkg\dst\menu.gif)")) << state;
    EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM")) << state;
    ResetProgramState();
  }
}

TEST_F(DeleteComponentTest, HostileName_DeletesNothingOutside) {
  Write(R"(\outside\secret.gif)", "secret");
  for (const char* name : {R"(..\..\outside\secret.gif)", R"(x\..\..\..\outside\secret.gif)"}) {
    OpenPackageText(SmallPackageWith("menu.gif", name));
    Boxes().Forget();
    SelectNode(std::string("DOC2_") + name);
    QbtDeleteComponent();
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package. Nothing is changed.")));
    EXPECT_EQ(Bytes(R"(\outside\secret.gif)"), "secret");
    ResetProgramState();
  }
}

TEST_F(DeleteComponentTest, LinkOutOfThePackage_KeepsWhatItLeadsTo) {
  OpenSmallPackage();
  Write(R"(\outside\secret.gif)", "secret");
  ThePlatform().files->SetAttributes(R"(\outside\secret.gif)", attribute::kReadOnly);
  std::filesystem::remove(Native(R"(\pkg\dst\menu.gif)"));
  if (!MadeLink(Native(R"(\outside\secret.gif)"), Native(R"(\pkg\dst\menu.gif)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC2_menu.gif");
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("leads out of the package")));
  EXPECT_TRUE(ThePlatform().files->Find(R"(\outside\secret.gif)")->attributes & attribute::kReadOnly);
}

TEST_F(DeleteComponentTest, PackageThatListsItself_IsNotDeleted) {
  OpenPackageText(SmallPackageWith("menu.gif", R"(..\Trans.pxf)"));
  SelectNode(R"(DOC2_..\Trans.pxf)");
  QbtDeleteComponent();
  ASSERT_THAT(Boxes().Texts(), SizeIs(1));
  EXPECT_TRUE(Exists(kPackage));
}

TEST_F(DeleteComponentTest, PackageInItsOwnFolder_IsNotDeleted) {
  std::string text = SmallPackageWith("menu.gif", "TRANS.pxf");
  const std::size_t second = text.find("[2]");
  text.replace(text.find("1PATH=dst", second), 9, "1PATH=.");
  OpenPackageText(text);
  SelectNode("DOC2_TRANS.pxf");
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("is the package file itself")));
  EXPECT_TRUE(Exists(kPackage));
}

TEST_F(DeleteComponentTest, LastFileThatIsNotPrimary_IsWarnedOfInTheStatusLine) {
  OpenSmallPackage();
  SelectNode("DOC1_styles.css");
  Choose(R"(\work\new.css)");
  QbtReplaceComponent();
  Boxes().AnswerNext(box::kYes);
  QbtDeleteComponent();
  EXPECT_THAT(Listed("1"), IsEmpty());
  EXPECT_THAT(Window().sbcStatusBar.SimpleText.Get(), HasSubstr("STYLES has no component files."));
}

TEST_F(DeleteComponentTest, OtherProgramChangesThePackageMeanwhile_BothChangesStand) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes, [&] {
    std::string text = Bytes(kPackage);
    const std::size_t at = text.find("PROGRESS=");
    text.replace(at, text.find("\r\n", at) - at, "PROGRESS=COMPLETE");
    Write(kPackage, text);
  });
  QbtDeleteComponent();
  EXPECT_EQ(Value("1", "PROGRESS"), "COMPLETE");
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM"));
}

TEST_F(DeleteComponentTest, OtherProgramRemovesThePackageMeanwhile_IsSaid) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Boxes().AnswerNext(box::kYes, [&] { std::filesystem::remove(Native(kPackage)); });
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(kQuestion, HasSubstr("The package file could not be changed: ")));
  EXPECT_FALSE(Exists(kPackage));
}

TEST_F(DeleteComponentTest, UnknownDocument_IsReported) {
  OpenSmallPackage();
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(tree.Root(), TableTree::kChild, "GONE_x", "x", 0, 0, 0));
  QbtDeleteComponent();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred trying to delete a component file: #5: ")));
}

TEST_F(DeleteComponentTest, MenuEntry_RunsTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.js");
  Window().mniDeleteComponent.Click();
  EXPECT_THAT(Boxes().Texts(), SizeIs(1));
}

}  // namespace
}  // namespace qb
