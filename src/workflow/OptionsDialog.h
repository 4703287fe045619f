#pragma once

#include "ui/frmOptions.h"

namespace qb {

/// Opens the options dialog. A failure of the opening is ignored: the command then does nothing.
void ShowOptions();

/// Makes what the dialog holds the program's settings and stores them. A language that is none becomes "en";
/// a failure is reported.
void SetOpt(frmOptions& form);

/// What the dialog does at its events.
void OptionsLoaded(frmOptions& form);
void OptionsConfirmed(frmOptions& form);
void OptionsCancelled(frmOptions& form);
void OptionsKeyPressed(frmOptions& form, int key, int shift);
void OptionsTabSelected(frmOptions& form);

}  // namespace qb
