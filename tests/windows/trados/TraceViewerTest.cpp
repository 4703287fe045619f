#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "foundation/CTrace.h"
#include "platform/HostPlatform.h"
#include "windows/trados/StandInProcess.h"

namespace qb {
namespace {

using ::testing::ElementsAre;

class TraceViewerTest : public ::testing::Test {
 protected:
  TraceViewerTest() : file_(std::filesystem::temp_directory_path() / "viewer.txt") {
    std::filesystem::remove(file_);
    before_ = InstallPlatform(MakeHostPlatform());
    viewer_ = std::make_unique<StandInProcess>(L"StandInTraceViewer", L'"' + file_.wstring() + L'"');
    EXPECT_TRUE(Eventually([] { return HasWindow(nullptr, L"ORB Trace Log Viewer"); }));
  }
  ~TraceViewerTest() override { InstallPlatform(std::move(before_)); }

  std::vector<std::string> Records() {
    std::ifstream stream(file_, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }

  std::filesystem::path file_;
  std::unique_ptr<Platform> before_;
  std::unique_ptr<StandInProcess> viewer_;
};

TEST_F(TraceViewerTest, Creation_AsksForTheLevelAndSwitchesOn) {
  const CTrace trace;
  EXPECT_EQ(trace.Level, 2);
  EXPECT_TRUE(trace.Active);
  EXPECT_THAT(Records(), ElementsAre("1 own 0 "));
}

TEST_F(TraceViewerTest, Line_ArrivesFieldByField) {
  CTrace trace;
  trace.Trace(2, "TranslateMod", "QbtOpen", "Überblick");
  trace.Trace(3, "TranslateMod", "QbtOpen", "too detailed");
  EXPECT_THAT(Records(),
              ElementsAre("1 own 0 ", "0 own 114 1.0|Überblick|QbtOpen|TranslateMod|QB Translator|ORBQB|||"));
}

TEST_F(TraceViewerTest, ViewerThatHasGone_IsNoTrouble) {
  CTrace trace;
  viewer_->Kill();
  trace.Trace(2, "TranslateMod", "QbtOpen", "->");
  EXPECT_THAT(Records(), ElementsAre("1 own 0 "));
}

}  // namespace
}  // namespace qb
