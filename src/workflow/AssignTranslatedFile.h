#pragma once

namespace qb {

/// Checks a file that the user chooses in as the primary file of the selected document's translation, then
/// offers to add further files.
void QbtAssignTranslatedFile();

/// Readies the bar of the check-in and shows it.
void ShowCheckinProgress();

/// Moves the bar on to `fraction` (0 to 1) of its length.
void SetCheckinProgress(double fraction);

}  // namespace qb
