// A document is opened while another program runs that says it is a Visio.

#include <gmock/gmock.h>

#include "editors/EditorState.h"
#include "platform/win32/Win32Automation.h"
#include "support/WorkflowTest.h"
#include "windows/trados/InstalledClass.h"
#include "windows/trados/StandInProcess.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class VisioGateTest : public WorkflowTest {
 protected:
  VisioGateTest() {
    ThePlatform().automation = std::make_unique<Win32Automation>();
    Write(R"(\pkg\Trans.pxf)", SmallPackage());
    Write(R"(\pkg\dst\styles.css)", "translation");
    Write(R"(\pkg\src\styles.css)", "source");
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"StandInVisio"); }));
  }

  /// Opens a document beside a Visio of this version.
  void OpenBeside(const std::wstring& version) {
    visio_ = std::make_unique<StandInProcess>(L"StandInVisio", version);
    ASSERT_TRUE(Eventually([] { return HasWindow(L"StandInVisio"); }));
    Start(R"(\pkg\Trans.pxf)");
    SelectNode("DOC1");
    EXPECT_TRUE(QbtTranslate());
  }

  InstalledClass installed_{L"Visio.Application", L"StandInVisio"};
  std::unique_ptr<StandInProcess> visio_;
};

TEST_F(VisioGateTest, OldVisio_HoldsCommandsBackUntilItsWindowsAreClosed) {
  OpenBeside(L"11.0");
  EXPECT_EQ(gVisioWindows, 2);
  EXPECT_FALSE(QbtTranslate());
  EXPECT_FALSE(EndsProcess([] { QbtQuit(true); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Close all Visio windows before continuing!",
                                           "Close all Visio windows before continuing!"));
}

TEST_F(VisioGateTest, AnotherVersion_HoldsNothingBack) {
  OpenBeside(L"16.0");
  EXPECT_EQ(gVisioWindows, 0);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(VisioGateTest, VisioThatWasKilled_RunsNoMore) {
  OpenBeside(L"11.0");
  visio_->Kill();
  EXPECT_FALSE(IsVisio11Running());
}

TEST_F(VisioGateTest, InstalledOnly_IsNotStarted) {
  EXPECT_FALSE(IsVisio11Running());
  EXPECT_EQ(ThePlatform().automation->ActiveObject("Visio.Application"), nullptr);
  EXPECT_FALSE(HasWindow(L"StandInVisio"));
}

}  // namespace
}  // namespace qb
