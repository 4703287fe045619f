#pragma once

#include "ui/Form.h"
#include "ui/frmAbout.h"
#include "ui/frmQBTranslator.h"
#include "ui/frmSplash.h"

namespace qb {

/// What the forms themselves do at their events; everything else is a command.
void FormLoaded(Form& form);
void WindowLoaded(frmQBTranslator& form);
void AboutLoaded(frmAbout& form);
void SplashLoaded(frmSplash& form);

/// Quits or not, and always keeps the window: only the quit itself takes it away.
bool WindowAskedToUnload(int reason);

/// Lays the tree out in the window.
void WindowResized(frmQBTranslator& form);

void TreeKeyPressed(int character);
void TreeMouseUp(int button);
void ListKeyPressed(int character);
void ListMouseUp(int button);
void StatusBarDoubleClicked();
void TraceClicked();
/// Stops in the debugger, if one watches the program.
void StopInDebugger();
/// The entry of the context menu that has no command yet.
void SayNotImplemented();

}  // namespace qb
