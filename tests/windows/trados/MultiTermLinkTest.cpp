#include <gmock/gmock.h>
#include <windows.h>

#include "platform/Platform.h"
#include "platform/win32/Win32ApplicationWindows.h"
#include "platform/win32/Win32Dde.h"
#include "runtime/RuntimeError.h"
#include "windows/trados/StandInProcess.h"

namespace qb {
namespace {

class MultiTermLinkTest : public ::testing::Test {
 protected:
  MultiTermLinkTest() {
    EXPECT_TRUE(Eventually([] { return !HasWindow(L"MT4WIN"); }));
  }
  /// The program goes first: Wine's library waits for the end of a conversation with one that hangs.
  ~MultiTermLinkTest() override { multiTerm_.reset(); }

  /// Starts the other program in one of its modes and waits for its window.
  void StartMultiTerm(const std::wstring& mode) {
    multiTerm_ = std::make_unique<StandInProcess>(L"StandInMultiTerm", mode);
    ASSERT_TRUE(Eventually([] { return HasWindow(L"MT4WIN", L"TRADOS MultiTerm"); }));
  }
  std::unique_ptr<DdeConversation> Connect() { return dde_.Connect("MT4WIN", "mt_init"); }
  /// What the request to open a file ends in, in a program of this mode.
  long FailureOfOpen(const std::wstring& mode) {
    StartMultiTerm(mode);
    conversation_ = Connect();
    EXPECT_EQ(conversation_->Request("mt_hide"), "mt_ok");
    return Attempt([&] { answer_ = conversation_->Request(R"(mt_open#C:\A.MTW)"); }) ? 0 : Err.Number;
  }

  Win32Dde dde_;
  Win32ApplicationWindows windows_;
  std::unique_ptr<StandInProcess> multiTerm_;
  std::unique_ptr<DdeConversation> conversation_;
  std::string answer_;
};

TEST_F(MultiTermLinkTest, Connect_NobodyThere_Raises) {
  EXPECT_FALSE(Attempt([this] { Connect(); }));
  EXPECT_EQ(Err.Number, failure::kNoForeignApplication);
}

TEST_F(MultiTermLinkTest, Connect_UnknownTopic_Raises) {
  StartMultiTerm(L"good");
  EXPECT_FALSE(Attempt([this] { dde_.Connect("MT4WIN", "system"); }));
  EXPECT_EQ(Err.Number, failure::kNoForeignApplication);
}

TEST_F(MultiTermLinkTest, Requests_ReachTheProgramInOrder) {
  StartMultiTerm(L"good");
  const auto conversation = Connect();
  EXPECT_TRUE(conversation->IsOpen());
  EXPECT_EQ(conversation->Request(""), "");
  EXPECT_EQ(conversation->Request("mt_hide"), "mt_ok");
  EXPECT_EQ(conversation->Request("Mot-clé"), "mt_ok");
  EXPECT_EQ(conversation->Request("stand_in_items"), "mt_hide\r\nMot-clé\r\n");
}

TEST_F(MultiTermLinkTest, Request_LongerThanTheSystemCarries_Raises) {
  StartMultiTerm(L"good");
  const auto conversation = Connect();
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_open#" + std::string(300, 'x')); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_EQ(conversation->Request("mt_hide"), "mt_ok");
}

TEST_F(MultiTermLinkTest, Conversation_Ended_LeavesRoomForTheNext) {
  StartMultiTerm(L"good");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Connect()->Request("mt_hide"), "mt_ok");
}

TEST_F(MultiTermLinkTest, Request_Refused_Raises) {
  EXPECT_EQ(FailureOfOpen(L"refuse"), failure::kForeignApplicationRefuses);
}

TEST_F(MultiTermLinkTest, Request_ProgramHangs_RaisesInTimeAndSoDoesTheNextConnection) {
  EXPECT_EQ(FailureOfOpen(L"hang"), failure::kDdeTimeout);
  EXPECT_FALSE(Attempt([this] { Connect(); }));
  EXPECT_EQ(Err.Number, failure::kDdeTimeout);
}

TEST_F(MultiTermLinkTest, Request_ProgramDiesInIt_Raises) {
  EXPECT_EQ(FailureOfOpen(L"die"), failure::kForeignApplicationQuit);
}

TEST_F(MultiTermLinkTest, Request_Garbage_IsAnAnswer) {
  EXPECT_EQ(FailureOfOpen(L"garbage"), 0);
  EXPECT_NE(answer_, "mt_ok");
}

TEST_F(MultiTermLinkTest, Request_OneMegabyte_IsAnAnswerInOnePiece) {
  EXPECT_EQ(FailureOfOpen(L"large"), 0);
  EXPECT_EQ(answer_.size(), 1'000'000U);
}

TEST_F(MultiTermLinkTest, Request_TenMegabytes_IsAnAnswerInOnePieceOrNone) {
  // Wine loses a message of so many bytes on its way, as if the program had not answered.
  const long failed = FailureOfOpen(L"huge");
  if (failed == 0) {
    EXPECT_EQ(answer_.size(), 10'000'000U);
  } else {
    EXPECT_EQ(failed, failure::kDdeTimeout);
    EXPECT_EQ(answer_, "");
  }
}

TEST_F(MultiTermLinkTest, Conversation_ProgramKilled_IsNotOpen) {
  StartMultiTerm(L"good");
  const auto conversation = Connect();
  multiTerm_->Kill();
  EXPECT_TRUE(Eventually([&] { return !conversation->IsOpen(); }));
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_hide"); }));
  EXPECT_EQ(Err.Number, failure::kForeignApplicationQuit);
}

TEST_F(MultiTermLinkTest, SendKeys_AltF4_ClosesTheWindowOfThatTitle) {
  StartMultiTerm(L"good");
  EXPECT_NE(windows_.Find("MT4WIN", std::nullopt), 0U);
  windows_.SendKeys("TRADOS MultiTerm", "%{F4}");
  EXPECT_TRUE(multiTerm_->Ends());
  EXPECT_EQ(windows_.Find("MT4WIN", std::nullopt), 0U);
}

TEST_F(MultiTermLinkTest, SendKeys_AltF4ToAHiddenWindow_ClosesIt) {
  StartMultiTerm(L"hidden");
  windows_.SendKeys("TRADOS MultiTerm", "%{F4}");
  EXPECT_TRUE(multiTerm_->Ends());
}

TEST_F(MultiTermLinkTest, SendKeys_NoSuchWindowOrKeys_Raises) {
  StartMultiTerm(L"good");
  EXPECT_FALSE(Attempt([this] { windows_.SendKeys("TRADOS", "%{F4}"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_FALSE(Attempt([this] { windows_.SendKeys("TRADOS MultiTerm", "{ENTER}"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_TRUE(multiTerm_->Runs());
}

}  // namespace
}  // namespace qb
