#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Copies a native file with its mode and last write time over an existing file too. False, with nothing
/// changed, if both are the same file. Failures are raised about `sourcePath` or `targetPath`; a target that
/// could not be written whole is removed.
bool CopyNativeFile(const std::string& source, std::string_view sourcePath, const std::string& target,
                    std::string_view targetPath);

}  // namespace qb
