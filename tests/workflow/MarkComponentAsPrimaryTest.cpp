#include "workflow/ComponentCommands.h"
#include "workflow/DocumentCommands.h"
#include "workflow/FileCommandTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class MarkComponentAsPrimaryTest : public FileCommandTest {};

TEST_F(MarkComponentAsPrimaryTest, File_BecomesThePrimaryOne) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.gif:PRIM", "menu.js"));
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC2_menu.gif").Image(), 10);
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC2_menu.js").Image(), 12);
  EXPECT_EQ(Value("2", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_TRUE(SizeIsWritten());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Protocol(), HasSubstr("Message         Marking as primary component file: DOC2"));
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtMarkComponentAsPrimary: SET PRIM: DOC2"));
}

TEST_F(MarkComponentAsPrimaryTest, PrimaryFileAgain_StaysSo) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.js");
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
}

TEST_F(MarkComponentAsPrimaryTest, TransitionThatFails_KeepsTheMarkWithoutAWord) {
  OpenSmallPackage();
  Loio("DOC2").state->InternalizeState("READONLY");
  SelectNode("DOC2_menu.gif");
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.gif:PRIM", "menu.js"));
  EXPECT_EQ(State("DOC2"), "READONLY");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Protocol(), Not(HasSubstr("Marking")));
}

TEST_F(MarkComponentAsPrimaryTest, MarkThatIsNotWritten_RunsTheTransitionsAllTheSame) {
  OpenSmallPackage();
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  SelectNode("DOC2_menu.gif");
  QbtMarkComponentAsPrimary();
  EXPECT_EQ(State("DOC2"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("The package file could not be changed: ")));
  EXPECT_THAT(Protocol(), Not(HasSubstr("Marking")));
}

TEST_F(MarkComponentAsPrimaryTest, DocumentSelected_HasNoSuchFile) {
  OpenSmallPackage();
  SelectNode("DOC2");
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Component file not found (DOC2)"));
}

TEST_F(MarkComponentAsPrimaryTest, NothingOrTheRootSelected_DoesNothing) {
  OpenSmallPackage();
  QbtMarkComponentAsPrimary();
  SelectNode("@ROOT");
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(MarkComponentAsPrimaryTest, ReadOnlyOrOpenDocument_IsRefused) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Loio("DOC2").state->InternalizeState("READONLY_OPEN");
  QbtMarkComponentAsPrimary();
  Loio("DOC2").state->InternalizeState("UNCHANGED");
  QbtTranslate();
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Cannot translate readonly documents", "Document is already open"));
  EXPECT_THAT(Listed("2"), ElementsAre("menu.js:PRIM", "menu.gif"));
}

TEST_F(MarkComponentAsPrimaryTest, UnknownDocument_IsReported) {
  OpenSmallPackage();
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(tree.Root(), TableTree::kChild, "GONE_x", "x", 0, 0, 0));
  QbtMarkComponentAsPrimary();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while marking a component file a primary: #5: ")));
}

TEST_F(MarkComponentAsPrimaryTest, MenuEntry_RunsTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC2_menu.gif");
  Window().mniMarkAsPrimaryComponent.Click();
  EXPECT_THAT(Listed("2"), ElementsAre("menu.gif:PRIM", "menu.js"));
}

}  // namespace
}  // namespace qb
