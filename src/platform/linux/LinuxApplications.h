#pragma once

#include <string>

#include "platform/Applications.h"

namespace qb {

class LinuxEnvironment : public Environment {
 public:
  /// COMPUTERNAME, where it is not set, is the name of the machine.
  std::string Variable(std::string_view name) override;

 private:
  std::string hostName_;
};

/// Windows of other programs cannot be found.
class NoApplicationWindows : public ApplicationWindows {
 public:
  std::uintptr_t Find(std::optional<std::string_view>, std::optional<std::string_view>) override { return 0; }
  std::int64_t SendCopyData(std::uintptr_t, std::uintptr_t, std::optional<std::u16string_view>) override {
    return 0;
  }
};

/// No program can be reached by automation.
class NoAutomation : public Automation {
 public:
  std::shared_ptr<AutomationObject> ActiveObject(std::string_view) override { return nullptr; }
};

class LinuxDebugger : public Debugger {
 public:
  void Stop() override;
};

}  // namespace qb
