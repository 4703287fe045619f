#include <gmock/gmock.h>

#include "editors/CMultiTerm.h"
#include "support/FaultyFileSystem.h"
#include "support/TradosTest.h"
#include "ui/DDE.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kTerms = R"(\pkg\terms.mtw)";

class CMultiTermTest : public TradosTest {
 protected:
  CMultiTermTest() { Write(kTerms, "terms"); }

  /// Initialises the link and forgets what was said meanwhile.
  void Connect() {
    ASSERT_TRUE(link_.Init());
    TheDde().Forget();
  }
  /// The clock goes on by this much each time that events run.
  void PassTime(std::int64_t seconds) {
    gProcessPendingEvents = [this, seconds] {
      ++rounds_;
      TheClock().Advance(seconds);
    };
  }
  /// An answer that comes through although a failure is pending afterwards.
  static std::string LeavePending(const std::string&) {
    Err.Set(RuntimeError(failure::kTypeMismatch));
    return {};
  }
  static std::string TermsAsOldProgramsSeeThem() {
    return ThePlatform().files->ShortPathName(kTerms).value_or("");
  }
  static std::string OpenItem() { return "mt_open#" + TermsAsOldProgramsSeeThem(); }

  CMultiTerm link_;
  int rounds_ = 0;  ///< how often events ran
};

TEST_F(CMultiTermTest, Init_NotInstalled_RaisesItsErrorEvenIfOneRuns) {
  ThePlatform().registry->SetText(Hive::kCurrentUser, kEnvironmentKey, "InstallPath-Team", "");
  ShowMultiTerm();
  EXPECT_FALSE(Attempt([this] { link_.Init(); }));
  EXPECT_EQ(Err.Number, -2147221495);
  EXPECT_EQ(Err.Source, "CMultiTerm::Init");
  EXPECT_EQ(Err.Description, "Could not execute TRADOS MultiTerm; please launch manually");
  EXPECT_EQ(link_.strProgram, "0");
  EXPECT_THAT(TheDde().Log(), IsEmpty());
}

TEST_F(CMultiTermTest, Init_NotInstalledButOneRuns_LeavesThatOneOpenAtTheEnd) {
  ThePlatform().registry->SetText(Hive::kCurrentUser, kEnvironmentKey, "InstallPath-Team", "");
  ShowMultiTerm();
  EXPECT_FALSE(Attempt([this] { link_.Init(); }));
  link_.Quit();
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty());
}

TEST_F(CMultiTermTest, Init_ProgramFileMissing_Raises) {
  ThePlatform().files->Remove(kProgram);
  EXPECT_FALSE(Attempt([this] { link_.Init(); }));
  EXPECT_EQ(Err.Number, CMultiTerm::kProgramNotFound);
  EXPECT_EQ(link_.strProgram, kProgram);
}

TEST_F(CMultiTermTest, Init_NotRunning_StartsItAndConnectsInOrder) {
  TheShell().startResult = 77;
  EXPECT_TRUE(link_.Init());
  EXPECT_FALSE(link_.bWasRunning);
  EXPECT_EQ(TextOf(link_.vntProcess), "77");
  EXPECT_THAT(TheShell().started, ElementsAre(kProgram));
  EXPECT_THAT(TheDde().Log(), ElementsAre("connect MT4WIN|mt_init", "request ", "request mt_hide",
                                          "disconnect", "connect MT4WIN|mt_init", "request mt_hitlist_off"));
}

TEST_F(CMultiTermTest, Init_Running_StartsNone) {
  ShowMultiTerm();
  EXPECT_TRUE(link_.Init());
  EXPECT_TRUE(link_.bWasRunning);
  EXPECT_THAT(TheShell().started, IsEmpty());
}

TEST_F(CMultiTermTest, Init_WindowNotUpYet_LeavesNoLink) {
  TheShell().onStart = nullptr;
  EXPECT_FALSE(link_.Init());
  EXPECT_THAT(TheDde().Log(), IsEmpty());
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CMultiTermTest, Init_StartFails_RaisesWhy) {
  TheShell().startFailure = RuntimeError(failure::kFileNotFound);
  EXPECT_FALSE(Attempt([this] { link_.Init(); }));
  EXPECT_EQ(Err.Number, failure::kFileNotFound);
}

TEST_F(CMultiTermTest, Init_WindowThatDoesNotAnswer_RaisesWhatTheConnectionRaises) {
  TheWindows().classes.insert("MT4WIN");
  EXPECT_FALSE(Attempt([this] { link_.Init(); }));
  EXPECT_EQ(Err.Number, failure::kNoForeignApplication);
}

TEST_F(CMultiTermTest, Init_EachRequestFails_RaisesThatFailure) {
  for (const std::string item : {"", "mt_hide", "mt_hitlist_off"}) {
    answers_ = [&](const std::string& asked) -> std::string {
      if (asked == item) throw RuntimeError(failure::kDdeTimeout);
      return "mt_ok";
    };
    CMultiTerm link;
    EXPECT_FALSE(Attempt([&] { link.Init(); })) << item;
    EXPECT_EQ(Err.Number, failure::kDdeTimeout) << item;
  }
}

TEST_F(CMultiTermTest, Init_ErrorPendingAllTheSame_RaisesThatThereIsNoConnection) {
  answers_ = LeavePending;
  try {
    link_.Init();
    ADD_FAILURE() << "Init came through";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -2147221496);
    EXPECT_EQ(error.Source(), "CMultiTerm::Init");
    EXPECT_EQ(error.Description(), "Could not open connection to TRADOS MultiTerm");
  }
}

TEST_F(CMultiTermTest, Init_WithATrace_TracesWhatItRaises) {
  link_.objTrace = std::make_shared<CTrace>();
  link_.objTrace->Level = 1;
  link_.objTrace->Active = true;
  link_.objTrace->OpenLog(R"(\multiterm.txt)");
  answers_ = LeavePending;
  EXPECT_THROW(link_.Init(), RuntimeError);
  ThePlatform().files->Remove(kProgram);
  EXPECT_THROW(link_.Init(), RuntimeError);
  link_.objTrace->CloseLog();
  EXPECT_THAT(Bytes(R"(\multiterm.txt)"), HasSubstr("Could not open connection to TRADOS MultiTerm\r\n"));
  EXPECT_THAT(Bytes(R"(\multiterm.txt)"),
              HasSubstr("Could not execute TRADOS MultiTerm; please launch manually\r\n"));
}

TEST_F(CMultiTermTest, Load_ReadyAtOnce_ProbesAndOpensTheFile) {
  Connect();
  EXPECT_TRUE(link_.Load(kTerms));
  EXPECT_THAT(Items(), ElementsAre("mt_getfilename#", OpenItem()));
}

TEST_F(CMultiTermTest, Load_SecondFile_ProbesWithTheFirst) {
  Connect();
  EXPECT_TRUE(link_.Load(kTerms));
  TheDde().Forget();
  EXPECT_TRUE(link_.Load(kTerms));
  EXPECT_THAT(Items(), ElementsAre("mt_getfilename#" + TermsAsOldProgramsSeeThem(), OpenItem()));
}

TEST_F(CMultiTermTest, Load_NotReadyYet_WaitsLettingEventsRun) {
  Connect();
  answers_ = [this](const std::string& item) -> std::string {
    if (item.starts_with("mt_getfilename#") && rounds_ < 3) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  PassTime(5);
  EXPECT_TRUE(link_.Load(kTerms));
  EXPECT_EQ(rounds_, 3);
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CMultiTermTest, Load_NeverReady_GivesUpAfterTwentySeconds) {
  Connect();
  answers_ = [](const std::string&) -> std::string { throw RuntimeError(failure::kDdeTimeout); };
  PassTime(1);
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_EQ(rounds_, 22);  // probes at 0 to 21 seconds, 20 not being above 20
  EXPECT_THAT(Items(), Not(Contains(OpenItem())));
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty()) << "a time-out closes nothing";
  EXPECT_EQ(Err.Number, 0);
}

TEST_F(CMultiTermTest, Load_PartnerGone_GivesUpAfterTwentySeconds) {
  Connect();
  TheDde().SetPartner(nullptr);
  PassTime(4);
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_EQ(rounds_, 7);
}

TEST_F(CMultiTermTest, Load_ReadyOnTheVeryRoundOfTheTimeOut_CountsAsTimeOut) {
  Connect();
  answers_ = [this](const std::string&) -> std::string {
    if (rounds_ == 0) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  PassTime(21);
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_THAT(Items(), Not(Contains(OpenItem())));
}

TEST_F(CMultiTermTest, Load_AcrossMidnight_GivesUpAtOnce) {
  Connect();
  TheClock().SetLocalNow({2003, 5, 17, 23, 59, 59});
  answers_ = [](const std::string&) -> std::string { throw RuntimeError(failure::kDdeTimeout); };
  PassTime(2);
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_EQ(rounds_, 2);  // one second before midnight, one behind it
}

TEST_F(CMultiTermTest, Load_AcrossMidnightWithAnAnswer_GivesUpAllTheSame) {
  Connect();
  TheClock().SetLocalNow({2003, 5, 17, 23, 59, 59});
  answers_ = [this](const std::string&) -> std::string {
    if (rounds_ == 0) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  PassTime(2);
  EXPECT_FALSE(link_.Load(kTerms));
}

TEST_F(CMultiTermTest, Load_MissingFile_QuitsAndIsFalse) {
  Connect();
  EXPECT_FALSE(link_.Load(R"(\pkg\none.mtw)"));
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
  EXPECT_EQ(TextOf(link_.vntProcess), "0");
  EXPECT_EQ(link_.strBuffer, std::string(4096, ' '));
}

TEST_F(CMultiTermTest, Load_FileWithoutAShortName_QuitsAndIsFalse) {
  class NoShortNames : public FaultyFileSystem {
   public:
    using FaultyFileSystem::FaultyFileSystem;
    std::optional<std::string> ShortPathName(std::string_view) override { return std::nullopt; }
  };
  Connect();
  ThePlatform().files = std::make_unique<NoShortNames>(std::move(ThePlatform().files));
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
  EXPECT_EQ(TextOf(link_.vntProcess), "0");
}

TEST_F(CMultiTermTest, Load_MissingFileInAMultiTermOfTheUser_LeavesItOpen) {
  ShowMultiTerm();
  Connect();
  EXPECT_FALSE(link_.Load(R"(\pkg\none.mtw)"));
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty());
}

TEST_F(CMultiTermTest, Load_OtherAnswer_ClosesAMultiTermThatItStarted) {
  for (const std::string answer : {"", "mt_no", "MT_OK", "mt_ok ", "mt_ok\r\n", "garbage \x01\x7F"}) {
    CMultiTerm link;
    answers_ = [](const std::string&) { return "mt_ok"; };
    ASSERT_TRUE(link.Init());
    TheWindows().sentKeys.clear();
    answers_ = [&](const std::string& item) { return item.starts_with("mt_open#") ? answer : "mt_ok"; };
    EXPECT_FALSE(link.Load(kTerms)) << answer;
    EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}")) << answer;
  }
}

TEST_F(CMultiTermTest, Load_OtherAnswer_LeavesAMultiTermThatItFoundRunning) {
  ShowMultiTerm();
  Connect();
  answers_ = [](const std::string&) { return "mt_no"; };
  EXPECT_FALSE(link_.Load(kTerms));
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty());
}

TEST_F(CMultiTermTest, Load_TenMegabytesAsAnswer_IsFalse) {
  Connect();
  answers_ = [](const std::string&) { return std::string(10'000'000, 'x'); };
  EXPECT_FALSE(link_.Load(kTerms));
}

TEST_F(CMultiTermTest, Load_DiesInTheOpenRequest_RaisesAndLeavesNoConversation) {
  Connect();
  answers_ = [this](const std::string& item) -> std::string {
    if (!item.starts_with("mt_open#")) return "mt_ok";
    CloseMultiTerm();
    throw RuntimeError(failure::kForeignApplicationQuit);
  };
  EXPECT_FALSE(Attempt([this] { link_.Load(kTerms); }));
  EXPECT_EQ(Err.Number, failure::kForeignApplicationQuit);
  EXPECT_EQ(Default<DDE>().DDEResult.LinkMode(), LinkedTextBox::kLinkNone);
}

TEST_F(CMultiTermTest, Lookup_Command_IsRefused) {
  Connect();
  for (const std::string term : {"mt_", "MT_open#x", "Mt_hide"}) {
    std::string result = "before";
    link_.Lookup(term, result);
    EXPECT_EQ(result, "before") << term;
  }
  EXPECT_THAT(TheDde().Log(), IsEmpty());
}

TEST_F(CMultiTermTest, Lookup_NoHits_GivesAnEmptyText) {
  Connect();
  answers_ = [](const std::string& item) { return item == "mt_hitlist_get" ? "mt_no" : "mt_ok"; };
  std::string result = "before";
  link_.Lookup("pump", result);
  EXPECT_EQ(result, "");
  EXPECT_THAT(Items(), ElementsAre("pump", "mt_hitlist_done", "mt_hitlist_get"));
}

TEST_F(CMultiTermTest, Lookup_StillSearching_AsksAgainLettingEventsRun) {
  Connect();
  PassTime(60);
  answers_ = [this](const std::string& item) -> std::string {
    if (item == "mt_hitlist_get") return "mt_no";
    return rounds_ < 100 ? "mt_no" : "mt_ok";
  };
  std::string result;
  link_.Lookup("pump", result);
  EXPECT_EQ(rounds_, 100);
}

TEST_F(CMultiTermTest, Lookup_Hits_GivesAllButTheFirstWithTheirTargets) {
  Connect();
  std::string entry;
  answers_ = [&](const std::string& item) -> std::string {
    if (item == "mt_hitlist_get") return "pump\r\npump 1\r\npump 2\r\npump 3";
    if (item == "mt_target") return entry == "pump 1" ? "Pumpe" : "mt_no";
    entry = item;
    return item == "pump 2" ? "mt_no" : "mt_ok";
  };
  std::string result;
  link_.Lookup("pump", result);
  EXPECT_EQ(result, "pump 1\tPumpe\r\npump 2\t\r\npump 3\t\r\n");
  EXPECT_THAT(Items(), ElementsAre("pump", "mt_hitlist_done", "mt_hitlist_get", "pump 1", "mt_target",
                                   "pump 2", "pump 3", "mt_target"));
}

TEST_F(CMultiTermTest, Lookup_OneHit_GivesAnEmptyText) {
  Connect();
  answers_ = [](const std::string& item) { return item == "mt_hitlist_get" ? "pump" : "mt_ok"; };
  std::string result = "before";
  link_.Lookup("pump", result);
  EXPECT_EQ(result, "");
}

TEST_F(CMultiTermTest, Quit_StartedHere_ClosesItOnce) {
  Connect();
  link_.Quit();
  link_.Quit();
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
  EXPECT_THAT(TheDde().Log(), ElementsAre("disconnect"));
}

TEST_F(CMultiTermTest, Quit_WindowGone_DropsTheFailure) {
  Connect();
  TheWindows().windowTitle = "Something else";
  link_.Quit();
  EXPECT_EQ(Err.Number, 0);
  EXPECT_EQ(TextOf(link_.vntProcess), "0");
}

TEST_F(CMultiTermTest, End_StartedHere_ClosesItAndKeepsThePendingError) {
  {
    CMultiTerm link;
    ASSERT_TRUE(link.Init());
    Err.Set(RuntimeError(failure::kTypeMismatch));
  }
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
  EXPECT_EQ(Err.Number, failure::kTypeMismatch);
}

TEST_F(CMultiTermTest, End_FoundRunning_LeavesItOpen) {
  ShowMultiTerm();
  {
    CMultiTerm link;
    ASSERT_TRUE(link.Init());
  }
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty());
}

}  // namespace
}  // namespace qb
