#pragma once

#include <string>

namespace qb {

// Commands on the component files of the selected document's translation.

/// Adds a file that the user chooses. True when it is in the package; then `file` is the chosen file.
/// `cancelled` is set if none was chosen.
bool QbtInsertComponent(bool& cancelled, std::string& file);

// The others take the selected file.

void QbtMarkComponentAsPrimary();
/// Puts a file that the user chooses in the place of the selected one.
void QbtReplaceComponent();
/// Empties the document's list of files and fills it with those that the user chooses then.
void QbtReplaceAllComponents();
/// Deletes the selected file from the package and the disk, after a question. A primary file is refused.
void QbtDeleteComponent();

}  // namespace qb
