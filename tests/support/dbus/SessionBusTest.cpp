#include "support/dbus/SessionBusTest.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "platform/linux/LinuxApplicationWindows.h"

namespace qb {
namespace {
constexpr std::chrono::seconds kPatience{20};  // for what takes a fraction of it
constexpr std::chrono::milliseconds kLook{5};
}  // namespace

bool Eventually(const std::function<bool()>& happened) {
  const auto start = std::chrono::steady_clock::now();
  while (!happened()) {
    if (std::chrono::steady_clock::now() - start > kPatience) return false;
    std::this_thread::sleep_for(kLook);
  }
  return true;
}

OwnSessionBus::OwnSessionBus() : bus_(g_test_dbus_new(G_TEST_DBUS_NONE)) {
  g_test_dbus_up(bus_);
}

OwnSessionBus::~OwnSessionBus() {
  End();
  g_object_unref(bus_);
}

void OwnSessionBus::End() {
  if (!runs_) return;
  runs_ = false;
  g_test_dbus_stop(bus_);
  g_test_dbus_unset();
}

std::string StandInMultiTerm::Program() {
  return QB_STAND_IN_MULTITERM;
}

StandInMultiTerm::StandInMultiTerm(const std::string& mode, const std::string& item) {
  std::string program = Program();
  std::string how = mode;
  std::string when = item;
  char* arguments[] = {program.data(), how.data(), when.data(), nullptr};
  GError* failed = nullptr;
  if (g_spawn_async(nullptr, arguments, nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr, &process_,
                    &failed) == FALSE) {
    ADD_FAILURE() << failed->message;
    g_error_free(failed);
    return;
  }
  LinuxApplicationWindows windows;
  EXPECT_TRUE(Eventually([&] { return windows.Find("MT4WIN", std::nullopt) != 0; }));
}

StandInMultiTerm::~StandInMultiTerm() {
  Kill();
}

bool StandInMultiTerm::Ends() {
  return Eventually([this] {
    if (process_ > 0 && waitpid(process_, nullptr, WNOHANG) == process_) process_ = 0;
    return process_ == 0;
  });
}

void StandInMultiTerm::Kill() {
  if (process_ <= 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = 0;
}

}  // namespace qb
