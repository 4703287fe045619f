#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace qb {

/// What the system tells about a native file, links followed; nothing if there is none.
std::optional<FileInfo> InfoOf(const std::wstring& native);

/// The names in a native folder that match `pattern`, in the system's own order. Entries that carry an
/// attribute of hidden, system and directory come only if `asked` has it too.
std::vector<std::string> NamesInFolder(const std::wstring& folder, const std::wstring& pattern,
                                       unsigned asked);

}  // namespace qb
