#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace qb {

/// A text of the registry; `defaultValue` if key or value is missing or the value takes more than 255 bytes.
std::string GetRegistryString(Hive hive, std::string_view key, std::string_view valueName,
                              std::string_view defaultValue);

/// Stores a text. 0 is success.
long SetRegistryString(Hive hive, std::string_view key, std::string_view valueName, std::string_view value);

}  // namespace qb
