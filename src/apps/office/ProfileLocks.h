#pragma once

#include <optional>
#include <string>

#include "apps/office/Descriptor.h"

namespace qb::office {

/// Makes the folder if it is not there, and takes its lock for this helper. Nothing if another helper has it.
/// Raises std::system_error if the folder cannot be made or written to.
std::optional<Descriptor> LockProfile(const std::string& profile);

/// The lock that an office holds as long as it lives, even if its helper is dead: its process inherits the
/// descriptor. Not locked if an office that an earlier helper left behind still has it.
Descriptor OfficeLock(const std::string& profile);

/// Whether the folder is a profile of ours that neither a helper nor an office uses any more.
bool IsDeserted(const std::string& profile);

}  // namespace qb::office
