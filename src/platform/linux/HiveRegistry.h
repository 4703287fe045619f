#pragma once

#include <string>

#include "platform/CachedProfileFiles.h"
#include "platform/Registry.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxTextCodec.h"

namespace qb {

/// The registry as a profile file, "registry.ini", of UTF-8 texts: one section for each key. What
/// HKEY_CLASSES_ROOT lacks there, the desktop is asked for.
class HiveRegistry : public Registry {
 public:
  /// `folder` is the native folder of the file; empty: "quillbank-translator" in the user's configuration
  /// folder.
  explicit HiveRegistry(const std::string& folder = {});

  std::optional<RegistryValue> Query(Hive hive, std::string_view key, std::string_view valueName) override;
  long SetText(Hive hive, std::string_view key, std::string_view valueName, std::string_view text) override;

  /// The default value of a key of HKEY_CLASSES_ROOT as the user's file has it; empty if it has none.
  std::string ClassesRootDefault(const std::string& key);

 private:
  std::optional<std::string> Stored(Hive hive, std::string_view key, std::string_view valueName);

  std::string folder_;
  LinuxFileSystem files_;
  LinuxTextCodec codec_;
  CachedProfileFiles profiles_;
  std::string path_;  // Windows path of the file
};

}  // namespace qb
