#include <gmock/gmock.h>

#include "support/Links.h"
#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class TranslateTest : public WorkflowTest {
 protected:
  TranslateTest() {
    Write(kPackage, SmallPackage());
    for (const char* path : {R"(\pkg\dst\styles.css)", R"(\pkg\src\styles.css)", R"(\pkg\dst\menu.js)",
                             R"(\pkg\src\menu.js)", R"(\pkg\dst\menu.gif)"}) {
      Write(path, "content");
    }
    // The drive's files are of today, so the session must have been stamped in the future to see no change.
    TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
    Start(kPackage);
  }

  std::string State(std::string_view key) { return gLoios->Item(key)->state->ExternalizeState(); }
  std::string Progress(std::string_view section) { return Entry(kPackage, section, "PROGRESS"); }
};

TEST_F(TranslateTest, QbtTranslate_Document_StartsTheEditorAndOpensTheState) {
  SelectNode("DOC1");
  EXPECT_TRUE(QbtTranslate());
  EXPECT_EQ(Progress("1"), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_EQ(Entry(kPackage, "1", "1STATE"), "INCOMPLETE");
  ASSERT_EQ(TheShell().requests.size(), 1U);
  const ShellRequest& request = TheShell().requests[0];
  EXPECT_EQ(request.verb, "Translate");
  EXPECT_EQ(request.file, "styles.css");
  EXPECT_EQ(request.directory, R"(\pkg\dst)");
  EXPECT_EQ(request.parameters, R"("\pkg\src\styles.css")");
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 11);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtTranslate: TRANSLATE: DOC1"));
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr("Translating: DOC1"));
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

TEST_F(TranslateTest, QbtTranslate_FileNode_ActsOnItsDocument) {
  SelectNode("DOC2_menu.gif");
  EXPECT_TRUE(QbtTranslate());
  EXPECT_EQ(State("DOC2"), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(TranslateTest, AllFour_RootOrNothingSelected_DoNothingAtAll) {
  const std::string before = Bytes(kPackage);
  for (const char* key : {"", "@ROOT"}) {
    if (*key != '\0') SelectNode(key);
    EXPECT_FALSE(QbtTranslate());
    QbtMarkInProgress();
    QbtMarkToBeTranslated();
    QbtMarkCompleted();
  }
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Bytes(kPackage), before);
}

TEST_F(TranslateTest, QbtTranslate_OpenDocument_IsRefused) {
  SelectNode("DOC1");
  QbtTranslate();
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Document is already open"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
}

TEST_F(TranslateTest, QbtTranslate_ReadOnlyOpenDocument_IsRefused) {
  gLoios->Item("DOC1")->state->InternalizeState("READONLY_OPEN");
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Cannot translate readonly documents"));
}

TEST_F(TranslateTest, QbtTranslate_ReadOnlyDocument_FailsInItsTransition) {
  gLoios->Item("DOC1")->state->InternalizeState("READONLY");
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("State change failed"));
  EXPECT_THAT(TheShell().requests, IsEmpty());
}

TEST_F(TranslateTest, QbtTranslate_NoEditorForAnyVerb_TakesTheTransitionBack) {
  TheShell().verbs.clear();
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_EQ(TheShell().requests.size(), 3U);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Could not launch editor.")));
  EXPECT_EQ(Progress("1"), "UNCHANGED");
}

TEST_F(TranslateTest, QbtTranslate_AllSlotsTaken_SaysSoAndCancels) {
  std::string text = SmallPackage();
  text.replace(text.find("INFOBJS=2"), 9, "INFOBJS=4");
  for (const char* number : {"3", "4"}) {
    const std::size_t from = text.find("[1]");
    std::string copy = text.substr(from, text.find("[2]") - from);
    copy.replace(0, 3, "[" + std::string(number) + "]");
    copy.replace(copy.find("LOIO=DOC1"), 9, "LOIO=DOC" + std::string(number));
    text += copy;
  }
  Write(R"(\four\Trans.pxf)", text);
  for (const char* path : {R"(\four\dst\styles.css)", R"(\four\src\styles.css)", R"(\four\dst\menu.js)",
                           R"(\four\src\menu.js)"}) {
    Write(path, "content");
  }
  QbtOpen(R"(\four\Trans.pxf)");
  for (const char* key : {"DOC1", "DOC2", "DOC3"}) {
    SelectNode(key);
    EXPECT_TRUE(QbtTranslate()) << key;
  }
  SelectNode("DOC4");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("no slot available!"));
  EXPECT_EQ(State("DOC4"), "UNCHANGED");
}

TEST_F(TranslateTest, Tick_EditorGoneWithoutChange_ClosesTheDocument) {
  SelectNode("DOC1");
  QbtTranslate();
  TheShell().EndAllProcesses();
  Tick();
  EXPECT_EQ(Progress("1"), "UNCHANGED");
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 0);
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

TEST_F(TranslateTest, Tick_EditorGoneAfterAChange_MarksTheContentChanged) {
  gSessionStamp = "20000101000000";
  SelectNode("DOC1");
  QbtTranslate();
  TheShell().EndAllProcesses();
  Tick();
  EXPECT_EQ(Progress("1"), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Entry(kPackage, "1", "1STATE"), "MODIFIED");
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 1);
  EXPECT_EQ(Window().lvInfoObjectList.Rows("DOC1").SubItems(2), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(TranslateTest, Tick_EditorStillRuns_ChangesNothing) {
  SelectNode("DOC1");
  QbtTranslate();
  const std::string before = Bytes(kPackage);
  Tick();
  EXPECT_EQ(Bytes(kPackage), before);
}

TEST_F(TranslateTest, QbtTranslate_EditorAlreadyGone_IsNoticedBeforeTheStateIsRead) {
  SelectNode("DOC1");
  QbtTranslate();
  TheShell().EndAllProcesses();
  EXPECT_TRUE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TranslateTest, QbtTranslate_TtxCompanion_GoesToTheEditorInstead) {
  Write(R"(\pkg\dst\styles.css.ttx)", "x");
  SelectNode("DOC1");
  QbtTranslate();
  EXPECT_EQ(TheShell().requests[0].file, "styles.css.ttx");
}

TEST_F(TranslateTest, QbtTranslate_WhileVisioWindowsAreOut_OnlySaysSo) {
  gVisioWindows = 1;
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].text, "Close all Visio windows before continuing!");
  EXPECT_EQ(Boxes().Shown()[0].style, box::kExclamation);
  EXPECT_EQ(State("DOC1"), "UNCHANGED");
  Boxes().AnswerNext(box::kYes);
  QbtMarkCompleted();
  EXPECT_EQ(State("DOC1"), "COMPLETE");
}

TEST_F(TranslateTest, QbtTranslate_Visio11Runs_CountsTwoWindows) {
  TheAutomation().visioVersion = "11.0";
  SelectNode("DOC1");
  EXPECT_TRUE(QbtTranslate());
  EXPECT_EQ(gVisioWindows, 2);
}

TEST_F(TranslateTest, QbtTranslate_UnknownDocument_ReportsTheError) {
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(tree.Root(), TableTree::kChild, "GONE_x", "x", 0, 0, 0));
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred while editing a document: #5: ")));
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("GONE"));
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

TEST_F(TranslateTest, QbtTranslate_PathLeavesThePackage_StartsNothing) {
  Write(R"(\outside\evil.css)", "x");
  std::string text = SmallPackage();
  text.replace(text.find("1PATH=dst"), 9, R"(1PATH=..\outside)");
  text.replace(text.find("1FILE_NAME1=styles.css"), 22, "1FILE_NAME1=evil.css");
  Write(R"(\hostile\Trans.pxf)", text);
  Write(R"(\hostile\src\styles.css)", "x");
  QbtOpen(R"(\hostile\Trans.pxf)");
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(TheShell().requests, IsEmpty());
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("leads out of the package")));
  EXPECT_EQ(Entry(R"(\hostile\Trans.pxf)", "1", "PROGRESS"), "UNCHANGED");
}

TEST_F(TranslateTest, QbtTranslate_DocumentFileIsALinkOutOfThePackage_StartsNothing) {
  Write(R"(\outside\secret.css)", "x");
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  if (!MadeLink(Native(R"(\outside\secret.css)"), Native(R"(\pkg\dst\styles.css)"))) GTEST_SKIP() << kNoLinks;
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(TheShell().requests, IsEmpty());
}

TEST_F(TranslateTest, Tick_DuringTheBoxOfAnEndingSession_EndsItOnce) {
  gLoios->Item("DOC1")->ContentEditTransition();
  std::string text = SmallPackage();
  text.replace(text.find("PROCESS=CSS"), 11, "PROCESS=THTM");
  text.replace(text.find("1DOCUMENT_FORMAT=CSS"), 20, "1DOCUMENT_FORMAT=TXT");
  text.replace(text.find("2DOCUMENT_FORMAT=CSS"), 20, "2DOCUMENT_FORMAT=TXT");
  Write(R"(\text\Trans.pxf)", text);
  Write(R"(\text\dst\styles.css)", "x");
  Write(R"(\text\src\styles.css)", "x");
  QbtOpen(R"(\text\Trans.pxf)");
  SelectNode("DOC1");
  ASSERT_TRUE(QbtTranslate());
  gSessionStamp = "1";  // so that the bare name's time of a missing file counts as a change
  TheShell().EndAllProcesses();
  Boxes().WhileNextNotice([this] { Tick(); });
  Tick();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("No hyperlink handling defined for documents of this type")));
  EXPECT_EQ(Entry(R"(\text\Trans.pxf)", "1", "PROGRESS"), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(TranslateTest, QbtTranslate_DocumentFileIsADirectory_DoesNotExist) {
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  MakeFolder(R"(\pkg\dst\styles.css)");
  SelectNode("DOC1");
  EXPECT_FALSE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), Contains("Source document or translation document does not exist"));
}

TEST_F(TranslateTest, Return_OnRoot_DoesNothingOnADocumentTranslates) {
  SelectNode("@ROOT");
  Window().TransPackTree.KeyPress(13);
  EXPECT_THAT(TheShell().requests, IsEmpty());
  SelectNode("DOC1");
  Window().TransPackTree.KeyPress(65);
  EXPECT_THAT(TheShell().requests, IsEmpty());
  Window().TransPackTree.KeyPress(13);
  EXPECT_EQ(TheShell().requests.size(), 1U);
}

}  // namespace
}  // namespace qb
