#pragma once

namespace qb {

/// Draws the windows, and answers assistive programs as long as they ask, up to 50 ms. Input waits; commands
/// that come past it, from assistive programs or the window manager, do nothing.
void DrawWithoutInput();

/// Whether that is going on: no timer may tick and no command start.
bool IsKeptAlive();

}  // namespace qb
