#include "platform/linux/HiveRegistry.h"

#include <glib.h>

#include <filesystem>
#include <limits>
#include <system_error>

#include "platform/linux/DesktopApplications.h"
#include "platform/linux/HiveTexts.h"
#include "platform/linux/LinuxPaths.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr long kSuccess = 0;
constexpr long kAccessDenied = 5;
constexpr std::string_view kMissing = "\r";  // no stored value holds a line break
constexpr std::string_view kBrowserKey = R"(http\shell\open\command)";

std::string_view HiveName(Hive hive) {
  switch (hive) {
    case Hive::kClassesRoot:
      return "HKEY_CLASSES_ROOT";
    case Hive::kCurrentUser:
      return "HKEY_CURRENT_USER";
    case Hive::kLocalMachine:
      return "HKEY_LOCAL_MACHINE";
  }
  return {};
}

std::string UserFolder() {
  return std::string(g_get_user_config_dir()) + "/quillbank-translator";
}

}  // namespace

HiveRegistry::HiveRegistry(const std::string& folder)
    : folder_(folder.empty() ? UserFolder() : folder),
      profiles_(files_, codec_, [](const ProfileImage&) { return kUtf8; }),
      path_(LinuxPaths().Windows(folder_ + "/registry.ini")) {
}

std::optional<std::string> HiveRegistry::Stored(Hive hive, std::string_view key, std::string_view valueName) {
  const std::string stored =
      profiles_.GetPrivateProfileString(HiveSectionName(HiveName(hive), key), HiveValueName(valueName),
                                        kMissing, std::numeric_limits<std::size_t>::max(), path_);
  if (stored == kMissing) return std::nullopt;
  return TextOfHiveValue(stored);
}

std::optional<RegistryValue> HiveRegistry::Query(Hive hive, std::string_view key,
                                                 std::string_view valueName) {
  std::optional<std::string> text = Stored(hive, key, valueName);
  if (!text && hive == Hive::kClassesRoot && valueName.empty() && EqualIgnoringCase(key, kBrowserKey)) {
    text = BrowserCommandLine();
  }
  if (!text) return std::nullopt;
  RegistryValue value;
  if (!text->empty()) value.data = *text + '\0';
  return value;
}

long HiveRegistry::SetText(Hive hive, std::string_view key, std::string_view valueName,
                           std::string_view text) {
  std::error_code failed;
  std::filesystem::create_directories(folder_, failed);
  if (failed) return kAccessDenied;
  const bool written = profiles_.WritePrivateProfileString(
      HiveSectionName(HiveName(hive), key), HiveValueName(valueName), HiveValueText(text), path_);
  return written ? kSuccess : kAccessDenied;
}

std::string HiveRegistry::ClassesRootDefault(const std::string& key) {
  return Stored(Hive::kClassesRoot, key, {}).value_or("");
}

}  // namespace qb
