#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/CachedProfileFiles.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxTextCodec.h"
#include "runtime/RuntimeError.h"
#include "support/FolderTest.h"

namespace qb {
namespace {

constexpr std::string_view kFile = R"(\Trans.pxf)";

/// A process of its own with profile files of its own.
struct Workbench {
  /// Waits for others as long as a slow disk takes.
  explicit Workbench(const std::string& root) : files(root, std::chrono::minutes(2)) {}

  bool Set(std::string_view section, const std::string& key, std::string_view value) {
    return profiles.WritePrivateProfileString(section, key, value, kFile);
  }
  std::string Get(std::string_view section, const std::string& key) {
    return profiles.GetPrivateProfileString(section, key, "-", 255, kFile);
  }

  LinuxFileSystem files;
  LinuxTextCodec codec;
  CachedProfileFiles profiles{files, codec, [](const ProfileImage&) { return 1252U; }};
};

class ProfileFilesProcessesTest : public FolderTest {
 protected:
  /// Runs `work` in a process of its own, whose exit code says whether it went well.
  template <class Work>
  pid_t Fork(Work work) {
    const pid_t process = fork();
    if (process == 0) _exit(work() ? 0 : 1);
    return process;
  }

  static bool WentWell(pid_t process) {
    int status = 0;
    return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
};

TEST_F(ProfileFilesProcessesTest, TwoWriters_LoseNoKeys) {
  constexpr int kKeys = 60;
  const auto writer = [this](const std::string& name) {
    return Fork([this, name] {
      Workbench bench(Root());
      bool good = true;
      for (int i = 0; i < kKeys; ++i) good = bench.Set("A", name + std::to_string(i), "v") && good;
      return good;
    });
  };
  const pid_t first = writer("X");
  const pid_t second = writer("Y");
  EXPECT_TRUE(WentWell(first));
  EXPECT_TRUE(WentWell(second));
  Workbench bench(Root());
  for (int i = 0; i < kKeys; ++i) {
    EXPECT_EQ(bench.Get("A", "X" + std::to_string(i)), "v");
    EXPECT_EQ(bench.Get("A", "Y" + std::to_string(i)), "v");
  }
}

TEST_F(ProfileFilesProcessesTest, TwoBatches_LoseNoKeys) {
  const auto writer = [this](const std::string& name) {
    return Fork([this, name] {
      Workbench bench(Root());
      for (int round = 0; round < 10; ++round) {
        ProfileBatch batch(bench.profiles, kFile);
        for (int i = 0; i < 5; ++i) bench.Set("A", name + std::to_string(round * 5 + i), "v");
        if (!batch.End()) return false;
      }
      return true;
    });
  };
  const pid_t first = writer("X");
  const pid_t second = writer("Y");
  EXPECT_TRUE(WentWell(first));
  EXPECT_TRUE(WentWell(second));
  Workbench bench(Root());
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(bench.Get("A", "X" + std::to_string(i)), "v");
    EXPECT_EQ(bench.Get("A", "Y" + std::to_string(i)), "v");
  }
}

TEST_F(ProfileFilesProcessesTest, WriteOfAnotherProcess_ShowsAtTheNextCall) {
  Workbench bench(Root());
  EXPECT_TRUE(bench.Set("A", "K", "0"));
  for (int i = 1; i < 10; ++i) {
    const std::string value = std::to_string(i);
    EXPECT_TRUE(WentWell(Fork([this, value] { return Workbench(Root()).Set("A", "K", value); })));
    EXPECT_EQ(bench.Get("A", "K"), value);
  }
}

TEST_F(ProfileFilesProcessesTest, KilledWriter_LeavesAWholeFile) {
  const std::string padding(200'000, 'p');
  for (int round = 0; round < 15; ++round) {
    Put(kFile, "[A]\r\nK=start\r\nPAD=" + padding + "\r\nEND=1\r\n");
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t writer = Fork([this, &ready] {
      Workbench bench(Root());
      for (int i = 0; true; ++i) {
        if (!bench.Set("A", "K", std::to_string(i))) return false;
        if (write(ready[1], "x", 1) != 1) return false;
      }
    });
    close(ready[1]);
    std::string seen(static_cast<std::size_t>(round) + 1, '\0');
    for (char& byte : seen) ASSERT_EQ(read(ready[0], &byte, 1), 1);
    kill(writer, SIGKILL);
    int status = 0;
    waitpid(writer, &status, 0);
    close(ready[0]);
    EXPECT_TRUE(WIFSIGNALED(status));
    Workbench bench(Root());
    const std::string content = Content(kFile);
    EXPECT_EQ(content, "[A]\r\nK=" + bench.Get("A", "K") + "\r\nPAD=" + padding + "\r\nEND=1\r\n");
    EXPECT_TRUE(bench.Set("A", "K", "after")) << "the lock went with the process";
  }
}

TEST_F(ProfileFilesProcessesTest, LockOfAnotherProcess_IsWaitedForAndThenRaises70) {
  int locked[2];
  int end[2];
  ASSERT_EQ(pipe(locked), 0);
  ASSERT_EQ(pipe(end), 0);
  const pid_t holder = Fork([this, &locked, &end] {
    LinuxFileSystem files(Root());
    const auto lock = files.Lock(kFile);
    close(end[1]);
    char byte = 'x';
    return write(locked[1], &byte, 1) == 1 && read(end[0], &byte, 1) == 0;
  });
  close(end[0]);
  char byte = 0;
  ASSERT_EQ(read(locked[0], &byte, 1), 1);
  LinuxFileSystem impatient(Root(), std::chrono::milliseconds(30));
  try {
    impatient.Lock(kFile);
    ADD_FAILURE() << "nothing was raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), failure::kPermissionDenied);
  }
  close(end[1]);
  EXPECT_TRUE(WentWell(holder));
  EXPECT_NE(impatient.Lock(kFile), nullptr);
  close(locked[0]);
  close(locked[1]);
}

}  // namespace
}  // namespace qb
