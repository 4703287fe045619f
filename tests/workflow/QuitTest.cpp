#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"
#include "workflow/OpenPackage.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class QuitTest : public WorkflowTest {
 protected:
  QuitTest() {
    Write(kPackage, SmallPackage());
    Write(R"(\pkg\dst\styles.css)", "x");
    Write(R"(\pkg\src\styles.css)", "x");
    TheClock().SetLocalNow({2200, 1, 1, 0, 0, 0});
    Start(kPackage);
  }
  void OpenAnEditor() {
    SelectNode("DOC1");
    ASSERT_TRUE(QbtTranslate());
  }
};

TEST_F(QuitTest, NoEditorOpen_EndsWithoutAQuestion) {
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(Boxes().Texts(), IsEmpty());
}

TEST_F(QuitTest, NoEditorOpen_WritesSettingsFooterAndReleasesAll) {
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_EQ(Setting("SessionNumber"), "42");
  EXPECT_EQ(Setting("LastFile1"), kPackage);
  EXPECT_EQ(gPxfFile, nullptr);
  EXPECT_EQ(gMessageHandler, nullptr);
  EXPECT_EQ(gTrace, nullptr);
  EXPECT_EQ(gLoios, nullptr);
  EXPECT_EQ(gEditorSlots, nullptr);
  EXPECT_THAT(Kit().calls, Contains("unload frmQBTranslator"));
}

TEST_F(QuitTest, Always_WritesNoByteOfThePackage) {
  const std::string before = Bytes(kPackage);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(true); }));
  EXPECT_EQ(Bytes(kPackage), before);
}

TEST_F(QuitTest, PackageReleasedFirst_FooterGoesToTheProgramsDirectory) {
  const std::string protocol = Bytes(R"(\pkg\Protocol.txt)");
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_EQ(Bytes(R"(\pkg\Protocol.txt)"), protocol);
}

TEST_F(QuitTest, EditorOpenAnswerNo_GoesOnAndAsksAgainLater) {
  OpenAnEditor();
  Boxes().AnswerNext(box::kNo);
  EXPECT_FALSE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_FALSE(gQuitting);
  ASSERT_THAT(Boxes().Texts(), ElementsAre("Do you really want to quit Quillbank Translator?"));
  EXPECT_EQ(Boxes().Shown()[0].style, box::kYesNo);
  TheShell().EndAllProcesses();
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
}

TEST_F(QuitTest, EditorClosedDuringItsBox_EndsItsSessionAsUsual) {
  OpenAnEditor();
  Boxes().AnswerNext(box::kYes);
  Boxes().WhileNextNotice([this] { TheShell().EndAllProcesses(); });
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre("Do you really want to quit Quillbank Translator?", "Please close editor"));
}

TEST_F(QuitTest, EditorThatStaysOpen_OutlivesTheProgramWithoutATransition) {
  OpenAnEditor();
  Boxes().AnswerNext(box::kYes);
  EXPECT_TRUE(EndsProcess([] { QbtQuit(false); }));
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T");
}

TEST_F(QuitTest, Force_AsksNothing) {
  OpenAnEditor();
  EXPECT_TRUE(EndsProcess([] { QbtQuit(true); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Please close editor"));
}

TEST_F(QuitTest, VisioWindowsOut_StaysEvenByForce) {
  gVisioWindows = 2;
  EXPECT_FALSE(EndsProcess([] { QbtQuit(true); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre("Close all Visio windows before continuing!"));
  EXPECT_NE(gPxfFile, nullptr);
}

TEST_F(QuitTest, StepFails_IsReportedAndMayBeTriedAgain) {
  OpenAnEditor();
  const auto loios = std::exchange(gLoios, std::make_shared<Collection<std::shared_ptr<CLoioEntry>>>());
  EXPECT_FALSE(EndsProcess([] { QbtQuit(true); }));
  EXPECT_THAT(Boxes().Texts(),
              ElementsAre(HasSubstr("An error has occurred during program termination: #5: ")));
  EXPECT_FALSE(gQuitting);
  gLoios = loios;
  TheShell().EndAllProcesses();
  EXPECT_TRUE(EndsProcess([] { QbtQuit(true); }));
}

TEST_F(QuitTest, WindowAskedToUnload_QuitsAndKeepsTheWindow) {
  OpenAnEditor();
  Boxes().AnswerNext(box::kNo);
  EXPECT_TRUE(Window().QueryUnload(Form::kUnloadByUser));
  EXPECT_NE(gPxfFile, nullptr);
  EXPECT_TRUE(EndsProcess([this] { Window().QueryUnload(Form::kUnloadByTaskManager); }));
}

TEST_F(QuitTest, MenuExit_Quits) {
  EXPECT_TRUE(EndsProcess([this] { Window().mniExit.Click(); }));
}

TEST_F(QuitTest, IllFormedData_EndsTheRunAfterItsBox) {
  std::string text = SmallPackage();
  text.replace(text.find("1ROLE=DST_CURR"), 14, "1ROLE=dst_curr");
  Write(R"(\bad\Trans.pxf)", text);
  EXPECT_TRUE(EndsProcess([] { QbtOpen(R"(\bad\Trans.pxf)"); }));
  EXPECT_THAT(Boxes().Texts(), ElementsAre(EndsWith("")));
  EXPECT_THAT(Boxes().Texts()[0],
              HasSubstr("Ill-formed data encountered in PXF file; please contact technical "
                        "support staff."));
}

TEST_F(QuitTest, PackageLeftOpenByAKilledProgram_HealsAtTheNextLoad) {
  OpenAnEditor();
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "OPENUNCHANGED_C_UNCHANGED_T");
  TheShell().EndAllProcesses();
  gEditorSlots.reset();  // what a killed process leaves: the file as it stands
  ThePlatform().profiles->WritePrivateProfileString("1", "PROGRESS", "OPENUNCHANGED_C_UNCHANGED_T", kPackage);
  ThePlatform().profiles->WritePrivateProfileString("2", "PROGRESS", "OPENMODIFIED_C_OPENMODIFIED_T",
                                                    kPackage);
  QbtOpen(kPackage);
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "UNCHANGED");
  EXPECT_EQ(Entry(kPackage, "2", "PROGRESS"), "MODIFIED");
}

}  // namespace
}  // namespace qb
