#pragma once

#include <cstdint>
#include <string>

#include "platform/FileSystem.h"
#include "platform/win32/SystemHandle.h"

namespace qb {

/// What the functions of this room are for: files that anybody else may read, write and remove meanwhile.
/// `access` and `disposition` are those of `CreateFileW`. The handle is none if that failed, and then
/// `GetLastError` says why.
SystemHandle OpenSharedFile(const std::wstring& native, std::uint32_t access, std::uint32_t disposition,
                            std::uint32_t flags = 0);

/// Writes all bytes. 0, or the system's error number.
std::uint32_t WriteAll(const SystemHandle& file, std::string_view bytes);
/// The same for pieces; small ones are gathered first.
std::uint32_t WriteAll(const SystemHandle& file, const Pieces& pieces);

/// The state of an open file; nothing for a folder.
std::optional<FileStamp> StampOf(const SystemHandle& file);

/// The system's attributes, links not followed; 0 if there is no such file.
std::uint32_t AttributesOf(const std::wstring& native);
bool IsDirectory(const std::wstring& native);
bool IsReadOnly(const std::wstring& native);

/// Between the program's moments and the system's, which count 100 nanoseconds since 1601.
FileTime TimeOf(std::uint64_t ticks);
std::uint64_t TicksOf(const FileTime& time);

}  // namespace qb
