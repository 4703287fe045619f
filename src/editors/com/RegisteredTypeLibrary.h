#pragma once

#include <optional>
#include <string>

namespace qb {

/// Where the registry says that the type library of this identifier ("{...}") stands, in its highest version;
/// nothing if it is not registered.
std::optional<std::wstring> RegisteredTypeLibrary(const std::wstring& identifier);

}  // namespace qb
