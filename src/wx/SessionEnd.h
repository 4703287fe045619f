#pragma once

#include <functional>

namespace qb {

/// Calls `ended` from the event loop when the desktop's session ends or the process is asked to end.
void WatchSessionEnd(std::function<void()> ended);

}  // namespace qb
