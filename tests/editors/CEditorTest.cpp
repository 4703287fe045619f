#include <gmock/gmock.h>

#include "editors/CEditor.h"
#include "support/WorkflowTest.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

/// A package whose first document has the given process and format; its files lie in place.
class CEditorTest : public WorkflowTest {
 protected:
  void OpenWith(std::string_view process, std::string_view format) {
    std::string text = SmallPackage();
    text.replace(text.find("PROCESS=CSS"), 11, "PROCESS=" + std::string(process));
    text.replace(text.find("1DOCUMENT_FORMAT=CSS"), 20, "1DOCUMENT_FORMAT=" + std::string(format));
    Write(kPackage, text);
    Write(R"(\pkg\dst\styles.css)", "x");
    Write(R"(\pkg\src\styles.css)", "x");
    TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
    Start(kPackage);
    gLoios->Item("DOC1")->ContentEditTransition();
    Boxes().Forget();
  }
  std::vector<std::string> Verbs() {
    std::vector<std::string> verbs;
    for (const ShellRequest& request : TheShell().requests) verbs.push_back(request.verb);
    return verbs;
  }
  std::string State() { return gLoios->Item("DOC1")->state->ExternalizeState(); }

  std::shared_ptr<CEditor> session_ = std::make_shared<CEditor>();
};

struct MimeCase {
  const char* path;
  const char* type;
};

class MimeTest : public ::testing::TestWithParam<MimeCase> {};

TEST_P(MimeTest, GetMIMEType_FollowsTheExtension) {
  EXPECT_EQ(CEditor::GetMIMEType(GetParam().path), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Table, MimeTest,
                         ::testing::Values(MimeCase{R"(\a\b.txt)", "text/plain"},
                                           MimeCase{"b.HTM", "text/html"}, MimeCase{"b.thtm", "text/html"},
                                           MimeCase{"b.html", "text/html"},
                                           MimeCase{"b.ppt", "application/vnd.ms-powerpoint"},
                                           MimeCase{"b.Doc", "application/msword"},
                                           MimeCase{"b.vsd", "vnd.visio"}, MimeCase{"b.docx", ""},
                                           MimeCase{"b", ""}, MimeCase{"", ""}));

TEST_F(CEditorTest, OpenForTranslation_AnyOtherDocument_TriesTranslateEditOpen) {
  OpenWith("VSD", "VSD");
  TheShell().verbs = {"Open"};
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Verbs(), ElementsAre("Translate", "Edit", "Open"));
  EXPECT_EQ(TheShell().requests[0].parameters, R"("\pkg\src\styles.css")");
  EXPECT_EQ(TheShell().requests[1].parameters, "");
}

TEST_F(CEditorTest, OpenForTranslation_TextEditorDocument_OnlyOpens) {
  OpenWith("THTM", "THTM");
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Verbs(), ElementsAre("Open"));
}

TEST_F(CEditorTest, OpenForTranslation_NoTextEditor_SaysSo) {
  OpenWith("THTM", "THTM");
  TheShell().verbs.clear();
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not launch default text editor"));
}

TEST_F(CEditorTest, OpenForTranslation_HtmOutsideTheHtmlProcess_StartsNothing) {
  OpenWith("", "HTM");
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Verbs(), IsEmpty());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(CEditorTest, OpenForTranslation_BridgeDocumentWithoutABridge_EndsInItsText) {
  OpenWith("DOC_HTML", "DOC");
  EXPECT_FALSE(session_->OpenForTranslation("DOC1"));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("Source document or translation document does not exist")));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CEditorTest, OpenForTranslation_MissingFiles_AreTracedOnly) {
  OpenWith("DOC_HTML", "DOC");
  std::filesystem::remove(Native(R"(\pkg\dst\styles.css)"));
  std::filesystem::remove(Native(R"(\pkg\src\styles.css)"));
  session_->OpenForTranslation("DOC1");
  const auto lines = TraceLines();
  EXPECT_THAT(
      lines, Contains(R"(CEditor.OpenForTranslation: TRANSLATION FILE DOES NOT EXIST: \pkg\dst\styles.css)"));
  EXPECT_THAT(lines,
              Contains(R"(CEditor.OpenForTranslation: ORIGINAL FILE DOES NOT EXIST: \pkg\src\styles.css)"));
}

TEST_F(CEditorTest, LaunchApplication_MissingTranslation_SaysSoAndGivesSeven) {
  OpenWith("CSS", "CSS");
  ProcessHandle process = 0;
  EXPECT_EQ(session_->LaunchApplication("", "", R"(\pkg\dst\none.css)", process, "Open"), 7);
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Source document or translation document does not exist"));
}

TEST_F(CEditorTest, LaunchApplication_Results_TellStartedAndFailed) {
  OpenWith("CSS", "CSS");
  ProcessHandle process = 0;
  EXPECT_EQ(
      session_->LaunchApplication("", R"(\pkg\src\styles.css)", R"(\pkg\dst\styles.css)", process, "Edit"),
      2);
  EXPECT_NE(process, 0);
  TheShell().verbs.clear();
  EXPECT_EQ(
      session_->LaunchApplication("", R"(\pkg\src\styles.css)", R"(\pkg\dst\styles.css)", process, "Edit"),
      1);
}

TEST_F(CEditorTest, LaunchApplication_OwnEditor_TakesTheTranslationAsParameter) {
  OpenWith("CSS", "CSS");
  ProcessHandle process = 0;
  session_->LaunchApplication(R"(\usr\bin\editor)", R"(\pkg\src\styles.css)", R"(\pkg\dst\styles.css)",
                              process, "Open");
  EXPECT_EQ(TheShell().requests[0].file, "editor");
  EXPECT_EQ(TheShell().requests[0].directory, R"(\usr\bin)");
  EXPECT_EQ(TheShell().requests[0].parameters, R"(\pkg\dst\styles.css)");
}

TEST_F(CEditorTest, LaunchApplication_EmptySource_PassesWhereTheCurrentDirectoryHoldsAFile) {
  OpenWith("CSS", "CSS");
  Write(R"(\full\file)", "x");
  MakeFolder(R"(\empty)");
  ProcessHandle process = 0;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(Native(R"(\full)"));
  EXPECT_EQ(session_->LaunchApplication("", "", R"(\pkg\dst\styles.css)", process, "Open"), 2);
  std::filesystem::current_path(Native(R"(\empty)"));
  EXPECT_EQ(session_->LaunchApplication("", "", R"(\pkg\dst\styles.css)", process, "Open"), 7);
  std::filesystem::current_path(before);
}

TEST_F(CEditorTest, LaunchApplication_Trace_HasItsLinesWithAnEmptyModule) {
  OpenWith("CSS", "CSS");
  ProcessHandle process = 0;
  session_->LaunchApplication("", R"(\pkg\src\styles.css)", R"(\pkg\dst\styles.css)", process, "Edit");
  const auto lines = TraceLines();
  EXPECT_THAT(lines, Contains(R"(.LaunchApplication: strEditor:/strSourceFileName:\pkg\src\styles.css/)"
                              R"(strTranslationFileName:\pkg\dst\styles.cssVerb:Edit)"));
  EXPECT_THAT(lines, Contains(".LaunchApplication: ShellExecuteEx returned 1"));
  EXPECT_THAT(lines, Contains(".LaunchApplication: Editor process PID=" + std::to_string(process)));
}

TEST_F(CEditorTest, ChangeXMLToTTX_AddsTheEndingBehindTheWholeName) {
  OpenWith("CSS", "CSS");
  Write(R"(\pkg\dst\styles.css.ttx)", "x");
  std::string path = R"(\pkg\dst\styles.css)";
  session_->ChangeXMLToTTX(path);
  EXPECT_EQ(path, R"(\pkg\dst\styles.css.ttx)");
  std::string other = R"(\pkg\src\styles.css)";
  session_->ChangeXMLToTTX(other);
  EXPECT_EQ(other, R"(\pkg\src\styles.css)");
  EXPECT_THAT(TraceLines(), Contains(R"(CEditor.ChangeXMLToTTX: <-  open: '\pkg\src\styles.css.ttx')"));
}

TEST_F(CEditorTest, IsOpen_ShellGaveNoProcess_IsEndedAtTheNextPoll) {
  OpenWith("CSS", "CSS");
  TheShell().handsToRunningEditor = true;
  EXPECT_TRUE(session_->OpenForTranslation("DOC1"));
  bool closed = false;
  session_->OnClose = [&] { closed = true; };
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_TRUE(closed);
  EXPECT_EQ(State(), "UNCHANGED");
}

TEST_F(CEditorTest, IsOpen_TtxThatAppearedMeanwhile_CountsAsChanged) {
  OpenWith("CSS", "CSS");
  session_->OpenForTranslation("DOC1");
  gSessionStamp = "20000101000000";
  std::filesystem::last_write_time(Native(R"(\pkg\dst\styles.css)"), std::filesystem::file_time_type::min());
  Write(R"(\pkg\dst\styles.css.ttx)", "x");
  TheShell().EndAllProcesses();
  EXPECT_FALSE(session_->IsOpen());
  EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(CEditorTest, CloseEditor_TtxThatAppearedMeanwhile_IsNotLookedAt) {
  OpenWith("CSS", "CSS");
  session_->OpenForTranslation("DOC1");
  gSessionStamp = "20000101000000";
  Write(R"(\pkg\dst\styles.css.ttx)", "x");
  TheShell().EndAllProcesses();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_EQ(State(), "UNCHANGED");
}

TEST_F(CEditorTest, CloseEditor_ChangedFile_IsSavedAndThenClosed) {
  OpenWith("CSS", "CSS");
  session_->OpenForTranslation("DOC1");
  gLoios->Item("DOC1")->ContentEditTransition();
  int closes = 0;
  session_->OnClose = [&] { ++closes; };
  gSessionStamp = "1";  // any time of a file counts as a change
  TheShell().EndAllProcesses();
  EXPECT_TRUE(session_->CloseEditor());
  EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(closes, 1);
  EXPECT_FALSE(session_->IsOpen());
}

TEST_F(CEditorTest, CloseEditor_EditorStillRuns_AsksAndStaysOpen) {
  OpenWith("CSS", "CSS");
  session_->OpenForTranslation("DOC1");
  EXPECT_FALSE(session_->CloseEditor());
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Please close editor"));
  EXPECT_TRUE(session_->IsOpen());
}

TEST_F(CEditorTest, CloseEditor_WithoutDocuments_IsClosed) {
  OpenWith("CSS", "CSS");
  session_->OpenForTranslation("DOC1");
  gLoios.reset();
  EXPECT_TRUE(session_->CloseEditor());
}

TEST_F(CEditorTest, DoSave_TextEditorDocument_HasNoHyperlinkHandling) {
  OpenWith("THTM", "THTM");
  session_->OpenForTranslation("DOC1");
  session_->DoSave();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("No hyperlink handling defined for documents of this type")));
  EXPECT_EQ(State(), "MODIFIED_C_UNCHANGED_T");
}

TEST_F(CEditorTest, IsProcessRunning_Trace_HasItsOwnClosingLine) {
  OpenWith("CSS", "CSS");
  EXPECT_FALSE(session_->IsProcessRunning(4711));
  EXPECT_THAT(TraceLines(), Contains("CEditor.IsProcessRunning: <-   'False'"));
}

}  // namespace
}  // namespace qb
