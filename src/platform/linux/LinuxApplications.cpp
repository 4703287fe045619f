#include "platform/linux/LinuxApplications.h"

#include <glib.h>

#include <cstdlib>

namespace qb {

std::string LinuxEnvironment::Variable(std::string_view name) {
  const char* const value = std::getenv(std::string(name).c_str());
  if (value != nullptr) return value;
  if (name != "COMPUTERNAME") return {};
  if (hostName_.empty()) hostName_ = g_get_host_name();
  return hostName_;
}

}  // namespace qb
