// Steps, failures and results of sending a document to its office application.

#include <gmock/gmock.h>

#include "editors/EditorQuestions.h"
#include "foundation/gRvdFile.h"
#include "support/BridgeTest.h"
#include "support/Links.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::Not;

constexpr const char* kFailed = "Source document or translation document does not exist";

class BridgeOpeningTest : public BridgeTest {
 protected:
  void ExpectFailed() {
    EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kFailed)));
    EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
    EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr(kFailed));
    EXPECT_FALSE(session_->IsOpen());
    EXPECT_EQ(session_->objBridge(), nullptr);
    EXPECT_EQ(session_->objSecondBridge(), nullptr);
    EXPECT_EQ(session_->docDst(), nullptr);
    EXPECT_EQ(session_->docSrc(), nullptr);
    EXPECT_EQ(Err.Number, 0);
    EXPECT_EQ(closes_, 0);
  }
};

TEST_F(BridgeOpeningTest, WordDocument_MakesEveryCallInItsOrder) {
  StartWithWord();
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(
      Office().calls,
      ElementsAre(
          "new bridge 1", "bridge 1 Groups", R"(Groups.Item(\pkg\dst\text.doc))", "bridge 1 Groups",
          R"(Groups.Add(\pkg\dst\text.doc))", "bridge 1 QueryCapability(application/msword, 28)",
          "bridge 1 QueryCapability(application/msword, 25)",
          "bridge 1 QueryCapability(application/msword, 9)", R"(group \pkg\dst\text.doc Documents)",
          R"(group \pkg\dst\text.doc Open(\pkg\src\text.doc, 1))", R"(group \pkg\dst\text.doc Documents)",
          R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 0))",
          R"(document \pkg\dst\text.doc Application)", R"(document \pkg\dst\text.doc Application.Name)",
          R"(document \pkg\dst\text.doc CustomProperties)",
          R"(document \pkg\dst\text.doc CustomProperties.Item(Title))",
          R"(document \pkg\dst\text.doc Title.Value = Styles)", R"(group \pkg\dst\text.doc Arrange(3))"));
  EXPECT_TRUE(session_->IsOpen());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(TheShell().requests, IsEmpty());
}

TEST_F(BridgeOpeningTest, HtmlDocument_HasABridgeForEachFileAndIsNotArranged) {
  StartWithHtml();
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(
      Office().calls,
      ElementsAre("new bridge 1", "new bridge 2", "bridge 1 Groups", R"(Groups.Item(\pkg\dst\text.html))",
                  "bridge 2 Groups", R"(Groups.Item(\pkg\src\text.html))", "bridge 1 Groups",
                  R"(Groups.Add(\pkg\dst\text.html))", "bridge 2 Groups", R"(Groups.Add(\pkg\src\text.html))",
                  "bridge 1 QueryCapability(text/html, 28)", "bridge 1 QueryCapability(text/html, 25)",
                  "bridge 1 QueryCapability(text/html, 9)", R"(group \pkg\src\text.html Documents)",
                  R"(group \pkg\src\text.html Open(\pkg\src\text.html, 1))",
                  R"(group \pkg\dst\text.html Documents)",
                  R"(group \pkg\dst\text.html Open(\pkg\dst\text.html, 0))"));
  EXPECT_NE(session_->objSecondBridge(), nullptr);
  EXPECT_TRUE(session_->IsOpen());
}

TEST_F(BridgeOpeningTest, NoOffice_EndsInTheText) {
  StartWithWord();
  gEditorQuestions.newDocumentBridge = nullptr;
  ExpectFailed();
}

TEST_F(BridgeOpeningTest, EveryCallThatMustSucceed_Raises_EndsInTheTextAndForgetsTheBridge) {
  StartWithHtml();
  ASSERT_TRUE(session_->OpenForTranslation("DOC1"));
  std::vector<std::string> calls = Office().calls;
  for (const std::string& call : calls) {
    if (call.starts_with("Groups.Item")) continue;
    Boxes().Forget();
    office_ = ScriptedBridge::Install();
    Office().capabilities["text/html 9"] = 1;
    session_ = std::make_shared<CEditor>();
    session_->OnClose = [this] { ++closes_; };
    Office().RaiseAt(call);
    SCOPED_TRACE(call);
    ExpectFailed();
  }
}

TEST_F(BridgeOpeningTest, EveryCallThatGivesAnObject_GivesNothing_EndsInTheText) {
  for (const char* call :
       {"new bridge 1", "new bridge 2", R"(Groups.Add(\pkg\dst\text.html))",
        R"(Groups.Add(\pkg\src\text.html))", R"(group \pkg\src\text.html Documents)",
        R"(group \pkg\dst\text.html Documents)", R"(group \pkg\src\text.html Open(\pkg\src\text.html, 1))",
        R"(group \pkg\dst\text.html Open(\pkg\dst\text.html, 0))"}) {
    StartWithHtml();
    Boxes().Forget();
    Office().GiveNothingAt(call);
    SCOPED_TRACE(call);
    ExpectFailed();
    ResetProgramState();
  }
}

TEST_F(BridgeOpeningTest, ObjectIsNotWhatItIsAskedFor_EndsInTheText) {
  for (const char* call :
       {R"(Groups.Add(\pkg\dst\text.doc))", R"(group \pkg\dst\text.doc Open(\pkg\src\text.doc, 1))",
        R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 0))"}) {
    StartWithWord();
    Boxes().Forget();
    Office().GiveForeignObjectAt(call);
    SCOPED_TRACE(call);
    ExpectFailed();
    ResetProgramState();
  }
}

TEST_F(BridgeOpeningTest, ArrangeFails_LeavesTheDocumentsOnTheScreen) {
  StartWithWord();
  Office().RaiseAt(R"(group \pkg\dst\text.doc Arrange(3))");
  ExpectFailed();
  EXPECT_TRUE(Shows(source_));
  EXPECT_TRUE(Shows(translation_));
  EXPECT_THAT(Office().calls, Not(Contains(R"(group \pkg\dst\text.doc Close)")));
}

TEST_F(BridgeOpeningTest, DocumentLeftOnTheScreenAfterAFailure_NoLongerReachesTheSession) {
  StartWithWord();
  Office().RaiseAt(R"(group \pkg\dst\text.doc Arrange(3))");
  gLoios->Item("DOC1")->ContentEditTransition();
  ExpectFailed();
  Office().UserSaves(translation_);
  Office().UserCloses(translation_);
  EXPECT_EQ(State(), "OPENUNCHANGED_C_UNCHANGED_T");
  EXPECT_EQ(closes_, 0);
}

TEST_F(BridgeOpeningTest, GroupAlreadyOpenOnTheTranslation_SaysSoAndMakesNoGroup) {
  StartWithWord();
  Office().AddForeignGroup(translation_);
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Document is already open!"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("Groups.Add"))));
  EXPECT_FALSE(session_->IsOpen());
}

TEST_F(BridgeOpeningTest, GroupAlreadyOpenOnTheSource_CountsForASingleDocumentEditorOnly) {
  StartWithHtml();
  Office().AddForeignGroup(source_);
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Document is already open!"));
  ResetProgramState();
  StartWithWord();
  Office().AddForeignGroup(source_);
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
}

TEST_F(BridgeOpeningTest, AskingForTheOpenGroupFails_CountsAsNone) {
  for (const char* call : {R"(Groups.Item(\pkg\dst\text.doc))", R"(group \pkg\dst\text.doc Count)"}) {
    StartWithWord();
    Office().AddForeignGroup(translation_);
    Office().RaiseAt(call);
    EXPECT_TRUE(session_->OpenForTranslation("DOC1")) << call;
    ResetProgramState();
  }
}

TEST_F(BridgeOpeningTest, ArrangeStyle_FollowsTheCapabilitiesThreeFirst) {
  StartWithWord();
  Office().capabilities["application/msword 28"] = 0;
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Office().calls, Contains(R"(group \pkg\dst\text.doc Arrange(2))"));
  ResetProgramState();
  StartWithWord();
  Office().capabilities.clear();
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("Arrange"))));
  EXPECT_THAT(Office().calls, Contains(R"(group \pkg\dst\text.doc Open(\pkg\src\text.doc, 0))"));
}

TEST_F(BridgeOpeningTest, TypeOfTheSourceUnknown_AsksForNoCapability) {
  StartWith("", "DOC");
  std::string text = Bytes(kPackage);
  const std::size_t name = text.find("2FILE_NAME1=text.doc");
  ASSERT_NE(name, std::string::npos);
  Write(R"(\odd\Trans.pxf)", text.replace(name, 20, "2FILE_NAME1=text.rtf"));
  Write(R"(\odd\src\text.rtf)", "x");
  Write(R"(\odd\dst\text.doc)", "x");
  ResetProgramState();
  office_ = ScriptedBridge::Install();
  Start(R"(\odd\Trans.pxf)");
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("QueryCapability"))));
  EXPECT_THAT(Office().calls, Contains(R"(group \odd\dst\text.doc Open(\odd\src\text.rtf, 0))"));
}

TEST_F(BridgeOpeningTest, ReadOnlyDocument_OpensTheTranslationInTheModeOfTheSource) {
  StartWithWord();
  gLoios->Item("DOC1")->state->InternalizeState("READONLY_OPEN");
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Office().calls, Contains(R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 1))"));
}

TEST_F(BridgeOpeningTest, MissingFiles_AreTracedAndTheOfficeThenFails) {
  StartWithWord();
  std::filesystem::remove(Native(translation_));
  std::filesystem::remove(Native(source_));
  Office().RaiseAt(R"(group \pkg\dst\text.doc Open(\pkg\src\text.doc, 1))");
  ExpectFailed();
  EXPECT_THAT(
      TraceLines(),
      IsSupersetOf({R"(CEditor.OpenForTranslation: TRANSLATION FILE DOES NOT EXIST: \pkg\dst\text.doc)",
                    R"(CEditor.OpenForTranslation: ORIGINAL FILE DOES NOT EXIST: \pkg\src\text.doc)"}));
}

TEST_F(BridgeOpeningTest, PathLeavesThePackage_OpensNothing) {
  StartWithWord();
  std::filesystem::remove(Native(translation_));
  Write(R"(\outside\text.doc)", "secret");
  if (!MadeLink(Native(R"(\outside\text.doc)"), Native(translation_))) GTEST_SKIP() << kNoLinks;
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(R"(The path '\pkg\dst\text.doc' leads out of the package. It is not opened.)"));
  EXPECT_THAT(Office().calls, IsEmpty());
}

// --- the title on its way into the document

TEST_F(BridgeOpeningTest, Title_PresentationGetsItToo) {
  StartWithPresentation();
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_EQ(TextOf(Translation().properties["Title"]), "Styles");
}

TEST_F(BridgeOpeningTest, Title_ProcessThatHasNoneToSet_IsTracedOnly) {
  StartWith("DOC_HTML", "DOC");
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Office().calls, Not(Contains(HasSubstr("Title.Value"))));
  EXPECT_THAT(TraceLines(),
              Contains("CEditor.OpenForTranslation: Attention: Couldn't write title 'Styles' to "
                       "the document custom poperties"));
}

TEST_F(BridgeOpeningTest, Title_AnyFailureOnItsWay_DoesNotStopTheOpening) {
  for (const char* call : {"Application", "Application.Name", "CustomProperties",
                           "CustomProperties.Item(Title)", "Title.Value = Styles"}) {
    StartWithWord();
    Office().RaiseAt(R"(document \pkg\dst\text.doc )" + std::string(call));
    EXPECT_TRUE(session_->OpenForTranslation("DOC1")) << call;
    EXPECT_THAT(Boxes().Texts(), IsEmpty());
    EXPECT_EQ(Err.Number, 0);
    ResetProgramState();
  }
}

TEST_F(BridgeOpeningTest, Title_NoTranslation_IsTraced) {
  StartWithWord();
  Office().GiveNothingAt(R"(group \pkg\dst\text.doc Open(\pkg\dst\text.doc, 0))");
  ExpectFailed();
  EXPECT_THAT(TraceLines(), Contains(HasSubstr("Attention: Couldn't write title 'Styles'")));
}

// --- Visio of the old version

TEST_F(BridgeOpeningTest, OldVisioRuns_CountsTwoWindowsOnlyWhenOpen) {
  StartWithVisio();
  TheAutomation().visioVersion = "11.0";
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_EQ(gVisioWindows, 2);
  Office().RaiseAt("new bridge 2");
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_EQ(gVisioWindows, 0);
}

TEST_F(BridgeOpeningTest, NewVisioRuns_CountsNone) {
  StartWithVisio();
  TheAutomation().visioVersion = "12.0";
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_EQ(gVisioWindows, 0);
}

// --- events between the steps

TEST_F(BridgeOpeningTest, UserClosesTheSourceWhileTheTranslationIsLoading_ClosesBothAfterwards) {
  for (const char* call : {"group %1 Documents", "group %1 Open(%1, 0)"}) {
    StartWithHtml();
    std::string during = call;
    ReplaceAll(during, "%1", translation_);
    gLoios->Item("DOC1")->ContentEditTransition();
    Office().During(during, [this] { Office().UserCloses(source_); });
    EXPECT_FALSE(session_->OpenForTranslation("DOC1")) << call;
    EXPECT_FALSE(Shows(translation_)) << "nobody would hear of its saves";
    EXPECT_EQ(State(), "UNCHANGED");
    EXPECT_GE(closes_, 1);
    EXPECT_THAT(Boxes().Texts(), IsEmpty());
    ResetProgramState();
  }
}

TEST_F(BridgeOpeningTest, UserClosesTheTranslationWhileItIsArranged_ClosesBothAfterwards) {
  StartWithWord();
  gLoios->Item("DOC1")->ContentEditTransition();
  Office().During(R"(group \pkg\dst\text.doc Arrange(3))", [this] { Office().UserCloses(translation_); });
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_FALSE(Shows(source_));
  EXPECT_EQ(State(), "UNCHANGED");
}

}  // namespace
}  // namespace qb
