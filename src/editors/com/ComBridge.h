#pragma once

#include <memory>

#include "editors/DocumentBridge.h"

namespace qb {

/// A new bridge of the library that is registered on this machine; nothing if there is none. Raises if the
/// library is registered and cannot be used, and says why.
///
/// Its objects belong to the thread that made the first of them. They hold the library's objects, which go
/// when they go. What a handler of an event raises comes out of the call that the event came in, if there is
/// one; else it is reported.
std::shared_ptr<IBridge> MakeComBridge();

}  // namespace qb
