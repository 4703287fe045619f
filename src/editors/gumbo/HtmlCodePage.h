#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/TextCodec.h"

namespace qb {

/// The code page of a character set as HTML names it; nothing for one that is not known.
std::optional<CodePage> CodePageOfCharset(std::string_view charset);

/// The character set that a `content` such as "text/html; charset=utf-8" names; empty if it names none.
std::string CharsetOfContent(std::string_view content);

/// The text of a UTF-16 file behind its byte order mark.
std::string DecodeUtf16(std::string_view bytes, bool bigEndian);

}  // namespace qb
