#pragma once

#include <functional>

namespace qb {

/// Lets pending window events be processed once. Set by the room that owns the event loop; empty: there is
/// none.
extern std::function<void()> gProcessPendingEvents;

}  // namespace qb
