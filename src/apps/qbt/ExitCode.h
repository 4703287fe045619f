#pragma once

#include <stdexcept>
#include <string>

namespace qb {

/// What `qbt` tells its caller. The manual page lists them for users.
namespace exitcode {
inline constexpr int kFine = 0;
inline constexpr int kRefused = 1;     ///< findings, or a command that was refused
inline constexpr int kUsage = 2;       ///< the command line is wrong
inline constexpr int kUnreadable = 3;  ///< something could not be read or written
inline constexpr int kUnanswered = 4;  ///< a question came up and nobody was there to answer it
inline constexpr int kInterrupted = 130;
}  // namespace exitcode

/// Ends the program with a message on the error stream and an exit code. Raised outside of commands only,
/// since their handlers would take it for a failure of their own.
class CommandFailure : public std::runtime_error {
 public:
  CommandFailure(int exitCode, const std::string& message)
      : std::runtime_error(message), exitCode_(exitCode) {}
  int ExitCode() const { return exitCode_; }

 private:
  int exitCode_;
};

}  // namespace qb
