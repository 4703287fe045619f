#pragma once

namespace qb {

/// Sends the selected document to its editor. True when one was opened.
bool QbtTranslate();

/// Mark the selected document.
void QbtMarkInProgress();
void QbtMarkToBeTranslated();
void QbtMarkCompleted();

/// Asks for the title of the selected document in the target language and writes it to the package.
void QbtTranslateTitle();

/// A place in the menu: reports a failure that is pending, and does nothing else.
void QbtTranslateProperties();

}  // namespace qb
