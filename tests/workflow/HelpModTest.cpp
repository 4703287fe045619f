#include <gmock/gmock.h>

#include "platform/HostPlatform.h"
#include "runtime/RuntimeError.h"
#include "support/WorkflowTest.h"
#include "workflow/HelpMod.h"
#include "workflow/Settings.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

/// Takes each text that the status line shows.
class StatusRecorder : public FormObserver {
 public:
  explicit StatusRecorder(frmQBTranslator& form) : form_(form) { form.Observer = this; }
  ~StatusRecorder() override { form_.Observer = nullptr; }
  void ControlChanged(Control& control) override {
    if (&control == &form_.sbcStatusBar) texts.push_back(form_.sbcStatusBar.SimpleText);
  }

  std::vector<std::string> texts;

 private:
  frmQBTranslator& form_;
};

class HelpModTest : public WorkflowTest {
 protected:
  HelpModTest() {
    Write(kPackage, SmallPackage());
    Start(kPackage);
  }

  std::string Status() { return Window().sbcStatusBar.SimpleText; }
  /// Where the help file of the program's folder stands, on the test's drive.
  static std::string InProgramFolder(std::string_view file) {
    return ThePlatform().files->ProgramDirectory() + "\\" + std::string(file);
  }
};

TEST_F(HelpModTest, QbtOnlineHelp_FileInTheCurrentDirectory_ComesBeforeTheProgramsOwn) {
  Write(R"(\en\00005554.chm)", "here");
  Write(InProgramFolder(R"(en\00005554.chm)"), "there");
  QbtOnlineHelp();
  EXPECT_THAT(TheShell().started, ElementsAre(R"(hh.exe .\en\00005554.chm)"));
  EXPECT_EQ(Status(), "Get online help for ORB Quillbank Translator");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(HelpModTest, QbtOnlineHelp_FileBesideTheProgram_IsShown) {
  Write(InProgramFolder(R"(en\00005554.chm)"), "there");
  QbtOnlineHelp();
  EXPECT_THAT(TheShell().started, ElementsAre("hh.exe " + InProgramFolder(R"(en\00005554.chm)")));
}

TEST_F(HelpModTest, QbtOnlineHelp_FollowsTheInterfaceLanguage) {
  Write(R"(\de\00005554.chm)", "hier");
  ApplySettings("de", "me", 5000);
  QbtOnlineHelp();
  EXPECT_THAT(TheShell().started, ElementsAre(R"(hh.exe .\de\00005554.chm)"));
}

TEST_F(HelpModTest, QbtOnlineHelp_NoSuchFile_TheBoxShowsTheSettingAndNotThePath) {
  gHelpFile = R"(en\none.chm)";
  QbtOnlineHelp();
  EXPECT_THAT(TheShell().started, IsEmpty());
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_EQ(Boxes().Shown()[0].text, R"(Could not find online help file: 'en\none.chm')");
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
}

TEST_F(HelpModTest, QbtOnlineHelp_SettingWithoutAFolder_IsABareLanguageCode) {
  gHelpFile = "00005554.chm";
  ApplySettings("de", "me", 5000);
  QbtOnlineHelp();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not find online help file: 'en'"));
}

TEST_F(HelpModTest, QbtOnlineHelp_StartGivesZero_SaysSo) {
  Write(R"(\en\00005554.chm)", "here");
  TheShell().startResult = 0;
  QbtOnlineHelp();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not launch Microsoft HTMLHelp"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
}

TEST_F(HelpModTest, QbtOnlineHelp_StartFails_IsReported) {
  Write(R"(\en\00005554.chm)", "here");
  TheShell().startFailure = RuntimeError(53, {}, "File not found (a viewer)");
  QbtOnlineHelp();
  constexpr const char* kText =
      "An error has occurred attempting to launch online help: #53: File not found (a viewer)";
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr(kText)));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(TraceLines(), Contains(std::string("HelpMod.QbtOnlineHelp: ") + kText));
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr(kText));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(HelpModTest, HelpEntryAndHelpButton_ShowTheHelp) {
  Write(R"(\en\00005554.chm)", "here");
  EXPECT_EQ(Window().mniHelp.Shortcut(), "F1");
  Window().mniHelp.Click();
  Window().Toolbar.ButtonClick(11);
  EXPECT_EQ(TheShell().started.size(), 2U);
}

TEST_F(HelpModTest, WorldWideWeb_StartsTheBrowsersWholeCommandWithTheMakersAddress) {
  gWebBrowser = R"("\usr\bin\my browser" --new-window)";
  Window().mniOrbOnTheWWW.Click();
  EXPECT_THAT(TheShell().started,
              ElementsAre(R"("\usr\bin\my browser" --new-window https://www.example.com/)"));
  EXPECT_EQ(Status(), "Visit the ORB World Wide Web site");
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(HelpModTest, WorldWideWeb_StartGivesZero_SaysSo) {
  gWebBrowser = "browser.exe";
  TheShell().startResult = 0;
  QbtOrbOnTheWorldWideWeb();
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Could not launch Web browser"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
}

TEST_F(HelpModTest, WorldWideWeb_NoBrowser_FailsToStartTheAddressAndReportsIt) {
  const auto desktop = MakeHostPlatform({Native(R"(\)").string(), Native(R"(\hive)").string()});
  std::swap(ThePlatform().shell, desktop->shell);
  gWebBrowser.clear();
  QbtOrbOnTheWorldWideWeb();
  std::swap(ThePlatform().shell, desktop->shell);
  ASSERT_EQ(Boxes().Shown().size(), 1U);
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("An error has occurred attempting to launch Web browser: #53: "));
  EXPECT_THAT(Boxes().Texts()[0], HasSubstr("https://www.example.com/"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(TraceLines(), Contains(HasSubstr("HelpMod.QbtOrbOnTheWorldWideWeb: An error has occurred")));
}

TEST_F(HelpModTest, QbtShow_WritesTheNameLetterByLetterAndEndsWithTheMaker) {
  const StatusRecorder recorder(Window());
  QbtShow();
  const std::string name = "ORB Quillbank Translator";
  ASSERT_EQ(recorder.texts.size(), name.size() + 1);
  for (std::size_t n = 1; n <= name.size(); ++n) EXPECT_EQ(recorder.texts[n - 1], name.substr(0, n));
  EXPECT_EQ(Status(), "A product by ORB AG");
  EXPECT_EQ(Window().tmrTimer2.Interval.Get(), 3000);
  EXPECT_FALSE(Window().tmrTimer2.Enabled);
  EXPECT_TRUE(Window().tmrTimer1.Enabled);
}

TEST_F(HelpModTest, StatusBarDoubleClick_RunsTheShowUnlessTheLineIsEmpty) {
  Window().sbcStatusBar.SimpleText = std::string();
  Window().sbcStatusBar.DblClick();
  EXPECT_EQ(Status(), "");
  Window().sbcStatusBar.SimpleText = std::string("x");
  Window().sbcStatusBar.DblClick();
  EXPECT_EQ(Status(), "A product by ORB AG");
}

TEST_F(HelpModTest, TechnicalSupport_SaysThatThereIsNone) {
  Window().mniTechnicalSupport.Click();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("Online technical support connection is not implemented yet")));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"), HasSubstr("Online technical support connection"));
}

TEST_F(HelpModTest, QbtCheckIn_ShowsNothingAndWritesToTheProtocolOnly) {
  const std::string status = Status();
  Window().mniCheckIn.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Status(), status);
  EXPECT_THAT(Bytes(R"(\pkg\Protocol.txt)"),
              HasSubstr("Direct checkin to Quillbank repository not implemented yet.\r\n"
                        "Please use ORB GUI to check in completed translation packages."));
}

TEST_F(HelpModTest, QbtCheckIn_LocalizationPackage_IsWordedForIt) {
  Write(R"(\loc\Trans.pxf)", SmallPackage(true));
  ResetProgramState();
  Start(R"(\loc\Trans.pxf)");
  QbtCheckIn();
  EXPECT_THAT(Bytes(R"(\loc\Protocol.txt)"),
              HasSubstr("Please use ORB GUI to check in completed localization packages."));
}

TEST_F(HelpModTest, QbtPrint_DoesNothing) {
  const std::string protocol = Bytes(R"(\pkg\Protocol.txt)");
  const std::size_t lines = TraceLines().size();
  Window().mniPrint.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_EQ(Bytes(R"(\pkg\Protocol.txt)"), protocol);
  EXPECT_EQ(TraceLines().size(), lines);
}

TEST_F(HelpModTest, GetStateText_IsTheStatesNameOrEmpty) {
  auto state = std::make_shared<CState>();
  state->InternalizeState("MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(GetStateText(state), "MODIFIED_C_UNCHANGED_T");
  EXPECT_EQ(GetStateText(nullptr), "");
}

TEST_F(HelpModTest, SetStatusText_BringsTheWindowToLife) {
  ResetProgramState();
  SetStatusText("hello");
  EXPECT_EQ(Window().sbcStatusBar.SimpleText.Get(), "hello");
}

TEST_F(HelpModTest, DebugEntry_WithoutADebugger_DoesNothing) {
  Window().mniDebug.Click();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(HelpModTest, EntriesWithoutACommand_HaveNone) {
  for (const MenuItem* item :
       {&Window().mniSave, &Window().mniProperties, &Window().mniEditComponent, &Window().mniORBQBOnline}) {
    EXPECT_FALSE(item->Click) << item->Name();
  }
}

}  // namespace
}  // namespace qb
