#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <thread>

#include "platform/CachedProfileFiles.h"
#include "platform/win32/SystemHandle.h"
#include "platform/win32/SystemHeaders.h"
#include "platform/win32/Win32FileSystem.h"
#include "platform/win32/Win32Paths.h"
#include "platform/win32/Win32Text.h"
#include "platform/win32/Win32TextCodec.h"
#include "support/FolderTest.h"

namespace qb {
namespace {

constexpr std::string_view kFile = R"(\Trans.pxf)";
constexpr DWORD kPatience = 120'000;  // milliseconds

class ProfileFilesProcessesTest : public FolderTest {
 protected:
  /// Starts the program that writes so many rounds of keys.
  SystemHandle StartWriter(const std::string& name, int rounds) const {
    std::wstring program(MAX_PATH, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
    std::wstring command = L"\"" + FolderOf(program) + L"\\profile_writer.exe\" \"" + Wide(Root()) + L"\" " +
                           Wide(name) + L" " + std::to_wstring(rounds);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    EXPECT_NE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                             &started),
              FALSE);
    const SystemHandle thread(started.hThread);
    return SystemHandle(started.hProcess);
  }

  static bool WentWell(const SystemHandle& process) {
    DWORD code = 1;
    return WaitForSingleObject(process.Get(), kPatience) == WAIT_OBJECT_0 &&
           GetExitCodeProcess(process.Get(), &code) != FALSE && code == 0;
  }

  std::string Get(const std::string& key) {
    return profiles_.GetPrivateProfileString("A", key, "-", 255, kFile);
  }

  Win32FileSystem files_{Root()};
  Win32TextCodec codec_;
  CachedProfileFiles profiles_{files_, codec_, [](const ProfileImage&) { return 1252U; }};
};

TEST_F(ProfileFilesProcessesTest, TwoWriters_LoseNoKeys) {
  constexpr int kRounds = 8;
  const SystemHandle first = StartWriter("X", kRounds);
  const SystemHandle second = StartWriter("Y", kRounds);
  EXPECT_TRUE(WentWell(first));
  EXPECT_TRUE(WentWell(second));
  for (int i = 0; i < kRounds * 6; ++i) {
    EXPECT_EQ(Get("X" + std::to_string(i)), "v");
    EXPECT_EQ(Get("Y" + std::to_string(i)), "v");
  }
}

TEST_F(ProfileFilesProcessesTest, KilledWriter_LeavesAWholeFileAndNoLock) {
  const SystemHandle writer = StartWriter("K", 1'000'000);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
  while (Get("K20") != "v" && std::chrono::steady_clock::now() < end) Sleep(5);
  ASSERT_NE(TerminateProcess(writer.Get(), 9), FALSE);
  WaitForSingleObject(writer.Get(), kPatience);
  const std::string bytes = Content(kFile);
  EXPECT_TRUE(bytes.starts_with("[A]\r\nK0=v\r\nK1=v\r\n"));
  EXPECT_TRUE(bytes.ends_with("=v\r\n"));
  EXPECT_TRUE(profiles_.WritePrivateProfileString("A", "AFTER", "1", kFile)) << profiles_.LastRefusal();
  EXPECT_EQ(Get("AFTER"), "1");
  EXPECT_EQ(Get("K20"), "v");
}

}  // namespace
}  // namespace qb
