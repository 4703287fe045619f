#include "platform/linux/LinuxHelperProcess.h"

#include <glib-unix.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace qb {
namespace {

constexpr std::size_t kReadStep = 65536;
constexpr int kReadSteps = 16;                 // then what has come is handed on first
constexpr std::int32_t kKilledBySignal = 128;  // plus the signal's number, as shells count

std::int32_t StatusOf(pid_t process) {
  int status = 0;
  pid_t waited = 0;
  do {
    waited = waitpid(process, &status, 0);
  } while (waited < 0 && errno == EINTR);
  if (waited < 0) return 0;  // somebody else has waited for it
  return WIFEXITED(status) ? WEXITSTATUS(status) : kKilledBySignal + WTERMSIG(status);
}

}  // namespace

LinuxHelperProcess::LinuxHelperProcess(Ends ends, HelperEvents events, std::size_t longestLine)
    : ends_(std::move(ends)), events_(std::move(events)), longestLine_(longestLine) {
  constexpr auto kReadable = static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR);
  outputSource_ = g_unix_fd_add(ends_.output.Get(), kReadable, OnOutput, this);
  endSource_ = g_unix_fd_add(ends_.end.Get(), kReadable, OnEnd, this);
}

LinuxHelperProcess::~LinuxHelperProcess() {
  Remove(outputSource_);
  Remove(endSource_);
  if (ended_) return;
  LinuxHelperProcess::Kill();
  StatusOf(ends_.process);
}

void LinuxHelperProcess::Remove(guint& source) {
  if (source != 0) g_source_remove(std::exchange(source, 0));
}

gboolean LinuxHelperProcess::OnOutput(gint, GIOCondition, gpointer self) {
  auto& process = *static_cast<LinuxHelperProcess*>(self);
  process.Read();
  process.Deliver();
  return process.outputSource_ != 0 ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
}

gboolean LinuxHelperProcess::OnEnd(gint, GIOCondition, gpointer self) {
  static_cast<LinuxHelperProcess*>(self)->Finish();
  return G_SOURCE_REMOVE;
}

void LinuxHelperProcess::Send(std::string_view line) {
  if (ended_) return;
  unsent_.append(line).push_back('\n');
  Write();
}

void LinuxHelperProcess::Write() {
  while (!unsent_.empty()) {
    const ssize_t sent = send(ends_.input.Get(), unsent_.data(), unsent_.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return;
    if (sent < 0) return unsent_.clear();  // it does not listen any more: its end will be told
    unsent_.erase(0, static_cast<std::size_t>(sent));
  }
}

void LinuxHelperProcess::Read() {
  std::array<char, kReadStep> bytes{};
  for (int step = 0; step < kReadSteps && outputOpen_; ++step) {
    const ssize_t got = read(ends_.output.Get(), bytes.data(), bytes.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return;
    if (got <= 0) {
      outputOpen_ = false;
      Remove(outputSource_);
      return;
    }
    unread_.append(bytes.data(), static_cast<std::size_t>(got));
  }
}

void LinuxHelperProcess::Deliver() {
  // Whoever gets a line may wait for the next one, which is then delivered there.
  for (;;) {
    const std::size_t end = unread_.find('\n', searched_);
    if (end == std::string::npos) break;
    const std::string line = unread_.substr(begin_, end - begin_);
    begin_ = searched_ = end + 1;
    events_.line(line);
  }
  unread_.erase(0, std::exchange(begin_, 0));
  searched_ = unread_.size();
  if (searched_ <= longestLine_) return;
  unread_.clear();
  searched_ = 0;
  Kill();
}

bool LinuxHelperProcess::Wait(std::int32_t milliseconds) {
  if (ended_) return false;
  constexpr short kNothing = 0;
  std::array<pollfd, 3> waited{{{ends_.end.Get(), POLLIN, kNothing},
                                {outputOpen_ ? ends_.output.Get() : -1, POLLIN, kNothing},
                                {unsent_.empty() ? -1 : ends_.input.Get(), POLLOUT, kNothing}}};
  if (poll(waited.data(), waited.size(), milliseconds) <= 0) return false;
  const bool told = waited[0].revents != 0 || waited[1].revents != 0;
  if (waited[2].revents != 0) Write();
  if (waited[1].revents != 0) {
    Read();
    Deliver();
  }
  if (waited[0].revents != 0) Finish();
  return told;
}

void LinuxHelperProcess::Finish() {
  if (ended_) return;
  std::size_t before = 0;
  do {
    before = unread_.size();
    Read();
  } while (unread_.size() > before && unread_.size() <= longestLine_);
  Deliver();
  if (std::exchange(ended_, true)) return;
  Remove(endSource_);
  Remove(outputSource_);
  events_.ended(StatusOf(ends_.process));
}

void LinuxHelperProcess::Kill() {
  if (!ended_ && ends_.process > 1) kill(ends_.process, SIGKILL);
}

}  // namespace qb
