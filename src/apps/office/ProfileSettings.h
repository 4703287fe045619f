#pragma once

#include <string>

namespace qb::office {

/// Writes into the profile the settings that the helper relies on; what its user has set otherwise stays.
/// Raises std::system_error about a file that cannot be written.
void WriteProfileSettings(const std::string& profile);

/// The file's text with the settings in it; `text` may be empty or damaged.
std::string WithSettings(const std::string& text);

}  // namespace qb::office
