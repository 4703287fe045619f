#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"
#include "ui/frmAbout.h"

namespace qb {

/// Opens the about box. A failure of the opening is ignored: the command then does nothing.
void ShowAbout();

/// Starts the system's information tool, or says in a box that there is none.
void StartSysInfo();

/// Reads a value of the registry; a double word comes as "&h" and its hexadecimal digits. False, with `value`
/// empty, if there is no such value or it takes more than 1024 characters.
bool GetKeyValue(Hive hive, std::string_view key, std::string_view valueName, std::string& value);

/// What the box does at its events; `effect` is what a drag of the logo ended in.
void AboutConfirmed(frmAbout& form);
void AboutLogoDropped(int effect);

}  // namespace qb
