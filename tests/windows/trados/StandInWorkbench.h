#pragma once

// What the stand-in of the Workbench and its tests agree on.

/// The class by its name. The registry says which identifier it has.
inline constexpr const wchar_t* kWorkbenchName = L"TW4Win.Application";

/// What `Open` raises for a file with "locked" in its name. It does not survive one with "crash".
inline constexpr long kLockedFailure = static_cast<long>(0x80040200);
