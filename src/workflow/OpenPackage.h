#pragma once

#include <string>
#include <string_view>

namespace qb {

/// Opens a package; an empty path asks the user for it.
void QbtOpen(std::string_view path);

/// Reports a pending failure of opening, if there is one, and clears it.
void ReportOpening();

/// The open-file dialog for packages; empty when cancelled.
std::string GetPxfFile();

/// Copies a file to the same name with the extension "BAK".
void Backup(std::string_view path);

/// Notices editors that have gone and repaints the main window.
void QbtRefresh();

/// Switch the commands that need a package.
void DisableCommands();
void EnableCommands();

}  // namespace qb
