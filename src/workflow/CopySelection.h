#pragma once

namespace qb {

/// Puts the text of the node that is selected in the tree on the clipboard, whichever view is shown.
void QbtCopy();

}  // namespace qb
