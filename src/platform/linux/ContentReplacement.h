#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace qb {

/// Gives the native file, links followed, new content that reaches the disk whole or not at all; mode and
/// owner are kept. Failures are raised about `path`, and then the old content stands.
FileStamp ReplaceFileContent(const std::string& native, std::string_view path, const Pieces& content);

/// Where the native file stands once links are followed, also one that leads to a file which does not exist
/// yet.
std::string LinkTarget(std::string native, std::string_view path);

/// The state of a file as the system tells it.
FileStamp StampOf(const struct stat& status);

/// Whether nobody may write to a file of this mode. The system's own refusal does not come for the
/// administrator.
bool IsReadOnly(const struct stat& status);

}  // namespace qb
