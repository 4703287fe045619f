/// Loaded into the program under test and all that it starts. While the file that QB_HOLD_OFFICE names is
/// there, an office stands still before it does anything, until it is told to go on.

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace {

__attribute__((constructor)) void HoldAtStart() {
  const char* const mark = std::getenv("QB_HOLD_OFFICE");
  if (mark == nullptr || std::string_view(program_invocation_short_name) != "soffice.bin") return;
  if (access(mark, F_OK) == 0) raise(SIGSTOP);
}

}  // namespace
