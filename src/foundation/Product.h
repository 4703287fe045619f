#pragma once

#include <string>
#include <string_view>

namespace qb {

/// The program's product name, also its title in boxes.
inline constexpr std::string_view kProductName = "ORB Quillbank Translator";

/// "<major>.<minor>.<revision>" of this release.
std::string ProductVersion();

/// Shows `text` in a box with the program's title (or `title`) and returns the answer; `style` are bits of
/// `box`.
int MsgBox(std::string_view text, int style = 0);
int MsgBox(std::string_view text, int style, std::string_view title);

}  // namespace qb
