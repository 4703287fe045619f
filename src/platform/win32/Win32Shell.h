#pragma once

#include <string>
#include <unordered_map>

#include "platform/Shell.h"
#include "platform/win32/SystemHandle.h"
#include "platform/win32/Win32Paths.h"

namespace qb {

/// The system's own programs and file associations.
class Win32Shell : public Shell {
 public:
  /// `root` is the native folder of the drive, empty for the real one.
  explicit Win32Shell(const std::string& root = {}) : paths_(root) {}

  bool Execute(const ShellRequest& request, ProcessHandle& process) override;
  bool GetExitCode(ProcessHandle process, std::uint32_t& code) override;
  /// Returns the number of the process.
  std::int32_t Start(std::string_view commandLine) override;

 private:
  std::wstring FileOf(const ShellRequest& request);
  std::wstring CommandOf(std::string_view commandLine);

  Win32Paths paths_;
  std::unordered_map<ProcessHandle, SystemHandle> processes_;
};

}  // namespace qb
