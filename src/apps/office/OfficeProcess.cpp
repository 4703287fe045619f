#include "apps/office/OfficeProcess.h"

#include <fcntl.h>
#include <langinfo.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <random>
#include <system_error>
#include <vector>

#include "apps/office/UnoText.h"

namespace qb::office {
namespace {

/// What the office sees of our surroundings: the same, but for what it needs otherwise.
void PrepareSurroundings() {
  // Places of windows can be had from an X server only.
  if (const char* display = std::getenv("DISPLAY"); display && *display) setenv("GDK_BACKEND", "x11", 1);
  // It takes file names for what the locale says, and cannot open a name with umlauts in another one.
  std::setlocale(LC_CTYPE, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) setenv("LC_ALL", "C.UTF-8", 1);
}

/// In the new process: without our lines to the program, which could not see their end otherwise.
[[noreturn]] void BecomeOffice(char* const* arguments) {
  setpgid(0, 0);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  for (const int end : {SIGPIPE, SIGINT, SIGHUP, SIGTERM}) signal(end, SIG_DFL);
  const int nothing = open("/dev/null", O_RDWR);
  if (nothing < 0 || dup2(nothing, STDIN_FILENO) < 0 || dup2(nothing, STDOUT_FILENO) < 0) _exit(126);
  close(nothing);
  execv(arguments[0], arguments);
  _exit(127);
}

}  // namespace

OfficeProcess::OfficeProcess(const std::string& soffice, const std::string& profile,
                             const std::string& pipe) {
  std::vector<std::string> texts = {soffice,
                                    "-env:UserInstallation=" + ToUtf8(FileUrl(profile)),
                                    "--accept=pipe,name=" + pipe + ";urp",
                                    "--nologo",
                                    "--nodefault",
                                    "--norestore",
                                    "--nofirststartwizard"};
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  PrepareSurroundings();
  launcher_ = fork();
  if (launcher_ == 0) BecomeOffice(arguments.data());
  if (launcher_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
}

bool OfficeProcess::HasEnded() {
  if (launcher_ <= 1) return true;
  int status = 0;
  if (waitpid(launcher_, &status, WNOHANG) != launcher_) return false;
  launcher_ = -1;
  status_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return true;
}

void OfficeProcess::Kill() {
  // The launcher leads a group of its own, which the office belongs to.
  if (!HasEnded()) kill(-launcher_, SIGKILL);
}

std::string NewPipeName() {
  constexpr std::array<char, 17> kDigits{"0123456789abcdef"};
  std::random_device random;
  std::string name = "quillbank_" + std::to_string(getpid()) + '_';
  for (int digit = 0; digit < 24; ++digit) name += kDigits[random() % 16];
  return name;
}

void RemovePipe(const std::string& pipe) {
  const std::string name = "/OSL_PIPE_" + std::to_string(getuid()) + '_' + pipe;
  for (const char* folder : {"/tmp", "/var/tmp"}) unlink((folder + name).c_str());
}

}  // namespace qb::office
