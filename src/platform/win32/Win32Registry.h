#pragma once

#include <string>

#include "platform/Registry.h"

namespace qb {

/// The system's registry.
class Win32Registry : public Registry {
 public:
  /// With `folder`, a key of HKEY_CURRENT_USER, the hives are the keys of their names below it, as tests want
  /// it.
  explicit Win32Registry(std::string folder = {}) : folder_(std::move(folder)) {}

  std::optional<RegistryValue> Query(Hive hive, std::string_view key, std::string_view valueName) override;
  long SetText(Hive hive, std::string_view key, std::string_view valueName, std::string_view text) override;

 private:
  std::string folder_;
};

}  // namespace qb
