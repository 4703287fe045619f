#include "platform/linux/LinuxHelperPrograms.h"

#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <utility>

#include "platform/linux/LinuxHelperProcess.h"

namespace qb {
namespace {

struct Channel {
  FileDescriptor ours;
  FileDescriptor its;
};

/// A socket rather than a pipe: writing to it can be asked to raise no signal.
Channel MakeInput() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
  return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Channel MakeOutput() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return {};
  Channel channel{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
  if (fcntl(ends[0], F_SETFL, O_NONBLOCK) != 0) return {};
  return channel;
}

pid_t StartProcess(const std::string& program, const std::vector<std::string>& arguments,
                   const FileDescriptor& input, const FileDescriptor& output) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> texts;
  texts.reserve(words.size() + 1);
  for (std::string& word : words) texts.push_back(word.data());
  texts.push_back(nullptr);
  constexpr int kOurErrors = 2;
  GPid process = 0;
  GError* failed = nullptr;
  if (g_spawn_async_with_fds(nullptr, texts.data(), nullptr, G_SPAWN_DO_NOT_REAP_CHILD, nullptr, nullptr,
                             &process, input.Get(), output.Get(), kOurErrors, &failed) != FALSE) {
    return process;
  }
  g_error_free(failed);
  return 0;
}

using Work = std::function<void()>;

gboolean RunOnce(gpointer work) {
  (*static_cast<Work*>(work))();
  return G_SOURCE_REMOVE;
}

void Free(gpointer work) {
  delete static_cast<Work*>(work);
}

}  // namespace

std::unique_ptr<HelperProcess> LinuxHelperPrograms::Start(std::string_view program,
                                                          const std::vector<std::string>& arguments,
                                                          HelperEvents events, std::size_t longestLine) {
  Channel input = MakeInput();
  Channel output = MakeOutput();
  if (!input.ours || !output.ours) return nullptr;
  const pid_t process = StartProcess(NativePath(program), arguments, input.its, output.its);
  if (process <= 0) return nullptr;
  FileDescriptor end(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
  if (!end) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return nullptr;
  }
  return std::make_unique<LinuxHelperProcess>(
      LinuxHelperProcess::Ends{process, std::move(input.ours), std::move(output.ours), std::move(end)},
      std::move(events), longestLine);
}

std::string LinuxHelperPrograms::CacheFolder() {
  return std::string(g_get_user_cache_dir()) + "/quillbank-translator";
}

bool LinuxHelperPrograms::IsLockHeld(const std::string& native) {
  const FileDescriptor file(native, O_RDONLY);
  return file && flock(file.Get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

void LinuxHelperPrograms::Later(std::function<void()> work) {
  g_idle_add_full(G_PRIORITY_DEFAULT, RunOnce, new Work(std::move(work)), Free);
}

}  // namespace qb
