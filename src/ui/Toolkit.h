#pragma once

#include <memory>

#include "ui/Form.h"
#include "ui/controls/MenuItem.h"

namespace qb {

/// Ends the process: thrown by toolkits that let the stack unwind. No failure, so no handler takes it.
struct ProcessEnded {};

/// A part of the screen in its own pixels.
struct ScreenArea {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

/// Brings forms to life. Message boxes, file dialogs, clipboard and mouse pointer are in the platform.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  /// Shows a form without waiting for it.
  virtual void Show(Form& form) = 0;
  /// Shows a form and returns when it was hidden or unloaded.
  virtual void ShowModal(Form& form) = 0;
  virtual void Hide(Form& form) = 0;
  /// Asks the form's query-unload event; unless that keeps it, raises its unload event and destroys its
  /// window. True if the form went.
  virtual bool Unload(Form& form, int reason) = 0;
  /// Draws what has changed, now.
  virtual void Repaint(Form& form) = 0;
  /// Pops a menu up at the mouse pointer and returns when it is gone.
  virtual void PopupMenu(MenuItem& menu) = 0;
  virtual void SetFocus(VisibleControl& control) = 0;
  virtual void ProcessPendingEvents() = 0;
  /// Keeps the windows drawn while a command waits for another program. Takes no input and ticks no timer.
  virtual void KeepAlive() = 0;
  /// The screen that the program's window is on, without what the desktop keeps for itself.
  virtual ScreenArea WorkArea() = 0;
  /// Ends the process. Does not return.
  [[noreturn]] virtual void EndProcess() = 0;
};

/// The toolkit of the process. It must have been installed.
Toolkit& TheToolkit();
/// Installs `toolkit` and returns the one before it.
std::unique_ptr<Toolkit> InstallToolkit(std::unique_ptr<Toolkit> toolkit);

/// The common part of `Toolkit::Unload`: raises the events and takes the form off the list of loaded ones.
/// True if the form goes, so that its window is to be destroyed.
bool RaiseUnloadEvents(Form& form, int reason);

}  // namespace qb
