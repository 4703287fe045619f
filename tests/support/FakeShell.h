#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Shell.h"
#include "runtime/RuntimeError.h"

namespace qb {

/// A desktop of the test's own: verbs have programs or not, and their processes run until the test ends them.
class FakeShell : public Shell {
 public:
  bool Execute(const ShellRequest& request, ProcessHandle& process) override {
    requests.push_back(request);
    if (!verbs.contains(request.verb)) return false;
    process = handsToRunningEditor ? 0 : ++lastProcess_;
    if (process != 0) exitCodes_[process] = kStillActive;
    return true;
  }

  bool GetExitCode(ProcessHandle process, std::uint32_t& code) override {
    const auto found = exitCodes_.find(process);
    if (found == exitCodes_.end()) return false;
    code = found->second;
    return true;
  }

  std::int32_t Start(std::string_view commandLine) override {
    started.emplace_back(commandLine);
    if (startFailure) throw *startFailure;
    if (onStart) onStart();
    return startResult;
  }

  void EndProcess(ProcessHandle process) { exitCodes_[process] = 0; }
  void EndAllProcesses() {
    for (auto& [process, code] : exitCodes_) code = 0;
  }

  std::set<std::string> verbs{"Translate", "Edit", "Open"};  ///< those that have a program
  bool handsToRunningEditor = false;                         ///< programs give no process
  std::vector<ShellRequest> requests;
  std::vector<std::string> started;
  std::int32_t startResult = 1;              ///< what the next starts of a command line answer
  std::optional<RuntimeError> startFailure;  ///< what they raise instead
  std::function<void()> onStart;             ///< what else happens at one

 private:
  ProcessHandle lastProcess_ = 0;
  std::map<ProcessHandle, std::uint32_t> exitCodes_;
};

}  // namespace qb
