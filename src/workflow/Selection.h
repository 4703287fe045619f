#pragma once

#include <string>

namespace qb {

/// Key of the selected item in the view that is shown; empty without a selection.
std::string GetSelectionRawKey();

/// Key of the document of the selection; empty without one and for the root.
std::string GetKeyFromSelection();

/// File part of the selection's key. Where it has none: empty if `blank`, else the whole key.
std::string GetComponentFromSelection(bool blank);

}  // namespace qb
