// What the office reports of a document that is out, in any order, and what ends a session.

#include <gmock/gmock.h>

#include "support/BridgeTest.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class BridgeEventsTest : public BridgeTest {
 protected:
  bool TimersRun() { return Window().tmrTimer1.Enabled && Window().tmrTimer2.Enabled; }
};

TEST_F(BridgeEventsTest, Saved_WritesTitleLinksAndState) {
  StartWithWord();
  OpenSession();
  Translation().properties["Title"] = std::string("New styles");
  Translation().links = {{"http://one", "http://two", "http://one"}};
  Office().UserSaves(translation_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Title(), "New styles");
  EXPECT_EQ(Links(), "3: http://one http://two http://one ");
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_TRUE(TimersRun());
  EXPECT_EQ(closes_, 0);
}

TEST_F(BridgeEventsTest, Saved_NoPollRunsMeanwhile) {
  StartWithWord();
  OpenSession();
  bool ran = true;
  Office().During(R"(document \pkg\dst\text.doc HostDocument)", [&] { ran = TimersRun(); });
  Office().UserSaves(translation_);
  EXPECT_FALSE(ran);
  EXPECT_TRUE(TimersRun());
}

TEST_F(BridgeEventsTest, SavedTwiceThenClosed_IsChangedAndClosed) {
  StartWithWord();
  OpenSession();
  Office().UserSaves(translation_);
  Office().UserSaves(translation_);
  Office().UserCloses(translation_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_FALSE(Shows(source_)) << "the source goes with its translation";
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_GE(closes_, 1);
}

TEST_F(BridgeEventsTest, SourceSaved_IsNoChange) {
  StartWithWord();
  OpenSession();
  Office().UserSaves(source_);
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(BridgeEventsTest, TranslationClosed_ClosesTheGroupAndTheDocument) {
  StartWithWord();
  OpenSession();
  Office().UserCloses(translation_);
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(session_->docDst(), nullptr);
  EXPECT_EQ(session_->docSrc(), nullptr);
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_TRUE(TimersRun());
  EXPECT_EQ(gVisioWindows, -2);
}

TEST_F(BridgeEventsTest, TranslationClosed_SingleDocumentEditor_ClosesBothGroupsTheSourceFirst) {
  StartWithHtml();
  OpenSession();
  Office().UserCloses(translation_);
  // The event of the source's close asks its own group once more.
  EXPECT_THAT(Office().calls,
              ElementsAre(R"(group \pkg\src\text.html Documents)", R"(group \pkg\src\text.html Count)",
                          R"(group \pkg\src\text.html Close)", R"(group \pkg\src\text.html Documents)",
                          R"(group \pkg\src\text.html Count)", R"(group \pkg\dst\text.html Documents)",
                          R"(group \pkg\dst\text.html Count)"));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(Progress(), "UNCHANGED");
}

TEST_F(BridgeEventsTest, SourceClosed_ClosesTheTranslationWhoseEventMakesTheTransition) {
  for (const bool translationFirst : {false, true}) {
    StartWithWord();
    OpenSession();
    Office().closesTranslationFirst = translationFirst;
    Office().UserCloses(source_);
    EXPECT_FALSE(Shows(translation_));
    EXPECT_EQ(Progress(), "UNCHANGED");
    EXPECT_FALSE(session_->IsOpen());
    EXPECT_TRUE(TimersRun());
    ResetProgramState();
    session_ = std::make_shared<CEditor>();
  }
}

TEST_F(BridgeEventsTest, SourceClosed_SingleDocumentEditor_ClosesTheTranslationInItsOwnGroup) {
  StartWithHtml();
  OpenSession();
  Office().savesAtClose = translation_;
  Office().UserCloses(source_);
  EXPECT_THAT(Office().calls, Contains(R"(group \pkg\dst\text.html Close)"));
  EXPECT_FALSE(Shows(translation_));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
}

TEST_F(BridgeEventsTest, SourceClosed_TranslationRaisesNoEvent_MakesNoTransitionOfItsOwn) {
  StartWithWord();
  OpenSession();
  const auto source = session_->docSrc();
  Office().raisesCloseEvents = false;
  source->RaiseOnPostClose();
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(closes_, 1);
}

TEST_F(BridgeEventsTest, SourceClosed_TranslationIsSavedByItsGroup_IsNotLost) {
  StartWithWord();
  OpenSession();
  Office().savesAtClose = translation_;
  Office().UserCloses(source_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(BridgeEventsTest, SourceClosed_TracedNameEndsInABlank) {
  StartWithWord();
  OpenSession();
  Office().UserCloses(source_);
  EXPECT_THAT(TraceLines(), Contains("CEditor.docSrc_OnPostClose : ->"));
  EXPECT_THAT(TraceLines(), Contains("CEditor.docSrc_OnPostClose : <-"));
  EXPECT_THAT(TraceLines(), Contains("CEditor.docDst_OnPostClose: <-"));
}

TEST_F(BridgeEventsTest, SessionDroppedByItsOwnEvent_LivesUntilTheEventIsHandled) {
  StartWithWord();
  OpenSession();
  std::weak_ptr<CEditor> watched = session_;
  session_->OnClose = [this] { session_.reset(); };
  Office().UserCloses(translation_);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(Progress(), "UNCHANGED");
}

TEST_F(BridgeEventsTest, EventsOfADroppedSession_ReachNobody) {
  StartWithWord();
  OpenSession();
  const auto translation = session_->docDst();
  session_.reset();
  translation->RaiseOnPostLocalSave();
  translation->RaiseOnPostClose();
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(BridgeEventsTest, ClosedWhileASaveIsTakenOver_KeepsTheChange) {
  StartWithWord();
  OpenSession();
  Office().During(R"(document \pkg\dst\text.doc HostDocument)",
                  [this] { Office().UserCloses(translation_); });
  Office().UserSaves(translation_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_FALSE(Shows(source_));
}

TEST_F(BridgeEventsTest, SavedAgainWhileASaveIsTakenOver_KeepsWhatTheOuterOneRead) {
  StartWithWord();
  OpenSession();
  Translation().links = {{"http://one"}};
  Office().During(R"(document \pkg\dst\text.doc HostDocument)", [this] { Office().UserSaves(translation_); });
  Office().UserSaves(translation_);
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Links(), "1: http://one ");
}

TEST_F(BridgeEventsTest, GroupDoesNotClose_TellsWhoRaisedTheEventAndStartsTheTimers) {
  StartWithWord();
  OpenSession();
  Office().RaiseAt(R"(group \pkg\dst\text.doc Close)", 4711);
  EXPECT_THROW(Office().UserCloses(translation_), RuntimeError);
  EXPECT_TRUE(TimersRun());
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
}

// --- Visio of the old version

TEST_F(BridgeEventsTest, OldVisio_TranslationClosed_KeepsTheGroupsAndDoesNotEndTheSession) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  OpenSession();
  Office().UserCloses(translation_);
  EXPECT_THAT(Office().calls, IsEmpty());
  EXPECT_TRUE(Shows(source_));
  EXPECT_EQ(gVisioWindows, 1);
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(closes_, 0);
  Office().UserCloses(source_);
  EXPECT_EQ(gVisioWindows, 0);
  EXPECT_EQ(closes_, 0);
}

TEST_F(BridgeEventsTest, OldVisio_SourceClosed_OnlyEndsTheSession) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  OpenSession();
  Office().UserCloses(source_);
  EXPECT_TRUE(Shows(translation_));
  EXPECT_EQ(gVisioWindows, 1);
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
  Office().UserCloses(translation_);
  EXPECT_EQ(gVisioWindows, 0);
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_TRUE(TimersRun());
}

// --- polls

TEST_F(BridgeEventsTest, IsOpen_BridgeIsThere_AsksNobody) {
  StartWithWord();
  OpenSession();
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_THAT(Office().calls, IsEmpty());
}

// --- closes by the program

TEST_F(BridgeEventsTest, CloseEditor_ClosesTheGroupAndRepeatsTransitionAndEvent) {
  StartWithWord();
  OpenSession();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_THAT(Office().calls, Contains(R"(group \pkg\dst\text.doc Close)"));
  EXPECT_FALSE(Shows(translation_));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(Progress(), "UNCHANGED");
  EXPECT_EQ(session_->objBridge(), nullptr);
  EXPECT_GE(closes_, 2) << "once in the event of the close, once at its own end";
  EXPECT_THAT(TheShell().requests, IsEmpty());
}

TEST_F(BridgeEventsTest, CloseEditor_SingleDocumentEditor_ClosesBothAndBothBridges) {
  StartWithHtml();
  OpenSession();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_FALSE(Shows(translation_));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(session_->objBridge(), nullptr);
}

TEST_F(BridgeEventsTest, CloseEditor_GroupRefuses_IsFalseWithoutAMessage) {
  StartWithWord();
  OpenSession();
  Office().RaiseAt(R"(group \pkg\dst\text.doc Close)");
  EXPECT_FALSE(session_->CloseEditor());
  EXPECT_EQ(Err.Number, 0);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_TRUE(Shows(translation_));
  EXPECT_FALSE(session_->IsOpen()) << "the next poll finds the group gone";
  EXPECT_EQ(Progress(), "UNCHANGED");
}

TEST_F(BridgeEventsTest, CloseEditor_SourceGroupRefuses_IsFalseAndTheTranslationIsClosed) {
  StartWithHtml();
  OpenSession();
  // The event of the translation's close tries the source first, and fails; then the session does so itself.
  Office().RaiseAt(R"(group \pkg\src\text.html Close)");
  EXPECT_FALSE(session_->CloseEditor());
  EXPECT_FALSE(Shows(translation_));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(BridgeEventsTest, CloseEditor_GroupRaisesNoEvents_OnlyEndsTheSession) {
  StartWithWord();
  OpenSession();
  Office().raisesCloseEvents = false;
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(closes_, 0);
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(BridgeEventsTest, CloseEditor_UnsavedWorkIsSavedByItsGroup_IsTakenOver) {
  StartWithWord();
  OpenSession();
  Office().savesAtClose = translation_;
  Translation().links = {{"http://late"}};
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_EQ(Progress(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(Links(), "1: http://late ");
}

TEST_F(BridgeEventsTest, CloseEditor_OldVisio_LeavesTheWindowsAndCountsTheProcessAsGone) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  OpenSession();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("Close"))));
  EXPECT_TRUE(Shows(translation_));
  EXPECT_EQ(State(), "UNCHANGED");
  EXPECT_EQ(closes_, 1);
}

TEST_F(BridgeEventsTest, CloseEditor_OldVisioAndHtml_ClosesNothing) {
  StartWithHtml();
  TheAutomation().visioVersion = "11.0";
  OpenSession();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_TRUE(Shows(translation_));
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_FALSE(session_->IsOpen());
}

TEST_F(BridgeEventsTest, CloseEditor_AlreadyClosed_IsTrueAndAsksNobody) {
  StartWithWord();
  OpenSession();
  Office().UserCloses(translation_);
  Office().Forget();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_THAT(Office().calls, IsEmpty());
}

}  // namespace
}  // namespace qb
