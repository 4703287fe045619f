#pragma once

namespace qb {

/// Prepares the calling thread for automation objects, once: calls and events of its objects run on it.
/// Raises if another part of the process has decided otherwise for this thread.
void EnterComApartment();

}  // namespace qb
