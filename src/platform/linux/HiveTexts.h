#pragma once

#include <string>
#include <string_view>

namespace qb {

/// A value as it stands in the hive file: in double quotes, line breaks and NUL as "%0D", "%0A" and "%00". A
/// percent sign stays as it is unless what follows would make it one of these or "%25".
std::string HiveValueText(std::string_view text);
std::string TextOfHiveValue(std::string_view stored);

/// The name of a value as a key of the hive file; "@" for the default value of a registry key.
std::string HiveValueName(std::string_view name);

/// The name of a registry key as a section of the hive file.
std::string HiveSectionName(std::string_view hive, std::string_view key);

}  // namespace qb
