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

/// No program can be reached by automation.
class NoAutomation : public Automation {
 public:
  std::shared_ptr<AutomationObject> ActiveObject(std::string_view) override { return nullptr; }
  /// Raises 429.
  std::shared_ptr<AutomationObject> NewObject(std::string_view className) override;
};

class LinuxDebugger : public Debugger {
 public:
  void Stop() override;
};

}  // namespace qb
