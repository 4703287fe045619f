#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace qb {

/// `FileSystem::ReplaceContent` on a native path. The file's own attributes, time of creation and rights go
/// over to the new one; failures are raised about `path`.
FileStamp ReplaceFileContent(const std::wstring& native, std::string_view path, const Pieces& content);

/// `FileSystem::Copy` on native paths; failures are raised about the path at fault.
bool CopyNativeFile(const std::wstring& source, std::string_view sourcePath, const std::wstring& target,
                    std::string_view targetPath);

/// `native`, or what it leads to if it is a link. Raises 75 for a link that leads nowhere.
std::wstring LinkTarget(const std::wstring& native, std::string_view path);

}  // namespace qb
