#pragma once

#include <string_view>

#include "platform/TextCodec.h"

namespace qb {

/// The ANSI code page of a language such as "de", "ZH-TW" or "pt_BR"; 0 for one that none is made for, or
/// that is unknown.
CodePage KnownCodePage(std::string_view language);

}  // namespace qb
