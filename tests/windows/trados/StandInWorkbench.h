#pragma once

// What the stand-in of the Workbench and its test agree on.

/// The identifier of the class, as the registry spells it.
inline constexpr const wchar_t* kWorkbenchClass = L"{6E1D3A52-0C0B-4C7E-9C52-6B1F4A6D9E01}";

/// What `Open` raises for a file with "locked" in its name.
inline constexpr long kLockedFailure = static_cast<long>(0x80040200);
