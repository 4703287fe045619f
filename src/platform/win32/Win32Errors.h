#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// Raises the failure that an error number of the system (`GetLastError`) stands for, about `path`. `native`
/// is the same path as the system knows it; it tells a missing file from a missing folder.
[[noreturn]] void RaiseSystemError(std::uint32_t error, std::string_view path, const std::wstring& native);

}  // namespace qb
