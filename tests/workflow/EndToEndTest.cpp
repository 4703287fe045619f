#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "workflow/DocumentCommands.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
const std::string kDoubleLine(79, '=');
const std::string kSingleLine(79, '-');

/// Puts `line` behind `before` in a package text.
void InsertBehind(std::string& text, std::string_view before, std::string_view line) {
  const std::size_t at = text.find(before);
  ASSERT_NE(at, std::string::npos) << before;
  text.insert(at + before.size(), line);
}

void ReplaceIn(std::string& text, std::string_view old, std::string_view replacement) {
  const std::size_t at = text.find(old);
  ASSERT_NE(at, std::string::npos) << old;
  text.replace(at, old.size(), replacement);
}

/// The road of one document: open, translate, save, close, mark, quit.
class EndToEndTest : public WorkflowTest {
 protected:
  EndToEndTest() {
    Write(kPackage, SmallPackage());
    Write(R"(\pkg\dst\styles.css)", "body {}");
    Write(R"(\pkg\src\styles.css)", "body {}");
    TheClock().SetLocalNow({2003, 5, 17, 14, 22, 9});  // before today, so that a file written now is a change
  }

  void WalkTheRoad() {
    Start(kPackage);
    SelectNode("DOC1");
    Window().TransPackTree.DblClick();
    Write(R"(\pkg\dst\styles.css)", "body { color: black }");
    TheShell().EndAllProcesses();
    Tick();
    Window().mniCompleted.Click();
    EXPECT_TRUE(EndsProcess([this] { Window().mniExit.Click(); }));
  }
};

TEST_F(EndToEndTest, Road_PackageFile_IsTheDeliveredOneWithTheStatesInIt) {
  WalkTheRoad();
  std::string expected = SmallPackage();
  InsertBehind(expected, "INFOBJS=2\r\n", "FILESIZE=00000000\r\n");
  InsertBehind(expected, "TRANSTYPE=GEN\r\n", "TOUCHED=TRUE\r\n");
  ReplaceIn(expected, "1STATE=UNCHANGED", "1STATE=MODIFIED");
  InsertBehind(expected, "2SHORT_NAME1=styles.css\r\n", "PROGRESS=COMPLETE\r\n");
  InsertBehind(expected, "2SHORT_NAME1=menu.js\r\n", "PROGRESS=UNCHANGED\r\n");
  ReplaceIn(expected, "FILESIZE=00000000", "FILESIZE=" + fmt::format("{:08}", expected.size()));
  EXPECT_EQ(Bytes(kPackage), expected);
  EXPECT_EQ(Bytes(R"(\pkg\Trans.BAK)"), SmallPackage());
  EXPECT_THAT(Boxes().Texts(), ElementsAre());
}

TEST_F(EndToEndTest, Road_Protocol_HoldsEveryStep) {
  WalkTheRoad();
  const auto line = [](std::string_view number, std::string_view text) {
    std::string padded(text);
    padded.append(padded.size() < 51 ? 51 - padded.size() : 1, ' ');
    return fmt::format("#{:<3}{:<16}{}\r\n", number, "Message", padded);
  };
  const std::string header = kDoubleLine + "\r\nORB Quillbank Translator 7.1.3\r\n\r\n";
  const std::string footer = kSingleLine + "\r\nApplication finished execution. 0 errors occurred.\r\n" +
                             kDoubleLine + "\r\n\r\n\r\n";
  EXPECT_EQ(Bytes(R"(\pkg\Protocol.txt)"), header + footer + line("1", "Translating: DOC1") +
                                               line("2", "Setting status to 'completed': DOC1"));
  EXPECT_EQ(Bytes(R"(\Protocol.txt)"), header);
}

TEST_F(EndToEndTest, Mark_Trace_HoldsEveryStep) {
  Start(kPackage);
  gLoios->Item("DOC1")->state->InternalizeState("MODIFIED_C_UNCHANGED_T");
  SelectNode("DOC1");
  const std::size_t before = TraceLines().size();
  QbtMarkCompleted();
  std::vector<std::string> lines = TraceLines();
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
  const char* const expected[] = {
      "TranslateMod.GetKeyFromSelection: Selection is DOC1",
      "CState.CompleteTransition: ->",
      "CState.CompleteTransition: myState ->: '6' 'MODIFIED_C_UNCHANGED_T'",
      "CState.CompleteTransition: CompleteTransition: goto 13",
      "CState.CompleteTransition: myState <-: '13' 'COMPLETE'",
      "CState.CompleteTransition: <-",
      "CState.GetDstCurrState: ->",
      "CState.GetDstCurrState: myState ->: '13' 'COMPLETE'",
      "CState.GetDstCurrState: myState <-: '13' 'COMPLETE'",
      "CState.GetDstCurrState: <-",
      R"(CPxfFile.WritePHIOPXFEntry: write to PXF: 'True'<<< LOIO: '1' PHIO: '1' key: 'STATE' Value: 'MODIFIED' PxfFileName: '\pkg\Trans.pxf')",
      "CPxfFile.SavePHIOState: write PXF: LOIO: '1' PHIO: '1' State: 'MODIFIED'",
      R"(CPxfFile.WriteLOIOPXFEntry: write to PXF: 'True'<<< LOIO: '1' key: 'PROGRESS' Value: 'COMPLETE' PxfFileName: '\pkg\Trans.pxf')",
      "CPxfFile.SaveLOIOState: write PXF: LOIO: '1' Progress: 'COMPLETE'",
      "CPxfFile.IsQBTPackage: Is QBT Package: 'True'",
      "CPxfFile.IsLocalizationPackage: Is Localization Package: 'False'",
      "TranslateMod.QbtMarkCompleted: SET COMPLETED: DOC1",
  };
  EXPECT_THAT(lines, ElementsAreArray(expected));
}

TEST_F(EndToEndTest, Marks_LaterRuns_FindWhatWasMarked) {
  WalkTheRoad();
  ResetProgramState();
  Start(kPackage);
  EXPECT_EQ(gLoios->Item("DOC1")->state->ExternalizeState(), "COMPLETE");
  EXPECT_EQ(Window().TransPackTree.Nodes("DOC1").Image(), 2);
  EXPECT_EQ(Window().mniFileRecent(1).Caption.Get(), "&1 " + std::string(kPackage));
  EXPECT_EQ(gSessionNumber, 43);
}

}  // namespace
}  // namespace qb
