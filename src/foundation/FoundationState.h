#pragma once

namespace qb {

/// Set while `gRvdError` reports a failure; a failure met meanwhile is reported without its box.
extern bool gInError;

/// Puts all process-wide state of this room back to that of a fresh process, the pending error included. A
/// message handler still writes its footer, so a platform must be installed.
void ResetFoundationState();

}  // namespace qb
