#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Applications.h"
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

 private:
  ProcessHandle lastProcess_ = 0;
  std::map<ProcessHandle, std::uint32_t> exitCodes_;
};

/// An object registry in which a Visio may run.
class FakeAutomation : public Automation {
 public:
  std::shared_ptr<AutomationObject> ActiveObject(std::string_view className) override {
    struct Visio : AutomationObject {
      explicit Visio(std::string text) : version(std::move(text)) {}
      std::string TextProperty(std::string_view name) override {
        return name == "Version" ? version : std::string();
      }
      std::string version;
    };
    if (className != "Visio.Application" || visioVersion.empty()) return nullptr;
    return std::make_shared<Visio>(visioVersion);
  }

  std::string visioVersion;  ///< empty: none runs
};

}  // namespace qb
