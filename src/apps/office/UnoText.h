#pragma once

#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace qb::office {

using rtl::OUString;

/// Between UTF-8 and the office's texts. Bytes that are not UTF-8 become question marks.
std::string ToUtf8(const OUString& text);
OUString ToUno(std::string_view utf8);

/// Between paths of the system and the office's addresses, whatever the locale is.
OUString FileUrl(const std::string& path);
/// Empty if `url` is not the address of a file on this machine.
std::string FilePath(const OUString& url);

/// Whether both are one file; false if one is not there.
bool IsSameFile(const std::string& one, const std::string& other);

}  // namespace qb::office
