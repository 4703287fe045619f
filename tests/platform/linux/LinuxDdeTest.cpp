#include <gmock/gmock.h>

#include <memory>

#include "platform/linux/LinuxApplicationWindows.h"
#include "platform/linux/LinuxDde.h"
#include "runtime/RuntimeError.h"
#include "support/dbus/SessionBusTest.h"

namespace qb {
namespace {

constexpr std::chrono::seconds kLong{60};         // for what comes
constexpr std::chrono::milliseconds kShort{500};  // for what never comes

class LinuxDdeTest : public ::testing::Test {
 protected:
  std::unique_ptr<DdeConversation> Connect() { return dde_.Connect("MT4WIN", "mt_init"); }
  /// What the request to open a file ends in, in a program of this mode, which does not hang.
  long FailureOfOpen(const std::string& mode) {
    const StandInMultiTerm multiTerm(mode);
    const auto conversation = Connect();
    return Attempt([&] { answer_ = conversation->Request("mt_open#/a.mtw"); }) ? 0 : Err.Number;
  }

  OwnSessionBus bus_;
  LinuxDde dde_{kLong};
  LinuxApplicationWindows windows_{kLong};
  std::string answer_;
};

TEST(DdeNames, AreMadeOfTheLettersOfApplicationAndTopic) {
  EXPECT_EQ(ddebus::NameOf("MT4WIN"), "Quillbank.Dde.MT4WIN");
  EXPECT_EQ(ddebus::NameOf("4 Terms"), "Quillbank.Dde._34_20Terms");
  EXPECT_EQ(ddebus::NameOf(""), "Quillbank.Dde._");
  EXPECT_EQ(ddebus::PathOf("mt_init"), "/Quillbank/Dde/mt_5finit");
  EXPECT_EQ(ddebus::PathOf("a/b.\xC3\xBC"), "/Quillbank/Dde/a_2fb_2e_c3_bc");
}

TEST_F(LinuxDdeTest, Connect_NobodyThere_Raises) {
  EXPECT_FALSE(Attempt([this] { Connect(); }));
  EXPECT_EQ(Err.Number, failure::kNoForeignApplication);
  EXPECT_EQ(windows_.Find("MT4WIN", std::nullopt), 0U);
}

TEST_F(LinuxDdeTest, NoBus_IsNobodyThere) {
  bus_.End();
  EXPECT_FALSE(Attempt([this] { Connect(); }));
  EXPECT_EQ(Err.Number, failure::kNoForeignApplication);
  EXPECT_EQ(windows_.Find("MT4WIN", std::nullopt), 0U);
}

TEST_F(LinuxDdeTest, Requests_ReachTheProgramInOrderTheEmptyOneToo) {
  const StandInMultiTerm multiTerm("good");
  EXPECT_NE(windows_.Find("MT4WIN", std::nullopt), 0U);
  const auto conversation = Connect();
  EXPECT_TRUE(conversation->IsOpen());
  EXPECT_EQ(conversation->Request(""), "mt_ok");
  EXPECT_EQ(conversation->Request("Mot-clé"), "mt_ok");
  EXPECT_EQ(conversation->Request("stand_in_items"), "\r\nMot-clé\r\n");
}

TEST_F(LinuxDdeTest, Request_OfAnUnknownTopic_IsRefused) {
  const StandInMultiTerm multiTerm("good");
  const auto conversation = dde_.Connect("MT4WIN", "system");
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_hide"); }));
  EXPECT_EQ(Err.Number, failure::kForeignApplicationRefuses);
}

TEST_F(LinuxDdeTest, Request_NoValidText_RaisesAndLeavesTheConversation) {
  const StandInMultiTerm multiTerm("good");
  const auto conversation = Connect();
  EXPECT_FALSE(Attempt([&] { conversation->Request("\xFF"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_EQ(conversation->Request("mt_hide"), "mt_ok");
}

TEST_F(LinuxDdeTest, Request_Refused_RaisesWithTheWordsOfTheProgram) {
  EXPECT_EQ(FailureOfOpen("refuse"), failure::kForeignApplicationRefuses);
  EXPECT_THAT(Err.Description, ::testing::HasSubstr("No such item"));
}

TEST_F(LinuxDdeTest, Request_ProgramHangs_RaisesInTime) {
  const StandInMultiTerm multiTerm("hang");
  LinuxDde impatient(kShort);
  std::unique_ptr<DdeConversation> conversation;
  ASSERT_TRUE(
      Eventually([&] { return Attempt([&] { conversation = impatient.Connect("MT4WIN", "mt_init"); }); }));
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_open#/a.mtw"); }));
  EXPECT_EQ(Err.Number, failure::kDdeTimeout);
}

TEST_F(LinuxDdeTest, Request_ProgramDiesInIt_Raises) {
  EXPECT_EQ(FailureOfOpen("die"), failure::kForeignApplicationQuit);
}

TEST_F(LinuxDdeTest, Request_AnswerThatIsNoText_Raises) {
  EXPECT_EQ(FailureOfOpen("number"), failure::kDdeWrongFormat);
}

TEST_F(LinuxDdeTest, Request_TenMegabytes_IsAnAnswer) {
  EXPECT_EQ(FailureOfOpen("huge"), 0);
  EXPECT_EQ(answer_.size(), 10'000'000U);
}

TEST_F(LinuxDdeTest, Conversation_ProgramKilled_IsNotOpenEvenIfAnotherTakesItsPlace) {
  auto first = std::make_unique<StandInMultiTerm>("good");
  const auto conversation = Connect();
  first->Kill();
  EXPECT_TRUE(Eventually([&] { return !conversation->IsOpen(); }));
  const StandInMultiTerm second("good");
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_hide"); }));
  EXPECT_EQ(Err.Number, failure::kForeignApplicationQuit);
  EXPECT_EQ(Connect()->Request("mt_hide"), "mt_ok");
}

TEST_F(LinuxDdeTest, Conversation_BusEnds_IsNotOpenAndTheProgramLives) {
  const StandInMultiTerm multiTerm("good");
  const auto conversation = Connect();
  bus_.End();
  EXPECT_FALSE(Attempt([&] { conversation->Request("mt_hide"); }));
  EXPECT_EQ(Err.Number, failure::kForeignApplicationQuit);
  EXPECT_FALSE(conversation->IsOpen());
}

TEST_F(LinuxDdeTest, SendKeys_AltF4_AsksTheProgramOfThatTitleToClose) {
  StandInMultiTerm multiTerm("good");
  windows_.SendKeys("TRADOS MultiTerm", "%{F4}");
  EXPECT_TRUE(multiTerm.Ends());
  EXPECT_TRUE(Eventually([this] { return windows_.Find("MT4WIN", std::nullopt) == 0; }));
}

TEST_F(LinuxDdeTest, SendKeys_NoSuchTitleOrKeys_Raises) {
  const StandInMultiTerm multiTerm("good");
  EXPECT_FALSE(Attempt([this] { windows_.SendKeys("TRADOS", "%{F4}"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_FALSE(Attempt([this] { windows_.SendKeys("TRADOS MultiTerm", "{ENTER}"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
  EXPECT_NE(windows_.Find("MT4WIN", std::nullopt), 0U);
}

TEST_F(LinuxDdeTest, SendKeys_TitleThatIsNoText_IsNotTheirs) {
  const StandInMultiTerm multiTerm("wrong-title");
  EXPECT_FALSE(Attempt([this] { windows_.SendKeys("TRADOS MultiTerm", "%{F4}"); }));
  EXPECT_EQ(Err.Number, failure::kInvalidArgument);
}

}  // namespace
}  // namespace qb
