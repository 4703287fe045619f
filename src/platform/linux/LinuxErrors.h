#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Raises the failure that an error number of the system stands for, about `path`. `native` is the same path
/// as the system knows it; it tells a missing file from a missing folder.
[[noreturn]] void RaiseSystemError(int error, std::string_view path, const std::string& native);

}  // namespace qb
