#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qb {

/// The desktop's browser as a command line to which an address may be added; nothing if there is none.
std::optional<std::string> BrowserCommandLine();

/// Whether the native file is itself a program, or starts one when it is opened.
bool IsProgramFile(const std::string& native);

/// The command with which the desktop's default application for the native file carries out `verb`: "Open" in
/// any case is its own command, any other verb its desktop action of that name. `file` and `furtherFiles`
/// take the places that the command gives them. Empty if there is no such application or action.
std::vector<std::string> DesktopCommand(const std::string& file, std::string_view verb,
                                        const std::vector<std::string>& furtherFiles);

}  // namespace qb
