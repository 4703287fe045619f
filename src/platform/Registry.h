#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qb {

enum class Hive : std::uint32_t {
  kClassesRoot = 0x80000000U,
  kCurrentUser = 0x80000001U,
  kLocalMachine = 0x80000002U,
};

/// One stored value.
struct RegistryValue {
  std::uint32_t type = 1;  ///< 1 text, 4 double word
  std::string data;  ///< a text in UTF-8 with its terminator, empty for an empty text; else the raw bytes
};

/// The machine's registry. Keys are paths with `\`; an empty value name is the key's default value.
class Registry {
 public:
  virtual ~Registry() = default;
  /// Nothing if the key or the value is missing.
  virtual std::optional<RegistryValue> Query(Hive hive, std::string_view key, std::string_view valueName) = 0;
  /// Stores a text, making the key if need be. 0 is success, any other number the system's error.
  virtual long SetText(Hive hive, std::string_view key, std::string_view valueName,
                       std::string_view text) = 0;
};

}  // namespace qb
