// The user's commands on a document that belongs to an office application.

#include <gmock/gmock.h>

#include "support/BridgeTest.h"
#include "support/FaultyFileSystem.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class BridgeDocumentTest : public BridgeTest {
 protected:
  bool Translate() {
    SelectNode("DOC1");
    return QbtTranslate();
  }
};

TEST_F(BridgeDocumentTest, TranslateSaveCloseComplete_StandsInThePackage) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  EXPECT_EQ(Progress(), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_TRUE(Shows(translation_));
  EXPECT_TRUE(Shows(source_));
  Translation().properties["Title"] = std::string("New styles");
  Translation().links = {{"http://one"}};
  Office().UserSaves(translation_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  Office().UserCloses(translation_);
  EXPECT_FALSE(Shows(source_));
  EXPECT_TRUE(gEditorSlots->CheckSlots());
  Tick();
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Text(), "New styles");
  QbtMarkCompleted();
  EXPECT_EQ(Progress(), "COMPLETE");
  EXPECT_EQ(Title(), "New styles");
  EXPECT_EQ(Links(), "1: http://one ");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(BridgeDocumentTest, TranslateAndCloseWithoutASave_LeavesTheDocumentAsItWas) {
  StartWithPresentation();
  EXPECT_TRUE(Translate());
  Office().UserCloses(source_);
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 0);
  EXPECT_TRUE(Translate()) << "it can go out again";
}

TEST_F(BridgeDocumentTest, OpenDocument_RefusesTranslateAndMarks) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  EXPECT_FALSE(Translate());
  QbtMarkCompleted();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Document is already open", "Cannot change open status for object"));
  EXPECT_EQ(Progress(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(BridgeDocumentTest, ChangedDocumentThatIsOut_IsNotOpenedTwice) {
  StartWithWord();
  gLoios->Item("DOC1")->state->InternalizeState("MODIFIED");
  EXPECT_TRUE(Translate());
  EXPECT_FALSE(Translate()) << "its state does not show that it is out, but the office knows";
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Document is already open!"));
  EXPECT_EQ(State(), "MODIFIED");
  Office().UserSaves(translation_);
  Office().UserCloses(translation_);
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

TEST_F(BridgeDocumentTest, OfficeFails_TakesTheTransitionBack) {
  StartWithWord();
  Office().RaiseAt(R"(group \pkg\dst\text.doc Open(\pkg\src\text.doc, 1))");
  EXPECT_FALSE(Translate());
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("Source document or translation document does not exist")));
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

TEST_F(BridgeDocumentTest, OfficeFailsAtEachCallOfAnOpening_TakesTheTransitionBack) {
  for (const bool web : {false, true}) {
    const auto start = [&] { web ? StartWithHtml() : StartWithWord(); };
    start();
    ASSERT_TRUE(Translate());
    const std::vector<std::string> calls = Office().calls;
    int refusals = 0;
    for (const std::string& call : calls) {
      SCOPED_TRACE(call);
      ResetProgramState();
      start();
      Boxes().Forget();
      Office().RaiseAt(call);
      const bool open = Translate();
      EXPECT_EQ(Progress(), open ? "OPENUNCHANGED_C_UNCHANGED_T" : "UNCHANGED");
      EXPECT_EQ(gEditorSlots->CheckSlots(), !open);
      EXPECT_EQ(Boxes().Texts().empty(), open);
      refusals += open ? 0 : 1;
    }
    EXPECT_GT(refusals, 5);
    ResetProgramState();
  }
}

TEST_F(BridgeDocumentTest, SourceClosedWhileOpening_LeavesNothingBehind) {
  StartWithWord();
  Office().During(R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 0))",
                  [this] { Office().UserCloses(source_); });
  EXPECT_FALSE(Translate());
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_FALSE(Shows(translation_));
  EXPECT_TRUE(gEditorSlots->CheckSlots());
  EXPECT_TRUE(Translate());
}

TEST_F(BridgeDocumentTest, PackageThatCannotBeWrittenAtASave_IsToldAndTheNextSaveBringsAll) {
  StartWithWord();
  ASSERT_TRUE(Translate());
  const std::string before = Bytes(kPackage);
  FaultyFileSystem& faults = InstallFaultyFiles(ThePlatform());
  faults.Fail(FileOperation::kReplaceContent, failure::kDiskFull, "Trans.pxf");
  Translation().properties["Title"] = std::string("New styles");
  Translation().links = {{"http://one"}};
  Office().UserSaves(translation_);
  Tick();
  EXPECT_THAT(Boxes().Texts(), Contains(HasSubstr("could not be changed: ")));
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_FALSE(gEditorSlots->CheckSlots()) << "the document is still out";
  faults.Heal();
  Boxes().Forget();
  Office().UserSaves(translation_);
  Office().UserCloses(translation_);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Title(), "New styles");
  EXPECT_EQ(Links(), "1: http://one ");
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(BridgeDocumentTest, Quit_ClosesTheDocumentsAndKeepsWhatTheOfficeSaves) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  Office().savesAtClose = translation_;
  Translation().links = {{"http://late"}};
  Boxes().AnswerNext(box::kYes);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Do you really want to quit Quillbank Translator?"));
  EXPECT_FALSE(Shows(translation_));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Links(), "1: http://late ");
}

TEST_F(BridgeDocumentTest, Quit_UserStays_ClosesNothing) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  Boxes().AnswerNext(box::kNo);
  EXPECT_FALSE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(Shows(translation_));
  EXPECT_FALSE(gEditorSlots->CheckSlots());
}

TEST_F(BridgeDocumentTest, Quit_OfficeRefusesToClose_EndsAllTheSame) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  Office().RaiseAt(R"(group \pkg\dst\text.doc Close)");
  EXPECT_TRUE(EndsProcess([] { QbtQuit(true); }));
}

TEST_F(BridgeDocumentTest, OtherPackageOpened_DocumentsOfTheFirstReachNeitherPackage) {
  StartWithWord();
  EXPECT_TRUE(Translate());
  Write(R"(\other\Trans.pxf)", SmallPackage());
  Write(R"(\other\dst\styles.css)", "x");
  QbtOpen(R"(\other\Trans.pxf)");
  EXPECT_TRUE(Shows(translation_)) << "nothing closes the window of a user at work";
  const std::string first = Bytes(kPackage);
  const std::string other = Bytes(R"(\other\Trans.pxf)");
  Office().UserSaves(translation_);
  Office().UserCloses(translation_);
  EXPECT_EQ(Bytes(kPackage), first);
  EXPECT_EQ(Bytes(R"(\other\Trans.pxf)"), other);
  EXPECT_EQ(State(), "UNCHANGED");
}

TEST_F(BridgeDocumentTest, OldVisioPair_GatesTranslateAndQuitUntilBothWindowsAreClosed) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  EXPECT_TRUE(Translate());
  SelectNode("DOC2");
  EXPECT_FALSE(QbtTranslate());
  QbtQuit(false);
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Close all Visio windows before continuing!",
                                           "Close all Visio windows before continuing!"));
  Office().UserCloses(translation_);
  EXPECT_FALSE(QbtTranslate());
  Office().UserCloses(source_);
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_TRUE(QbtTranslate());
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("Close"))));
}

TEST_F(BridgeDocumentTest, OldVisioPair_KeepsItsSlotUntilTheCountHasRunDown) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  EXPECT_TRUE(Translate());
  Office().UserCloses(source_);
  Tick();
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
  Office().UserCloses(translation_);
  EXPECT_EQ(Progress(), "UNCHANGED") << "the ended session still hears of its translation";
  Tick();
  EXPECT_TRUE(gEditorSlots->CheckSlots());
}

TEST_F(BridgeDocumentTest, SessionEnds_PollFindsTheSlotFree) {
  StartWithHtml();
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(Translate()) << i;
    Office().UserCloses(i % 2 == 0 ? translation_ : source_);
  }
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

}  // namespace
}  // namespace qb
