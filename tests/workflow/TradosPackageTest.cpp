#include <gmock/gmock.h>

#include <filesystem>

#include "support/Links.h"
#include "support/TradosTest.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class TradosPackageTest : public TradosTest {
 protected:
  /// A package that names this terminology and this memory.
  void WritePackage(const std::string& terminology = "terms.mtw", const std::string& memory = "notes.tmw") {
    std::string text = SmallPackage();
    const std::string general = "TRANSTYPE=GEN\r\n";
    text.replace(text.find(general), general.size(),
                 "TRANSTYPE=GEN_TWB\r\nTERMINOLOGY=" + terminology + "\r\nTRANSMEMORY=" + memory + "\r\n");
    Write(kPackage, text);
    Write(R"(\pkg\terms.mtw)", "terms");
    Write(R"(\pkg\notes.tmw)", "memory");
  }
  /// The package is open as it should be, whatever the tools did.
  void ExpectOpen() {
    EXPECT_EQ(gLoios->Count(), 2U);
    EXPECT_TRUE(Window().mnuMark.Enabled);
    EXPECT_EQ(gSessionStamp, "20030517142209");
    EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), R"(&1 \pkg\Trans.pxf)");
  }
};

TEST_F(TradosPackageTest, BothTools_ComeUpWithTheFilesOfThePackage) {
  WritePackage();
  SetSetting("UserID", "Ute");
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Items(),
              Contains("mt_open#" + ThePlatform().files->ShortPathName(R"(\pkg\terms.mtw)").value_or("")));
  EXPECT_THAT(memory_->calls, ElementsAre(R"(Open(\pkg\notes.tmw, Ute, , w))"));
  ExpectOpen();
}

TEST_F(TradosPackageTest, PackageOfAnotherKind_StartsNoTool) {
  Write(kPackage, SmallPackage());
  Start(kPackage);
  EXPECT_THAT(TheShell().started, IsEmpty());
  EXPECT_THAT(TheAutomation().asked, IsEmpty());
  EXPECT_EQ(gMultiTerm, nullptr);
  EXPECT_EQ(gTwb, nullptr);
}

TEST_F(TradosPackageTest, ProgramWithoutAWindow_StartsNoTool) {
  WritePackage();
  gEditorQuestions.bringsUpTradosTools = false;
  Start(kPackage);
  EXPECT_THAT(TheShell().started, IsEmpty());
  EXPECT_THAT(TheAutomation().asked, IsEmpty());
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  ExpectOpen();
}

TEST_F(TradosPackageTest, NoNames_OpensWithoutAWord) {
  WritePackage("", "");
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Items(), Not(Contains(HasSubstr("mt_open#"))));
  EXPECT_THAT(memory_->calls, IsEmpty());
  ExpectOpen();
}

TEST_F(TradosPackageTest, NamesOfNoFiles_AreSkippedWithoutAWord) {
  WritePackage("none.mtw", R"(..\none.tmw)");
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(Items(), Not(Contains(HasSubstr("mt_open#"))));
  EXPECT_THAT(memory_->calls, IsEmpty());
  ExpectOpen();
}

TEST_F(TradosPackageTest, FilesOutsideOfThePackage_AreNotOpenedAndNamed) {
  WritePackage(R"(..\other\terms.mtw)", R"(link.tmw)");
  Write(R"(\other\terms.mtw)", "terms");
  Write(R"(\other\notes.tmw)", "memory");
  if (!MadeLink(Native(R"(\other\notes.tmw)"), Native(R"(\pkg\link.tmw)"))) GTEST_SKIP() << kNoLinks;
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(R"(The path '\pkg\..\other\terms.mtw' leads out of the package. It is not opened.)",
                          R"(The path '\pkg\link.tmw' leads out of the package. It is not opened.)"));
  EXPECT_THAT(Items(), Not(Contains(HasSubstr("mt_open#"))));
  EXPECT_THAT(memory_->calls, IsEmpty());
  ExpectOpen();
}

TEST_F(TradosPackageTest, MultiTermNotInstalled_IsReportedAndTheWorkbenchComesUp) {
  ThePlatform().files->Remove(kProgram);
  WritePackage();
  Start(kPackage);
  EXPECT_THAT(
      Boxes().Texts(),
      ElementsAre(HasSubstr("An error has occurred during property translation: #-2147221495: Could not "
                            "execute TRADOS MultiTerm; please launch manually")));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(memory_->calls, Not(IsEmpty()));
  EXPECT_EQ(Err.Number, 0);
  ExpectOpen();
}

TEST_F(TradosPackageTest, MultiTermWithoutAWindow_OpensWithoutAWord) {
  TheShell().onStart = nullptr;
  WritePackage();
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
  EXPECT_THAT(memory_->calls, Not(IsEmpty()));
  ExpectOpen();
}

TEST_F(TradosPackageTest, TerminologyThatDoesNotLoad_IsReportedWithNothingBetweenTheQuotes) {
  answers_ = [](const std::string&) { return "mt_no"; };
  WritePackage();
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Could not load terminology ''.")));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kStop);
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.QbtOpen: TERMINOLOGY NOT FOUND: "));
  EXPECT_THAT(memory_->calls, Not(IsEmpty()));
  ExpectOpen();
}

TEST_F(TradosPackageTest, MultiTermThatHangs_IsGivenUpAfterItsTime) {
  answers_ = [](const std::string& item) -> std::string {
    if (item.starts_with("mt_getfilename#")) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  WritePackage();
  Start();
  gProcessPendingEvents = [this] { TheClock().Advance(10); };
  QbtOpen(kPackage);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("Could not load terminology ''.")));
  EXPECT_EQ(gLoios->Count(), 2U);
}

TEST_F(TradosPackageTest, MultiTermThatDiesInARequest_IsReported) {
  for (const std::string last : {"", "mt_hide", "mt_hitlist_off", "mt_open#"}) {
    answers_ = [&](const std::string& item) -> std::string {
      if (last.empty() ? !item.empty() : !item.starts_with(last)) return "mt_ok";
      CloseMultiTerm();
      throw RuntimeError(failure::kForeignApplicationQuit);
    };
    WritePackage();
    Boxes().Forget();
    Start(kPackage);
    EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("#291: Foreign application quit"))) << last;
    EXPECT_THAT(memory_->calls, Not(IsEmpty())) << last;
    ExpectOpen();
    gMultiTerm.reset();
    ResetProgramState();
    gEditorQuestions.bringsUpTradosTools = true;
  }
}

TEST_F(TradosPackageTest, WorkbenchNotInstalled_ShowsTheTwoLinesAndOpens) {
  TheAutomation().made.clear();
  WritePackage();
  Start(kPackage);
  EXPECT_THAT(
      Boxes().Texts(),
      ElementsAre("Could not launch TRADOS Translator's Workbench.\r\nPlease make sure it is installed "
                  "when working with TRADOS packages."));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kOkOnly);
  ExpectOpen();
}

TEST_F(TradosPackageTest, MemoryThatDoesNotOpen_IsReportedAndThePackageOpens) {
  memory_->callFailure = RuntimeError(-2147221504, "TW4Win", "The memory is locked.");
  WritePackage();
  Start(kPackage);
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("An error has occurred during property translation: "
                                                     "#-2147221504: The memory is locked.")));
  ExpectOpen();
}

TEST_F(TradosPackageTest, OpenedAgain_ClosesTheToolsAndBringsThemUpAnew) {
  WritePackage();
  Start(kPackage);
  QbtOpen(kPackage);
  EXPECT_THAT(TheShell().started, ElementsAre(kProgram, kProgram));
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
  EXPECT_THAT(workbench_->calls, ElementsAre("Quit()"));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TradosPackageTest, AnotherPackageOpenedWhileMultiTermIsWaitedFor_Stands) {
  Write(R"(\other\Trans.pxf)", SmallPackage());
  WritePackage();
  Start();
  int rounds = 0;
  answers_ = [&](const std::string& item) -> std::string {
    if (item.starts_with("mt_getfilename#") && rounds == 0) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  gProcessPendingEvents = [&] {
    if (rounds++ == 0) QbtOpen(R"(\other\Trans.pxf)");
  };
  QbtOpen(kPackage);
  EXPECT_EQ(gPxfFile->strFileName, R"(\other\Trans.pxf)");
  EXPECT_EQ(gTwb, nullptr);
  EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), R"(&1 \other\Trans.pxf)");
  EXPECT_TRUE(Window().mniTranslate.Enabled);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TradosPackageTest, QuitWhileMultiTermIsWaitedFor_EndsTheProgram) {
  WritePackage();
  Start();
  answers_ = [](const std::string& item) -> std::string {
    if (item.starts_with("mt_getfilename#")) throw RuntimeError(failure::kDdeTimeout);
    return "mt_ok";
  };
  gProcessPendingEvents = [] { QbtQuit(false); };
  EXPECT_TRUE(EndsProcess([] { QbtOpen(kPackage); }));
  EXPECT_THAT(TheWindows().sentKeys, ElementsAre("%{F4}"));
}

TEST_F(TradosPackageTest, Quit_ClosesMultiTermThenTheWorkbenchBeforeTheWindowGoes) {
  std::vector<std::string> order;
  TheWindows().onKeys = [&] {
    EXPECT_EQ(gPxfFile, nullptr);
    order.emplace_back("MultiTerm, Workbench asked " + std::to_string(workbench_->calls.size()) + " times");
    CloseMultiTerm();
  };
  WritePackage();
  Start(kPackage);
  Kit().calls.clear();
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(order, ElementsAre("MultiTerm, Workbench asked 0 times"));
  EXPECT_THAT(workbench_->calls, ElementsAre("Quit()"));
  EXPECT_EQ(gMultiTerm, nullptr);
  EXPECT_EQ(gTwb, nullptr);
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(TradosPackageTest, Quit_LeavesAMultiTermOfTheUserOpen) {
  ShowMultiTerm();
  WritePackage();
  Start(kPackage);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(TheWindows().sentKeys, IsEmpty());
}

TEST_F(TradosPackageTest, Quit_WorkbenchClosedByTheUser_SaysSoAndEndsTheNextTime) {
  WritePackage();
  Start(kPackage);
  workbench_->callFailure = RuntimeError(462, {}, "The remote server machine does not exist");
  EXPECT_FALSE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre(HasSubstr("TranslateMod::int_Quit() #462")));
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
}

}  // namespace
}  // namespace qb
