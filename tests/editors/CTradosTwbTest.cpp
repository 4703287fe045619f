#include <gmock/gmock.h>

#include "editors/CTradosTwb.h"
#include "support/TradosTest.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CTradosTwbTest : public TradosTest {
 protected:
  CTradosTwb link_;
};

TEST_F(CTradosTwbTest, Init_NotRunning_MakesTheObject) {
  EXPECT_TRUE(link_.Init({}));
  EXPECT_THAT(TheAutomation().asked, ElementsAre("new TW4Win.Application"));
}

TEST_F(CTradosTwbTest, Init_Running_TakesTheActiveObject) {
  ShowWorkbench();
  EXPECT_TRUE(link_.Init({}));
  EXPECT_THAT(TheAutomation().asked, ElementsAre("active TW4Win.Application"));
}

TEST_F(CTradosTwbTest, Init_WindowWithoutItsObject_IsFalseAndLeavesTheLinkEmpty) {
  ShowWorkbench();
  TheAutomation().active.clear();
  EXPECT_FALSE(link_.Init({}));
  EXPECT_EQ(Err.Number, 0);
  link_.Quit();
  EXPECT_THAT(workbench_->calls, IsEmpty());
}

TEST_F(CTradosTwbTest, Init_NotInstalled_IsFalseWithoutAnError) {
  TheAutomation().made.clear();
  EXPECT_FALSE(link_.Init({}));
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CTradosTwbTest, IsTwbRunning_AsksForTheClassWhateverTheTitle) {
  EXPECT_FALSE(link_.IsTwbRunning());
  TheWindows().windowTitle = "TW4Win2Class";
  EXPECT_FALSE(link_.IsTwbRunning());
  ShowWorkbench();
  EXPECT_TRUE(link_.IsTwbRunning());
  TheWindows().windowTitle = "Something else";
  EXPECT_TRUE(link_.IsTwbRunning());
}

TEST_F(CTradosTwbTest, LoadTM_OpensTheFileForTheUserLeavingTheThirdArgumentOut) {
  gUserID = "ORB AG";
  ASSERT_TRUE(link_.Init({}));
  EXPECT_EQ(link_.UserID(), "ORB AG");
  EXPECT_TRUE(link_.LoadTM(R"(\pkg\notes.tmw)"));
  EXPECT_THAT(memory_->calls, ElementsAre(R"(Open(\pkg\notes.tmw, ORB AG, , w))"));
}

TEST_F(CTradosTwbTest, LoadTM_OpenRaises_RaisesIt) {
  ASSERT_TRUE(link_.Init({}));
  memory_->callFailure = RuntimeError(4711, "TW4Win", "in use");
  EXPECT_FALSE(Attempt([this] { link_.LoadTM(R"(\pkg\notes.tmw)"); }));
  EXPECT_EQ(Err.Number, 4711);
  EXPECT_EQ(Err.Source, "TW4Win");
  EXPECT_EQ(Err.Description, "in use");
}

TEST_F(CTradosTwbTest, LoadTM_WithoutALinkOrAMemory_RaisesThatTheObjectIsNotSet) {
  EXPECT_FALSE(Attempt([this] { link_.LoadTM("x"); }));
  EXPECT_EQ(Err.Number, failure::kObjectNotSet);
  workbench_->objects["TranslationMemory"] = nullptr;
  ASSERT_TRUE(link_.Init({}));
  EXPECT_FALSE(Attempt([this] { link_.LoadTM("x"); }));
  EXPECT_EQ(Err.Number, failure::kObjectNotSet);
}

TEST_F(CTradosTwbTest, Quit_Twice_AsksOnce) {
  ASSERT_TRUE(link_.Init({}));
  link_.Quit();
  link_.Quit();
  EXPECT_THAT(workbench_->calls, ElementsAre("Quit()"));
}

TEST_F(CTradosTwbTest, Quit_OneOfTheUser_ClosesItToo) {
  ShowWorkbench();
  ASSERT_TRUE(link_.Init({}));
  link_.Quit();
  EXPECT_THAT(workbench_->calls, ElementsAre("Quit()"));
}

TEST_F(CTradosTwbTest, Quit_WorkbenchHasGone_RaisesOnce) {
  ASSERT_TRUE(link_.Init({}));
  workbench_->callFailure = RuntimeError(462);
  EXPECT_FALSE(Attempt([this] { link_.Quit(); }));
  EXPECT_EQ(Err.Number, 462);
  EXPECT_TRUE(Attempt([this] { link_.Quit(); }));
}

TEST_F(CTradosTwbTest, End_ClosesTheWorkbenchAndKeepsThePendingError) {
  {
    CTradosTwb link;
    ASSERT_TRUE(link.Init({}));
    workbench_->callFailure = RuntimeError(462);
    Err.Set(RuntimeError(failure::kTypeMismatch));
  }
  EXPECT_THAT(workbench_->calls, ElementsAre("Quit()"));
  EXPECT_EQ(Err.Number, failure::kTypeMismatch);
}

TEST_F(CTradosTwbTest, Cleanup_DoesNothing) {
  ASSERT_TRUE(link_.Init({}));
  EXPECT_EQ(link_.Cleanup("anything"), "");
  EXPECT_THAT(workbench_->calls, IsEmpty());
}

}  // namespace
}  // namespace qb
