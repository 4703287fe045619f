#pragma once

#include <string_view>

#include "workflow/TwoWordings.h"

namespace qb {

/// The end of a command: on a pending failure reports the text (with `%1` number and `%2` description) in a
/// box and the protocol, traces it at level 3 under `TranslateMod`, and clears the failure. Then tells of
/// refused writes.
void ReportCommand(std::string_view procedure, const TwoWordings& text);

/// If the package file could not be changed since the last call, says so in a box and the protocol: a state
/// that is on the screen and not in the file would be work lost in silence.
void TellRefusedWrites();

/// True while Visio windows of the old version are out; says so in a box.
bool StoppedByVisioWindows();

}  // namespace qb
