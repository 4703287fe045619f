#pragma once

#include <memory>

#include "platform/CodePageTable.h"

namespace qb {

/// A code page as the system's conversion library knows it; nothing if it does not.
std::unique_ptr<CodePageSource> MakeIconvSource(CodePage codePage);

}  // namespace qb
