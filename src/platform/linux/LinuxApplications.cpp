#include "platform/linux/LinuxApplications.h"

#include <glib.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

/// Whether another process traces this one.
bool IsTraced() {
  constexpr std::string_view kTracer = "TracerPid:\t";
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(kTracer)) return line.substr(kTracer.size()) != "0";
  }
  return false;
}

}  // namespace

std::string LinuxEnvironment::Variable(std::string_view name) {
  const char* const value = std::getenv(std::string(name).c_str());
  if (value != nullptr) return value;
  if (name != "COMPUTERNAME") return {};
  if (hostName_.empty()) hostName_ = g_get_host_name();
  return hostName_;
}

std::shared_ptr<AutomationObject> NoAutomation::NewObject(std::string_view className) {
  RaiseAbout(failure::kCannotCreateObject, className);
}

void LinuxDebugger::Stop() {
  if (IsTraced()) std::raise(SIGTRAP);
}

}  // namespace qb
