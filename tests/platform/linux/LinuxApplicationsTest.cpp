#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>

#include "platform/HostPlatform.h"
#include "platform/linux/LinuxApplications.h"
#include "platform/linux/LinuxClock.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

TEST(LinuxEnvironment, Variable_IsThatOfTheProcess) {
  LinuxEnvironment environment;
  setenv("QUILLBANK_TEST", "wert", 1);
  EXPECT_EQ(environment.Variable("QUILLBANK_TEST"), "wert");
  unsetenv("QUILLBANK_TEST");
  EXPECT_EQ(environment.Variable("QUILLBANK_TEST"), "");
}

TEST(LinuxEnvironment, ComputerName_FallsBackToTheNameOfTheMachine) {
  LinuxEnvironment environment;
  char host[256] = {};
  ASSERT_EQ(gethostname(host, sizeof host - 1), 0);
  unsetenv("COMPUTERNAME");
  EXPECT_EQ(environment.Variable("COMPUTERNAME"), host);
  setenv("COMPUTERNAME", "WS1", 1);
  EXPECT_EQ(environment.Variable("COMPUTERNAME"), "WS1");
  unsetenv("COMPUTERNAME");
}

TEST(LinuxDebugger, Stop_WithoutADebugger_DoesNothing) {
  LinuxDebugger().Stop();
}

TEST(LinuxDebugger, Stop_InAWatchedProgram_StopsItThere) {
  constexpr int kNobodyMayWatch = 77;
  const pid_t watched = fork();
  ASSERT_GE(watched, 0);
  if (watched == 0) {
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(kNobodyMayWatch);
    LinuxDebugger().Stop();
    _exit(2);
  }
  int status = 0;
  ASSERT_EQ(waitpid(watched, &status, 0), watched);
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNobodyMayWatch) {
    GTEST_SKIP() << "this machine lets no program watch another";
  }
  ASSERT_TRUE(WIFSTOPPED(status)) << "ended with " << WEXITSTATUS(status);
  EXPECT_EQ(WSTOPSIG(status), SIGTRAP);
  kill(watched, SIGKILL);
  waitpid(watched, &status, 0);
}

/// Sets the time zone for one test.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    setenv("TZ", name, 1);
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
};

TEST(LinuxClock, Times_AreSplitInLocalTimeAndInUtc) {
  const TimeZone zone("XST-2");  // two hours ahead of UTC
  LinuxClock clock;
  const FileTime moment{1053181329, 999'999'999};
  EXPECT_EQ(clock.UtcTime(moment), (DateTime{2003, 5, 17, 14, 22, 9}));
  EXPECT_EQ(clock.LocalTime(moment), (DateTime{2003, 5, 17, 16, 22, 9}));
  EXPECT_EQ(clock.UtcTime({-1, 0}), (DateTime{1969, 12, 31, 23, 59, 59}));
}

TEST(LinuxClock, Now_IsTheTimeOfTheSystem) {
  LinuxClock clock;
  const std::time_t before = std::time(nullptr);
  const DateTime now = clock.LocalNow();
  const double seconds = clock.SecondsSinceMidnight();
  const std::time_t after = std::time(nullptr);
  std::time_t middle = before;
  while (middle < after && clock.LocalTime({middle, 0}) != now) ++middle;
  EXPECT_EQ(clock.LocalTime({middle, 0}), now);
  EXPECT_GE(seconds, 0);
  EXPECT_LT(seconds, 86400);
}

TEST(LinuxPlatform, Make_BringsAllButTheToolkitsParts) {
  const std::unique_ptr<Platform> platform = MakeHostPlatform({"/tmp", "/tmp"});
  EXPECT_NE(platform->files, nullptr);
  EXPECT_NE(platform->codec, nullptr);
  EXPECT_NE(platform->registry, nullptr);
  EXPECT_NE(platform->profiles, nullptr);
  EXPECT_NE(platform->shell, nullptr);
  EXPECT_NE(platform->clock, nullptr);
  EXPECT_NE(platform->environment, nullptr);
  EXPECT_EQ(platform->messageBoxes, nullptr);
  EXPECT_EQ(platform->fileDialogs, nullptr);
  EXPECT_EQ(platform->clipboard, nullptr);
  EXPECT_EQ(platform->mousePointer, nullptr);
  EXPECT_NE(platform->dde, nullptr);
  EXPECT_EQ(platform->windows->Find("class", "title"), 0U);
  EXPECT_EQ(platform->windows->SendCopyData(0, 4711, std::nullopt), 0);
}

TEST(NoAutomation, AnyClass_IsNeitherRunningNorMade) {
  const std::unique_ptr<Platform> platform = MakeHostPlatform({"/tmp", "/tmp"});
  EXPECT_EQ(platform->automation->ActiveObject("Visio.Application"), nullptr);
  EXPECT_FALSE(Attempt([&] { platform->automation->NewObject("Visio.Application"); }));
  EXPECT_EQ(Err.Number, failure::kCannotCreateObject);
}

TEST(LinuxPlatform, Parts_OutliveTheReplacementOfOthers) {
  const std::unique_ptr<Platform> platform = MakeHostPlatform({"/tmp", "/tmp"});
  platform->files.reset();
  platform->registry.reset();
  platform->codec.reset();
  EXPECT_EQ(platform->profiles->GetPrivateProfileString("A", "K", "d", 10, R"(\quillbank-no-such-file)"),
            "d");
}

}  // namespace
}  // namespace qb
