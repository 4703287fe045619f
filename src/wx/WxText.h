#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace qb {

wxString ToWx(std::string_view text);
std::string FromWx(const wxString& text);

/// A path as the user writes it: with the separators of the platform.
std::string ShownPath(std::string_view path);
/// A path of the platform as the program keeps it, with `\`.
std::string KeptPath(std::string_view nativePath);

}  // namespace qb
