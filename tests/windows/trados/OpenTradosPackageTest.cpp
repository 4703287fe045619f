// TRADOS packages are opened beside programs that take the parts of MultiTerm and the Workbench.

#include <gmock/gmock.h>
#include <windows.h>

#include <filesystem>

#include "editors/EditorQuestions.h"
#include "foundation/EventLoop.h"
#include "platform/HostPlatform.h"
#include "platform/win32/Win32ApplicationWindows.h"
#include "platform/win32/Win32Automation.h"
#include "platform/win32/Win32Dde.h"
#include "support/WorkflowTest.h"
#include "ui/DDE.h"
#include "windows/trados/InstalledClass.h"
#include "windows/trados/StandInProcess.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
constexpr std::string_view kNotLoaded = "Could not load terminology ''.";
constexpr std::string_view kEnvironmentKey = R"(Software\TRADOS\MTWPlus\Environment)";

class OpenTradosPackageTest : public WorkflowTest {
 protected:
  OpenTradosPackageTest() {
    ThePlatform().dde = std::make_unique<Win32Dde>();
    ThePlatform().windows = std::make_unique<Win32ApplicationWindows>();
    ThePlatform().automation = std::make_unique<Win32Automation>();
    MakeFolder(R"(\tools)");
    std::filesystem::copy_file(StandInPath(L"StandInMultiTerm"), Native(R"(\tools\MtwpE.exe)"));
    SetToolsFolder(R"(\tools)");
    SetSetting("UserID", "Ute");
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"MT4WIN") && !HasWindow(L"TW4Win2Class"); }));
  }
  ~OpenTradosPackageTest() override {
    multiTerm_.reset();
    workbench_.reset();
    ResetProgramState();
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"MT4WIN") && !HasWindow(L"TW4Win2Class"); }));
  }

  static void SetToolsFolder(std::string_view folder) {
    ThePlatform().registry->SetText(Hive::kCurrentUser, kEnvironmentKey, "InstallPath-Team", folder);
  }
  /// MultiTerm as its argument says.
  void StartMultiTerm(const std::wstring& mode) {
    multiTerm_ = std::make_unique<StandInProcess>(L"StandInMultiTerm", mode);
    ASSERT_TRUE(Eventually([] { return HasWindow(L"MT4WIN", L"TRADOS MultiTerm"); }));
  }
  void StartWorkbench(const std::wstring& mode) {
    workbench_ = std::make_unique<StandInProcess>(L"StandInWorkbench", mode);
    ASSERT_TRUE(Eventually([] { return HasWindow(L"TW4Win2Class"); }));
  }
  /// Opens a package that names a terminology and this memory.
  void Open(const std::string& memory = "notes.tmw") {
    std::string text = SmallPackage();
    const std::string general = "TRANSTYPE=GEN\r\n";
    text.replace(text.find(general), general.size(),
                 "TRANSTYPE=GEN_TWB\r\nTERMINOLOGY=terms.mtw\r\nTRANSMEMORY=" + memory + "\r\n");
    Write(kPackage, text);
    Write(R"(\pkg\terms.mtw)", "terms");
    Write(R"(\pkg\)" + memory, "memory");
    Start();
    gProcessPendingEvents = [this] { TheClock().Advance(11); };  // time passes while it waits
    QbtOpen(kPackage);
    // Whatever the tools did.
    EXPECT_EQ(gLoios->Count(), 2U);
    EXPECT_TRUE(Window().mnuMark.Enabled);
    EXPECT_EQ(Err.Number, 0);
  }
  /// The boxes of an opening in which MultiTerm behaves like this, and the Workbench as it should.
  std::vector<std::string> BoxesWith(const std::wstring& mode) {
    StartMultiTerm(mode);
    Open();
    EXPECT_EQ(OpenedByTheWorkbench(), R"(\pkg\notes.tmw|Ute|left out|w)");
    EXPECT_THAT(TheShell().started, IsEmpty());
    return Boxes().Texts();
  }
  /// The boxes behind a request that is not answered in time.
  std::vector<std::string> BoxesWithoutAnAnswer(const std::wstring& mode) {
    constexpr std::chrono::milliseconds kShort{3000};
    ThePlatform().dde = std::make_unique<Win32Dde>(kShort);
    return BoxesWith(mode);
  }

  InstalledClass installed_{L"TW4Win.Application", L"StandInWorkbench"};
  std::unique_ptr<StandInProcess> multiTerm_;
  std::unique_ptr<StandInProcess> workbench_;
};

TEST_F(OpenTradosPackageTest, BothTools_OpenTheFilesOfThePackage) {
  EXPECT_THAT(BoxesWith(L"good"), IsEmpty());
  const std::string file = ThePlatform().files->ShortPathName(R"(\pkg\terms.mtw)").value_or("");
  LinkedTextBox& link = Default<DDE>().DDEResult;
  link.LinkItem = "stand_in_items";
  link.LinkRequest();
  EXPECT_EQ(link.Text.Get(), "mt_hide\r\nmt_hitlist_off\r\nmt_getfilename#\r\nmt_open#" + file + "\r\n");
}

TEST_F(OpenTradosPackageTest, AtTheEnd_TheWorkbenchIsClosedAndAMultiTermOfTheUserIsNot) {
  EXPECT_THAT(BoxesWith(L"good"), IsEmpty());
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(Eventually([] { return !HasWindow(L"TW4Win2Class"); }));
  EXPECT_TRUE(HasWindow(L"MT4WIN"));
}

TEST_F(OpenTradosPackageTest, MultiTermThatTheProgramStarts_IsClosedByItAtTheEnd) {
  const auto real = MakeHostPlatform({Native(R"(\)").string(), {}});
  std::swap(ThePlatform().shell, real->shell);
  Open();
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  ASSERT_TRUE(Eventually([] { return HasWindow(L"MT4WIN"); }));
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(Eventually([] { return !HasWindow(L"MT4WIN"); }));
  std::swap(ThePlatform().shell, real->shell);
}

TEST_F(OpenTradosPackageTest, MultiTermNotInstalled_IsReportedAndTheWorkbenchComesUp) {
  SetToolsFolder("");
  EXPECT_THAT(BoxesWith(L"good"), ElementsAre(HasSubstr("An error has occurred during property translation: "
                                                        "#-2147221495: Could not execute TRADOS MultiTerm; "
                                                        "please launch manually")));
}

TEST_F(OpenTradosPackageTest, MultiTermThatHangsWhenItIsToOpenTheFile_IsReportedInTime) {
  EXPECT_THAT(BoxesWithoutAnAnswer(L"hang mt_open#"),
              ElementsAre(HasSubstr("#286: Timeout while waiting for DDE")));
}

TEST_F(OpenTradosPackageTest, MultiTermThatHangs_DoesNotKeepTheProgramFromItsEnd) {
  EXPECT_THAT(BoxesWithoutAnAnswer(L"hang mt_open#"), ElementsAre(HasSubstr("#286: ")));
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(HasWindow(L"MT4WIN")) << "it is the user's";
}

TEST_F(OpenTradosPackageTest, MultiTermThatAnswersNoMessage_IsReportedInTime) {
  EXPECT_THAT(BoxesWithoutAnAnswer(L"frozen"), ElementsAre(HasSubstr("#286: Timeout while waiting for DDE")));
}

TEST_F(OpenTradosPackageTest, MultiTermThatIsNeverReady_IsGivenUpAfterTwentySeconds) {
  EXPECT_THAT(BoxesWithoutAnAnswer(L"hang mt_getfilename#"), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(OpenTradosPackageTest, MultiTermThatDiesWhenItIsToBeReady_IsGivenUpAfterTwentySeconds) {
  EXPECT_THAT(BoxesWith(L"die mt_getfilename#"), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(OpenTradosPackageTest, MultiTermThatDiesInARequest_IsReported) {
  for (const std::wstring item : {L"mt_hide", L"mt_hitlist_off", L"mt_open#"}) {
    Boxes().Forget();
    gEditorQuestions.bringsUpTradosTools = true;
    EXPECT_THAT(BoxesWith(L"die " + item), ElementsAre(HasSubstr("#291: Foreign application quit")));
    ResetProgramState();
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"MT4WIN") && !HasWindow(L"TW4Win2Class"); }));
  }
}

TEST_F(OpenTradosPackageTest, MultiTermThatRefuses_IsReported) {
  EXPECT_THAT(BoxesWith(L"refuse"), ElementsAre(HasSubstr("#285: ")));
}

TEST_F(OpenTradosPackageTest, MultiTermThatAnswersGarbage_HasNotLoadedTheTerminology) {
  EXPECT_THAT(BoxesWith(L"garbage"), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(OpenTradosPackageTest, MultiTermThatAnswersAtLength_HasNotLoadedTheTerminology) {
  EXPECT_THAT(BoxesWith(L"large"), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(OpenTradosPackageTest, WorkbenchNotInstalled_ShowsTheTwoLinesAndOpens) {
  installed_.Remove();
  StartMultiTerm(L"good");
  Open();
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Could not launch TRADOS Translator's Workbench.\r\nPlease make sure it is "
                          "installed when working with TRADOS packages."));
}

TEST_F(OpenTradosPackageTest, WorkbenchWhoseObjectCannotBeHad_ShowsTheTwoLinesAndOpens) {
  StartWorkbench(L"mute");
  StartMultiTerm(L"good");
  Open();
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Could not launch TRADOS Translator's Workbench.")));
}

TEST_F(OpenTradosPackageTest, WorkbenchThatCannotOpenTheMemory_IsReportedInItsWords) {
  StartMultiTerm(L"good");
  Open("locked.tmw");
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("An error has occurred during property translation: "
                                                     "#-2147220992: The memory is locked.")));
}

TEST_F(OpenTradosPackageTest, WorkbenchThatDiesWhileItOpensTheMemory_IsReported) {
  StartMultiTerm(L"good");
  Open("crash.tmw");
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred during property translation: #")));
}

/// A file type with a verb "Translate" that copies the file to `\translated`.
class TranslatedType {
 public:
  TranslatedType(const wchar_t* extension, const std::wstring& target) : extension_(extension) {
    Set(extension_, kType);
    Set(kType + LR"(\shell\Translate\command)", LR"(cmd.exe /c copy "%1" ")" + target + L'"');
  }
  TranslatedType(const TranslatedType&) = delete;
  TranslatedType& operator=(const TranslatedType&) = delete;
  ~TranslatedType() {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, extension_.c_str());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kType.c_str());
  }

 private:
  static void Set(const std::wstring& key, const std::wstring& text) {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(), bytes);
  }

  const std::wstring kType = L"Quillbank.Test.Trados";
  std::wstring extension_;
};

TEST_F(OpenTradosPackageTest, Document_IsOpenedByItsEditingFileWithTheVerbOfItsType) {
  const TranslatedType type(L".ttx", Native(R"(\translated)").wstring());
  EXPECT_THAT(BoxesWith(L"good"), IsEmpty());
  Write(R"(\pkg\dst\styles.css)", "translation");
  Write(R"(\pkg\src\styles.css)", "source");
  Write(R"(\pkg\dst\styles.css.ttx)", "editing file");
  const auto real = MakeHostPlatform({Native(R"(\)").string(), {}});
  std::swap(ThePlatform().shell, real->shell);
  SelectNode("DOC1");
  EXPECT_TRUE(QbtTranslate());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  // The editing file is of today, long after the session began.
  EXPECT_TRUE(Eventually([this] {
    Tick();
    return Entry(kPackage, "1", "PROGRESS") == "MODIFIED_C_UNCHANGED_T";
  }));
  EXPECT_EQ(Bytes(R"(\translated)"), "editing file");
  std::swap(ThePlatform().shell, real->shell);
}

}  // namespace
}  // namespace qb
