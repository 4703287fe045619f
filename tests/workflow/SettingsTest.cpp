#include <gmock/gmock.h>

#include "foundation/grvdRegistry.h"
#include "support/WorkflowTest.h"
#include "ui/frmAbout.h"
#include "workflow/Settings.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class SettingsTest : public WorkflowTest {
 protected:
  /// Starts a program that finds no settings at all.
  void StartFirstRun() { Main({}); }
};

TEST_F(SettingsTest, Main_FirstRun_WritesAllDefaults) {
  StartFirstRun();
  EXPECT_EQ(Setting("SessionNumber"), "1");
  EXPECT_EQ(Setting("InterfaceLanguage"), "en");
  EXPECT_EQ(Setting("ViewDetailed"), "0");
  EXPECT_EQ(Setting("UserID"), "ORB AG");
  EXPECT_EQ(Setting("HelpFile"), R"(en\00005554.chm)");
  EXPECT_EQ(Setting("WebBrowser"), R"(c:\Program Files\Plus!\Microsoft Internet\Iexplore.exe)");
  EXPECT_EQ(Setting("InstallationPath"), ThePlatform().files->ProgramDirectory());
  EXPECT_EQ(Setting("ProgramGroup"), "ORB Quillbank");
  EXPECT_EQ(Setting("TimerInterval"), "5000");
  for (const char* name : {"LastFile1", "LastFile2", "LastFile3", "LastFile4"})
    EXPECT_EQ(Setting(name), "-") << name;
  EXPECT_EQ(Setting("TraceFile"), "TraceFile");
  EXPECT_EQ(Setting("Trace"), "1");
}

TEST_F(SettingsTest, Main_FirstRun_IsSessionTwoWithTreeAndTrace) {
  StartFirstRun();
  EXPECT_EQ(gSessionNumber, 2);
  EXPECT_FALSE(gViewDetailed);
  EXPECT_TRUE(Window().TransPackTree.Visible);
  EXPECT_FALSE(Window().lvInfoObjectList.Visible);
  EXPECT_TRUE(gTraceOn);
  EXPECT_TRUE(gTrace->Active);
  EXPECT_EQ(gTraceFile, "TraceFile");
  std::filesystem::remove("TraceFile");
}

TEST_F(SettingsTest, Main_SessionNumberZero_CountsAsFirstRun) {
  SetSetting("SessionNumber", "0");
  SetSetting("UserID", "mine");
  SetSetting("TraceFile", R"(\trace.txt)");
  StartFirstRun();
  EXPECT_EQ(Setting("UserID"), "ORB AG");
  EXPECT_EQ(Setting("TraceFile"), "TraceFile");
  EXPECT_EQ(gSessionNumber, 2);
  std::filesystem::remove("TraceFile");
}

TEST_F(SettingsTest, Main_NumbersThatAreNone_ReadAsZero) {
  SetSetting("SessionNumber", "many");
  SetSetting("TimerInterval", "often");
  SetSetting("TraceFile", "");
  Start();
  EXPECT_EQ(gSessionNumber, 1);
  EXPECT_EQ(gTimerInterval, 0);
}

TEST_F(SettingsTest, Main_SessionNumberAtOrBeyondTheLargest_KeepsTheOtherSettings) {
  for (const auto& [stored, held] : {std::pair{"2147483647", 2147483647}, std::pair{"99999999999", 1}}) {
    ResetProgramState();
    SetSetting("SessionNumber", stored);
    SetSetting("UserID", "mine");
    SetSetting("TraceFile", "");
    Start();
    EXPECT_EQ(gSessionNumber, held) << stored;
    EXPECT_EQ(gUserID, "mine");
  }
}

TEST_F(SettingsTest, Main_ViewDetailedOne_ShowsTheList) {
  SetSetting("SessionNumber", "3");
  SetSetting("ViewDetailed", "1");
  SetSetting("TraceFile", "");
  Start();
  EXPECT_TRUE(Window().lvInfoObjectList.Visible);
  EXPECT_FALSE(Window().TransPackTree.Visible);
  EXPECT_TRUE(Window().mniDetailedView.Checked);
  EXPECT_FALSE(Window().mniShortView.Checked);
}

TEST_F(SettingsTest, Main_OnlyExactOne_TurnsTraceOn) {
  SetSetting("SessionNumber", "3");
  SetSetting("Trace", "01");
  SetSetting("TraceFile", "");
  Start();
  EXPECT_FALSE(gTraceOn);
  EXPECT_FALSE(Window().mniTrace.Checked);
}

TEST_F(SettingsTest, Main_Browser_ComesFromTheDesktopsClassAndNotFromTheOwnKey) {
  SetRegistryString(Hive::kClassesRoot, R"(http\shell\open\command)", "", "\\usr\\bin\\browser");
  SetSetting("SessionNumber", "3");
  SetSetting("WebBrowser", "never read");
  SetSetting("TraceFile", "");
  Start();
  EXPECT_EQ(gWebBrowser, "\\usr\\bin\\browser");
}

TEST_F(SettingsTest, Main_LastFileOneStored_IsTheOnlyRecentEntry) {
  SetSetting("SessionNumber", "3");
  SetSetting("TraceFile", "");
  SetSetting("LastFile1", R"(\a\b.pxf)");
  SetSetting("LastFile2", "-");
  Start();
  EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), R"(&1 \a\b.pxf)");
  EXPECT_EQ(gRecentCount, 1);
  EXPECT_TRUE(Window().mniFileRecent(1).Visible);
  EXPECT_FALSE(Window().mniFileRecent(2).Visible);
  EXPECT_TRUE(Window().mniSepRec.Visible);
}

TEST_F(SettingsTest, Main_SamePathStoredTwice_AppearsTwice) {
  SetSetting("SessionNumber", "3");
  SetSetting("TraceFile", "");
  SetSetting("LastFile1", R"(\a.pxf)");
  SetSetting("LastFile2", R"(\a.pxf)");
  Start();
  EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), R"(&1 \a.pxf)");
  EXPECT_EQ(Window().mniFileRecent(2).Caption.Get(), R"(&2 \a.pxf)");
  EXPECT_EQ(gRecentCount, 2);
}

TEST_F(SettingsTest, Main_TimerInterval_ReachesTheTimerAtTheWindowsLoad) {
  Start();
  EXPECT_EQ(Window().tmrTimer1.Interval.Get(), 5000);
  ApplySettings("en", "me", 100);
  EXPECT_EQ(gTimerInterval, 100);
  EXPECT_EQ(Window().tmrTimer1.Interval.Get(), 5000);
}

struct HelpFileCase {
  const char* stored;
  const char* held;
};

class HelpFileTest : public WorkflowTest, public ::testing::WithParamInterface<HelpFileCase> {};

TEST_P(HelpFileTest, ApplySettings_HelpFile_FollowsTheLanguageOnlyWithOneSeparator) {
  gHelpFile = GetParam().stored;
  Start();
  gHelpFile = GetParam().stored;
  ApplySettings("DE", "me", 100);
  EXPECT_EQ(gHelpFile, GetParam().held);
  EXPECT_EQ(gInterfaceLanguage, "de");
}

INSTANTIATE_TEST_SUITE_P(Table, HelpFileTest,
                         ::testing::Values(HelpFileCase{R"(en\00005554.chm)", R"(de\00005554.chm)"},
                                           HelpFileCase{"00005554.chm", "en"},
                                           HelpFileCase{R"(a\b\c.chm)", "en"}, HelpFileCase{"", "en"},
                                           HelpFileCase{R"(\x)", R"(de\x)"}));

TEST_F(SettingsTest, ApplySettings_Always_WritesTheVersionIntoTheAboutForm) {
  Start();
  EXPECT_EQ(Default<frmAbout>().lblRelease.Caption.Get(), "Version 7.1.3");
}

TEST_F(SettingsTest, QbtSetRegistrySettings_WritesWhatIsHeld) {
  Start();
  gUserID = "someone";
  gViewDetailed = true;
  gWebBrowser = "browser";
  ToggleTrace();
  Window().mniFileRecent(1).Caption = R"(&1 \x.pxf)";
  Window().mniFileRecent(2).Caption = "&2 ";
  QbtSetRegistrySettings();
  EXPECT_EQ(Setting("SessionNumber"), "42");
  EXPECT_EQ(Setting("UserID"), "someone");
  EXPECT_EQ(Setting("ViewDetailed"), "1");
  EXPECT_EQ(Setting("WebBrowser"), "browser");
  EXPECT_EQ(Setting("Trace"), "0");
  EXPECT_EQ(Setting("LastFile1"), R"(\x.pxf)");
  EXPECT_EQ(Setting("LastFile2"), "-");
  EXPECT_EQ(Setting("TimerInterval"), "5000");
}

TEST_F(SettingsTest, GetRegistryString_ValueOf255BytesWithItsTerminator_ReadsBack) {
  SetSetting("UserID", std::string(254, 'x'));
  EXPECT_EQ(Setting("UserID"), std::string(254, 'x'));
  SetSetting("UserID", std::string(255, 'x'));
  EXPECT_EQ(GetRegistryString(Hive::kCurrentUser, kSettingsKey, "UserID", "default"), "default");
}

TEST_F(SettingsTest, Main_ShowsSplashThenWindow) {
  Start();
  EXPECT_THAT(Kit().calls, ElementsAre("show frmSplash", "unload frmSplash", "show frmQBTranslator"));
  EXPECT_EQ(Pointer().shapes.front(), MousePointer::kHourglass);
  EXPECT_EQ(Pointer().shapes.back(), MousePointer::kDefault);
  EXPECT_FALSE(Window().mniDebug.Visible);
  EXPECT_EQ(gPhase, "INIT");
}

TEST_F(SettingsTest, Main_Trace_BeginsWithTheProgramsLine) {
  Start();
  const auto lines = TraceLines();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[0], "TranslateMod.Main: ORB Quillbank Translator 7.1.3 initiated");
  EXPECT_EQ(lines[1], "TranslateMod.Main: ->");
}

}  // namespace
}  // namespace qb
