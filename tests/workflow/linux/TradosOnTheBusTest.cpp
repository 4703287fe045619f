#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "editors/EditorQuestions.h"
#include "foundation/EventLoop.h"
#include "platform/HostPlatform.h"
#include "platform/linux/LinuxApplicationWindows.h"
#include "platform/linux/LinuxDde.h"
#include "support/WorkflowTest.h"
#include "support/dbus/SessionBusTest.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::chrono::seconds kLong{60};
constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
constexpr std::string_view kNotLoaded = "Could not load terminology ''.";
constexpr std::string_view kNoWorkbench = "Could not launch TRADOS Translator's Workbench.";

/// Waits as long as it takes for what a tool answers, and not for what it does not: the item at which it
/// hangs, and all behind that.
class HungConversation : public DdeConversation {
 public:
  HungConversation(std::unique_ptr<DdeConversation> patient, std::unique_ptr<DdeConversation> impatient,
                   std::string item)
      : patient_(std::move(patient)), impatient_(std::move(impatient)), item_(std::move(item)) {}

  std::string Request(std::string_view item) override {
    hangs_ = hangs_ || item.starts_with(item_);
    return (hangs_ ? impatient_ : patient_)->Request(item);
  }
  bool IsOpen() override { return patient_->IsOpen(); }

 private:
  std::unique_ptr<DdeConversation> patient_;
  std::unique_ptr<DdeConversation> impatient_;
  std::string item_;
  bool hangs_ = false;
};

class DdeWithAHungTool : public Dde {
 public:
  explicit DdeWithAHungTool(std::string item) : item_(std::move(item)) {}

  std::unique_ptr<DdeConversation> Connect(std::string_view application, std::string_view topic) override {
    std::unique_ptr<DdeConversation> patient = patient_.Connect(application, topic);
    std::unique_ptr<DdeConversation> impatient;
    EXPECT_TRUE(
        Eventually([&] { return Attempt([&] { impatient = impatient_.Connect(application, topic); }); }));
    return std::make_unique<HungConversation>(std::move(patient), std::move(impatient), item_);
  }

 private:
  std::string item_;
  LinuxDde patient_{kLong};
  LinuxDde impatient_{std::chrono::milliseconds(500)};
};

/// A TRADOS package is opened beside a terminology tool that is a process of its own.
class TradosOnTheBusTest : public WorkflowTest {
 protected:
  TradosOnTheBusTest() {
    ThePlatform().dde = std::make_unique<LinuxDde>(kLong);
    ThePlatform().windows = std::make_unique<LinuxApplicationWindows>(kLong);
    MakeFolder(R"(\tools)");
    std::filesystem::create_symlink(StandInMultiTerm::Program(), Native(R"(\tools\MtwpE.exe)"));
    ThePlatform().registry->SetText(Hive::kCurrentUser, R"(Software\TRADOS\MTWPlus\Environment)",
                                    "InstallPath-Team", R"(\tools)");
    std::string text = SmallPackage();
    const std::string general = "TRANSTYPE=GEN\r\n";
    text.replace(text.find(general), general.size(), "TRANSTYPE=GEN_TWB\r\nTERMINOLOGY=terms.mtw\r\n");
    Write(kPackage, text);
    Write(R"(\pkg\terms.mtw)", "terms");
  }
  ~TradosOnTheBusTest() override { ResetProgramState(); }  // while the bus is there

  bool IsUp() { return ThePlatform().windows->Find("MT4WIN", std::nullopt) != 0; }
  /// The boxes in front of that of the Workbench, which is always the last one here.
  std::vector<std::string> BoxesOfMultiTerm() {
    std::vector<std::string> texts = Boxes().Texts();
    EXPECT_FALSE(texts.empty());
    if (texts.empty()) return texts;
    EXPECT_THAT(texts.back(), HasSubstr(kNoWorkbench));
    texts.pop_back();
    return texts;
  }
  void OpenBeside(const std::string& mode, const std::string& item = "mt_open#") {
    const StandInMultiTerm multiTerm(mode, item);
    if (mode == "hang") {
      ThePlatform().dde = std::make_unique<DdeWithAHungTool>(item);
    } else {
      ThePlatform().dde = std::make_unique<LinuxDde>(kLong);
    }
    Start();
    gProcessPendingEvents = [this] { TheClock().Advance(11); };  // time passes while it waits
    QbtOpen(kPackage);
    EXPECT_EQ(gLoios->Count(), 2U);
    EXPECT_TRUE(Window().mnuMark.Enabled);
    EXPECT_THAT(TheShell().started, IsEmpty());
  }

  /// The program ends, and can be started again.
  static void BeginAnew() {
    ResetProgramState();
    gEditorQuestions.bringsUpTradosTools = true;
  }

  OwnSessionBus bus_;
};

TEST_F(TradosOnTheBusTest, Tool_OpensTheTerminologyByItsOwnPath) {
  const StandInMultiTerm multiTerm("good");
  Start(kPackage);
  EXPECT_THAT(BoxesOfMultiTerm(), IsEmpty());
  EXPECT_EQ(ThePlatform().dde->Connect("MT4WIN", "mt_init")->Request("stand_in_items"),
            "\r\nmt_hide\r\nmt_hitlist_off\r\nmt_getfilename#\r\nmt_open#" +
                Native(R"(\pkg\terms.mtw)").string() + "\r\n");
}

TEST_F(TradosOnTheBusTest, ToolThatHangs_IsReportedInTime) {
  OpenBeside("hang");
  EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr("#286: Timeout while waiting for DDE response")));
}

TEST_F(TradosOnTheBusTest, ToolThatIsNeverReady_IsGivenUpAfterTwentySeconds) {
  for (const std::string mode : {"hang", "die", "refuse"}) {
    Boxes().Forget();
    OpenBeside(mode, "mt_getfilename#");
    EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr(kNotLoaded))) << mode;
    BeginAnew();
  }
}

TEST_F(TradosOnTheBusTest, ToolThatDiesInARequest_IsReported) {
  for (const std::string item : {"", "mt_hide", "mt_hitlist_off", "mt_open#"}) {
    Boxes().Forget();
    OpenBeside("die", item);
    EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr("#291: Foreign application quit"))) << item;
    BeginAnew();
  }
}

TEST_F(TradosOnTheBusTest, ToolThatAnswersGarbage_HasNotLoadedTheTerminology) {
  OpenBeside("garbage");
  EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(TradosOnTheBusTest, ToolThatRefuses_IsReportedWithItsWords) {
  OpenBeside("refuse");
  EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr("No such item")));
}

TEST_F(TradosOnTheBusTest, ToolThatAnswersNumbers_IsReported) {
  OpenBeside("number");
  EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr("#290: Data in wrong format")));
}

TEST_F(TradosOnTheBusTest, ToolThatAnswersTenMegabytes_HasNotLoadedTheTerminology) {
  OpenBeside("huge");
  EXPECT_THAT(BoxesOfMultiTerm(), ElementsAre(HasSubstr(kNotLoaded)));
}

TEST_F(TradosOnTheBusTest, ToolThatTheProgramStarts_IsClosedByItAtTheEnd) {
  const auto real =
      MakeHostPlatform({Native(R"(\)").string(), (Native(R"(\)").parent_path() / "config").string()});
  std::swap(ThePlatform().shell, real->shell);
  Start(kPackage);
  EXPECT_THAT(BoxesOfMultiTerm(), IsEmpty());
  ASSERT_TRUE(Eventually([this] { return IsUp(); }));
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(Eventually([this] { return !IsUp(); }));
  std::swap(ThePlatform().shell, real->shell);
}

TEST_F(TradosOnTheBusTest, ToolOfTheUser_StaysOpen) {
  const StandInMultiTerm multiTerm("good");
  Start(kPackage);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_TRUE(IsUp());
}

}  // namespace
}  // namespace qb
