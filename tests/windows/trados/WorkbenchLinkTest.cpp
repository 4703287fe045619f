#include <gmock/gmock.h>
#include <windows.h>

#include <memory>

#include "editors/CTradosTwb.h"
#include "editors/EditorState.h"
#include "platform/Platform.h"
#include "platform/win32/Win32ApplicationWindows.h"
#include "platform/win32/Win32Automation.h"
#include "runtime/RuntimeError.h"
#include "windows/trados/InstalledClass.h"
#include "windows/trados/StandInProcess.h"
#include "windows/trados/StandInWorkbench.h"

namespace qb {
namespace {

/// The Workbench is installed while a test runs.
class WorkbenchLinkTest : public ::testing::Test {
 protected:
  WorkbenchLinkTest() {
    auto platform = std::make_unique<Platform>();
    platform->windows = std::make_unique<Win32ApplicationWindows>();
    platform->automation = std::make_unique<Win32Automation>();
    before_ = InstallPlatform(std::move(platform));
    gUserID = "ORB AG";
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"TW4Win2Class"); }));
  }
  ~WorkbenchLinkTest() override {
    link_.Quit();
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"TW4Win2Class"); }));
    InstallPlatform(std::move(before_));
    gUserID.clear();
  }

  void StartWorkbench(const std::wstring& mode) {
    workbench_ = std::make_unique<StandInProcess>(L"StandInWorkbench", mode);
    ASSERT_TRUE(Eventually([] { return HasWindow(L"TW4Win2Class"); }));
  }

  InstalledClass installed_{L"TW4Win.Application", L"StandInWorkbench"};
  std::unique_ptr<Platform> before_;
  std::unique_ptr<StandInProcess> workbench_;
  CTradosTwb link_;
};

TEST_F(WorkbenchLinkTest, NotRunning_IsStartedAndOpensTheMemoryWithTheThirdArgumentLeftOut) {
  EXPECT_FALSE(link_.IsTwbRunning());
  ASSERT_TRUE(link_.Init({}));
  EXPECT_TRUE(link_.LoadTM(R"(C:\pkg\Überblick.tmw)"));
  EXPECT_EQ(OpenedByTheWorkbench(), R"(C:\pkg\Überblick.tmw|ORB AG|left out|w)");
  link_.Quit();
  EXPECT_TRUE(Eventually([] { return !HasWindow(L"TW4Win2Class"); }));
}

TEST_F(WorkbenchLinkTest, Running_IsTakenAsItIsAndClosedAtTheEnd) {
  StartWorkbench(L"");
  EXPECT_TRUE(link_.IsTwbRunning());
  ASSERT_TRUE(link_.Init({}));
  EXPECT_TRUE(link_.LoadTM(R"(C:\a.tmw)"));
  link_.Quit();
  EXPECT_TRUE(workbench_->Ends());
}

TEST_F(WorkbenchLinkTest, WindowWithoutAnObject_IsNoLink) {
  StartWorkbench(L"mute");
  EXPECT_TRUE(link_.IsTwbRunning());
  EXPECT_FALSE(link_.Init({}));
  EXPECT_EQ(Err.Number, 0);
  workbench_->Kill();
}

TEST_F(WorkbenchLinkTest, NotInstalled_IsNoLink) {
  installed_.Remove();
  EXPECT_FALSE(link_.Init({}));
  EXPECT_FALSE(Attempt([] { ThePlatform().automation->NewObject("TW4Win.Application"); }));
  EXPECT_EQ(Err.Number, failure::kCannotCreateObject);
}

TEST_F(WorkbenchLinkTest, ProgramOfTheClassGone_IsNoLink) {
  installed_.SetProgram(LR"(C:\none\there.exe)");
  EXPECT_FALSE(link_.Init({}));
}

TEST_F(WorkbenchLinkTest, OpenRaises_ComesWithNumberSourceAndDescription) {
  ASSERT_TRUE(link_.Init({}));
  EXPECT_FALSE(Attempt([this] { link_.LoadTM(R"(C:\locked.tmw)"); }));
  EXPECT_EQ(Err.Number, kLockedFailure);
  EXPECT_EQ(Err.Source, "TW4Win");
  EXPECT_EQ(Err.Description, "The memory is locked.");
}

TEST_F(WorkbenchLinkTest, WrongMemberOrArguments_Raise) {
  ASSERT_TRUE(link_.Init({}));
  const auto workbench = ThePlatform().automation->ActiveObject("TW4Win.Application");
  ASSERT_NE(workbench, nullptr);
  EXPECT_FALSE(Attempt([&] { workbench->Call("Explode"); }));
  EXPECT_EQ(Err.Number, failure::kNoSuchMember);
  EXPECT_FALSE(Attempt([&] { workbench->ObjectProperty("TranslationMemory")->Call("Open", {}); }));
  EXPECT_NE(Err.Number, 0);
}

TEST_F(WorkbenchLinkTest, ProgramKilled_RaisesAndLeavesTheProgramAlive) {
  StartWorkbench(L"");
  ASSERT_TRUE(link_.Init({}));
  workbench_->Kill();
  EXPECT_FALSE(Attempt([this] { link_.LoadTM(R"(C:\a.tmw)"); }));
  EXPECT_FALSE(Attempt([this] { link_.Quit(); }));
  EXPECT_TRUE(Attempt([this] { link_.Quit(); }));
}

}  // namespace
}  // namespace qb
