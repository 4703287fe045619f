#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// Names a process that was started here; 0 is none.
using ProcessHandle = std::int32_t;

/// What `Shell::Execute` needs: a verb on a file.
struct ShellRequest {
  std::string verb;        ///< "Open", "Edit", "Translate", ...
  std::string file;        ///< a file name in `directory`, or a path
  std::string parameters;  ///< further arguments, each in double quotes where it holds a blank
  std::string directory;   ///< where the program starts
};

/// Programs and file associations.
class Shell {
 public:
  static constexpr std::uint32_t kStillActive = 259;

  virtual ~Shell() = default;

  /// Starts the program that the desktop has for the verb on the file. True on success; `process` is then its
  /// handle, or 0 where none came. A file that is itself a program is refused.
  virtual bool Execute(const ShellRequest& request, ProcessHandle& process) = 0;

  /// True if `process` is known; `code` is then `kStillActive` while it runs, its exit code afterwards.
  virtual bool GetExitCode(ProcessHandle process, std::uint32_t& code) = 0;

  /// Starts a command line in a normal window: the path of a program, or a command as the platform's shell
  /// quotes it. "hh.exe" and a path shows that help file, with the desktop's viewer where the platform has no
  /// such program. Returns a number that is not 0. Raises 53 if there is no such program, 5 if the command
  /// cannot be used.
  virtual std::int32_t Start(std::string_view commandLine) = 0;
};

}  // namespace qb
