#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Shell.h"
#include "platform/linux/HiveRegistry.h"
#include "platform/linux/LinuxFileSystem.h"

namespace qb {

/// Programs of the desktop. A verb is looked up in the user's hive first, as on the platform that the
/// packages come from, and then in the desktop's associations. Programs are started directly, so that they
/// can be watched.
class LinuxShell : public Shell {
 public:
  /// `root` is the native folder of the drive, `configurationFolder` that of the hive; empty: the usual ones.
  LinuxShell(const std::string& root, const std::string& configurationFolder)
      : files_(root), registry_(configurationFolder) {}

  bool Execute(const ShellRequest& request, ProcessHandle& process) override;
  bool GetExitCode(ProcessHandle process, std::uint32_t& code) override;
  std::int32_t Start(std::string_view commandLine) override;

 private:
  std::optional<std::string> ExistingFile(const ShellRequest& request);
  std::vector<std::string> FurtherArguments(std::string_view parameters);
  /// The program of a command line and its arguments; empty if it cannot be read.
  std::vector<std::string> CommandOf(std::string_view commandLine);
  std::int32_t ShowHelpFile(std::string_view path);
  std::string HiveCommand(const std::string& native, std::string_view verb);
  void Watch(ProcessHandle process) { exitCodes_[process] = kStillActive; }

  LinuxFileSystem files_;
  HiveRegistry registry_;
  std::unordered_map<ProcessHandle, std::uint32_t> exitCodes_;
};

}  // namespace qb
