#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "MockPlatform.h"
#include "foundation/CTrace.h"
#include "runtime/RuntimeError.h"
#include "support/Links.h"
#include "support/TestPlatform.h"

namespace qb {

/// A parameter that counts how often it was turned into text.
struct CountedParameter {
  int* count;
};

}  // namespace qb

template <>
struct fmt::formatter<qb::CountedParameter> : fmt::formatter<int> {
  template <class Context>
  auto format(const qb::CountedParameter& parameter, Context& context) const {
    ++*parameter.count;
    return fmt::format_to(context.out(), "counted");
  }
};

namespace qb {
namespace {

using namespace std::string_literals;

constexpr std::string_view kLog = R"(\trace.txt)";

class CTraceTest : public PlatformTest {
 protected:
  CTraceTest()
      : environment_(Replace<FakeEnvironment>(ThePlatform().environment)),
        windows_(Replace<FakeWindows>(ThePlatform().windows)),
        clock_(UseFakeClock()) {
    environment_.variables["COMPUTERNAME"] = "WS1";
  }

  /// Puts a trace with an open log into `gTrace`.
  void StartTrace(std::int16_t level = 3) {
    gTrace = std::make_unique<CTrace>();
    gTrace->Level = level;
    gTrace->Active = true;
    gTrace->OpenLog(kLog);
  }

  void ShowViewer(std::int64_t reply) {
    windows_.windowTitle = "ORB Trace Log Viewer";
    windows_.reply = reply;
  }

  FakeEnvironment& environment_;
  FakeWindows& windows_;
  FakeClock& clock_;
};

TEST_F(CTraceTest, Creation_NoViewer_IsSilent) {
  const CTrace trace;
  EXPECT_EQ(trace.App, "ORBQB");
  EXPECT_EQ(trace.Level, 0);
  EXPECT_FALSE(trace.Active);
  EXPECT_TRUE(windows_.records.empty());
}

TEST_F(CTraceTest, Creation_Viewer_GivesTheLevelAndTurnsTheTraceOn) {
  ShowViewer(2);
  const CTrace trace;
  ASSERT_EQ(windows_.records.size(), 1U);
  EXPECT_EQ(windows_.records[0].window, FakeWindows::kWindow);
  EXPECT_EQ(windows_.records[0].number, 1U);
  EXPECT_EQ(windows_.records[0].payload, std::nullopt);
  EXPECT_EQ(trace.Level, 2);
  EXPECT_TRUE(trace.Active);
}

TEST_F(CTraceTest, Creation_ViewersReply_CountsInItsLow16Bits) {
  ShowViewer(0x7FFF0003);
  EXPECT_EQ(CTrace().Level, 3);
  ShowViewer(0x1FFFF);
  EXPECT_EQ(CTrace().Level, -1);
}

TEST_F(CTraceTest, Creation_TitleThatOnlyBeginsSo_IsNoViewer) {
  windows_.windowTitle = "ORB Trace Log Viewer 2";
  EXPECT_FALSE(CTrace().Active);
}

TEST_F(CTraceTest, Trace_Line_ByteForByte) {
  StartTrace();
  gTrace->Trace(2, "TranslateMod", "Main", "->");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      TranslateMod.Main: ->\r\n");
}

TEST_F(CTraceTest, Trace_Lines_AreInTheFileBeforeItIsClosed) {
  StartTrace();
  gTrace->Trace(1, "M", "P", "one");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: one\r\n");
  gTrace->Trace(1, "M", "P", "two");
  EXPECT_EQ(Bytes(kLog),
            "2003-05-17 14:22:09 WS1      M.P: one\r\n2003-05-17 14:22:09 WS1      M.P: two\r\n");
}

TEST_F(CTraceTest, Trace_Time_IsLocalAndFollowsTheClock) {
  clock_.SetOffset(3600);
  clock_.SetLocalNow({2024, 1, 2, 3, 4, 5});
  StartTrace();
  gTrace->Trace(1, "M", "P", "");
  clock_.Advance(1);
  gTrace->Trace(1, "M", "P", "");
  EXPECT_EQ(Bytes(kLog), "2024-01-02 03:04:05 WS1      M.P: \r\n2024-01-02 03:04:06 WS1      M.P: \r\n");
}

TEST_F(CTraceTest, Trace_ComputerName_PaddedAndCutToNineCharacters) {
  const std::vector<std::pair<std::string, std::string>> table = {
      {"", "         "},
      {"A", "A        "},
      {"EIGHT-88", "EIGHT-88 "},
      {"NINE-9999", "NINE-9999"},
      {"TWELVE-WIDE-", "TWELVE-WI"},
  };
  for (const auto& [name, expected] : table) {
    environment_.variables["COMPUTERNAME"] = name;
    StartTrace();
    gTrace->Trace(1, "M", "P", "t");
    EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 " + expected + "M.P: t\r\n");
  }
}

TEST_F(CTraceTest, Trace_UnsetComputerName_IsNineBlanks) {
  environment_.variables.clear();
  StartTrace();
  gTrace->Trace(1, "M", "P", "t");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09          M.P: t\r\n");
}

TEST_F(CTraceTest, Trace_ComputerName_CountsCharactersNotBytes) {
  environment_.variables["COMPUTERNAME"] = "BÜRO-ÄÖÜ-1";
  StartTrace();
  gTrace->Trace(1, "M", "P", "t");
  TextCodec& codec = *ThePlatform().codec;
  EXPECT_EQ(codec.Decode(Bytes(kLog), codec.SystemCodePage()), "2003-05-17 14:22:09 BÜRO-ÄÖÜ-M.P: t\r\n");
}

TEST_F(CTraceTest, Trace_Text_GoesOutInTheSystemsCodePage) {
  StartTrace();
  gTrace->Trace(1, "M", "P", "größer");
  TextCodec& codec = *ThePlatform().codec;
  EXPECT_EQ(Bytes(kLog),
            "2003-05-17 14:22:09 WS1      M.P: " + codec.Encode("größer", codec.SystemCodePage()) + "\r\n");
}

TEST_F(CTraceTest, Trace_LevelAtTheLimit_IsWrittenAboveItDropped) {
  StartTrace(2);
  gTrace->Trace(3, "M", "P", "dropped");
  EXPECT_EQ(Bytes(kLog), "");
  gTrace->Trace(2, "M", "P", "written");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: written\r\n");
}

TEST_F(CTraceTest, Trace_Inactive_GoesNowhereWhateverTheLevel) {
  ShowViewer(3);
  StartTrace();
  windows_.records.clear();
  gTrace->Active = false;
  gTrace->Trace(1, "M", "P", "x");
  gTrace->Trace(-1, "M", "P", "x");
  EXPECT_EQ(Bytes(kLog), "");
  EXPECT_TRUE(windows_.records.empty());
}

TEST_F(CTraceTest, Trace_OffAndOnAgain_TheLogGoesOn) {
  StartTrace();
  gTrace->Trace(1, "M", "P", "1");
  gTrace->Active = false;
  gTrace->Trace(1, "M", "P", "2");
  gTrace->Active = true;
  gTrace->Trace(1, "M", "P", "3");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: 1\r\n2003-05-17 14:22:09 WS1      M.P: 3\r\n");
}

TEST_F(CTraceTest, OpenLog_ExistingFile_IsEmptied) {
  Write(kLog, "old content");
  StartTrace();
  EXPECT_EQ(Bytes(kLog), "");
}

TEST_F(CTraceTest, OpenLog_UnwritablePath_SkipsLinesAndTheViewerGoesOn) {
  ShowViewer(3);
  StartTrace();
  windows_.records.clear();
  EXPECT_NO_THROW(gTrace->OpenLog(R"(\no\such\folder\trace.txt)"));
  EXPECT_EQ(Err.Number, 0);
  EXPECT_NO_THROW(gTrace->Trace(1, "M", "P", "x"));
  EXPECT_EQ(windows_.records.size(), 1U);
  EXPECT_EQ(Bytes(kLog), "");
}

TEST_F(CTraceTest, OpenLog_PathWithADrive_OpensTheFileThere) {
  const std::string path = Native(kLog).string();
  if (path.substr(1, 2) != R"(:\)") GTEST_SKIP() << "paths have no drives here";
  StartTrace();
  gTrace->CloseLog();
  gTrace->OpenLog(path);
  gTrace->Trace(1, "M", "P", "x");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: x\r\n");
}

TEST_F(CTraceTest, OpenLog_EmptyName_OpensNoFile) {
  ShowViewer(3);
  CTrace trace;
  trace.OpenLog("");
  trace.Trace(1, "M", "P", "x");
  EXPECT_EQ(windows_.records.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_empty(Native(R"(\)")));
}

TEST_F(CTraceTest, CloseLog_LinesAfterIt_AreNotWritten) {
  StartTrace();
  gTrace->CloseLog();
  gTrace->Trace(1, "M", "P", "x");
  EXPECT_EQ(Bytes(kLog), "");
  gTrace->OpenLog(kLog);
  gTrace->Trace(1, "M", "P", "y");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: y\r\n");
}

TEST_F(CTraceTest, Trace_FullDisk_ReachesTheCaller) {
  if (!MadeLink("/dev/full", Native(kLog))) GTEST_SKIP() << kNoLinks;
  StartTrace();
  EXPECT_THROW(gTrace->Trace(1, "M", "P", "x"), RuntimeError);
}

TEST_F(CTraceTest, Trace_ViewerRecord_HoldsTheFieldsInTheirOrder) {
  ShowViewer(3);
  StartTrace();
  windows_.records.clear();
  gTrace->App = "ORBQB2";
  gTrace->Trace(1, "Module", "Procedure", "t\u00FC\U0001F600");
  ASSERT_EQ(windows_.records.size(), 1U);
  EXPECT_EQ(windows_.records[0].window, FakeWindows::kWindow);
  EXPECT_EQ(windows_.records[0].number, 0U);
  EXPECT_EQ(windows_.records[0].payload,
            u"1.0\0t\u00FC\U0001F600\0Procedure\0Module\0QB Translator\0ORBQB2\0\0\0"s);
}

TEST_F(CTraceTest, Trace_TextWithNul_ShiftsTheFieldsOfTheViewerRecord) {
  ShowViewer(3);
  StartTrace();
  gTrace->Trace(1, "M", "P", "a\0b"s);
  EXPECT_EQ(windows_.records.back().payload, u"1.0\0a\0b\0P\0M\0QB Translator\0ORBQB\0\0\0"s);
}

TEST_F(CTraceTest, TraceFunction_WithoutTrace_DoesNothing) {
  int count = 0;
  Trace(1, "M", "P", "{}", CountedParameter{&count});
  EXPECT_EQ(count, 0);
}

TEST_F(CTraceTest, TraceFunction_Text_IsOnlyMadeWhenTheLineGoesOut) {
  StartTrace(2);
  int count = 0;
  Trace(3, "M", "P", "{}", CountedParameter{&count});
  EXPECT_EQ(count, 0);
  Trace(2, "M", "P", "{} {}", CountedParameter{&count}, 7);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      M.P: counted 7\r\n");
}

TEST_F(CTraceTest, TracePendingError_StatesNumberAndDescription) {
  StartTrace();
  Err.Set(RuntimeError(91, "source", "no {object}"));
  TracePendingError("CState", "Init");
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      CState.Init: err: '91' 'no {object}'\r\n");
  EXPECT_EQ(Err.Number, 91);
}

TEST_F(CTraceTest, TracedProcedure_WritesEnterAndLeaveMark) {
  StartTrace();
  {
    const TracedProcedure traced("CState", "Init");
    EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      CState.Init: ->\r\n");
  }
  EXPECT_EQ(
      Bytes(kLog),
      "2003-05-17 14:22:09 WS1      CState.Init: ->\r\n2003-05-17 14:22:09 WS1      CState.Init: <-\r\n");
}

TEST_F(CTraceTest, TracedProcedure_LeaveMark_KeepsThePendingErrorAndNeverRaises) {
  StartTrace();
  {
    const TracedProcedure traced("CState", "Init");
    if (!MadeLink("/dev/full", Native(R"(\full.txt)"))) GTEST_SKIP() << kNoLinks;
    gTrace->OpenLog(R"(\full.txt)");
    Err.Set(RuntimeError(91));
  }
  EXPECT_EQ(Err.Number, 91);
}

TEST_F(CTraceTest, TracedProcedure_TraceReleasedMeanwhile_PassesTheLeaveMarkOver) {
  StartTrace();
  {
    const TracedProcedure traced("TranslateMod", "int_Quit");
    gTrace.reset();
  }
  EXPECT_EQ(Bytes(kLog), "2003-05-17 14:22:09 WS1      TranslateMod.int_Quit: ->\r\n");
}

}  // namespace
}  // namespace qb
