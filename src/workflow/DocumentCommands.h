#pragma once

namespace qb {

/// Sends the selected document to its editor. True when one was opened.
bool QbtTranslate();

/// Mark the selected document.
void QbtMarkInProgress();
void QbtMarkToBeTranslated();
void QbtMarkCompleted();

}  // namespace qb
