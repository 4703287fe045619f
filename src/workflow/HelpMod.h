#pragma once

#include <string_view>

namespace qb {

/// Puts a text into the status line of the main window.
void SetStatusText(std::string_view text);

/// Shows the list if `detailed`, else the tree.
void QbtSetViewDetailed(bool detailed);

}  // namespace qb
