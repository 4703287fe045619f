#pragma once

#include <functional>

#include "apps/qbt/Terminal.h"
#include "ui/Toolkit.h"

namespace qb {

/// Brings the forms to life where no window can be: they are shown by being noted as visible, and a modal one
/// is answered by the command line.
class TerminalToolkit : public Toolkit {
 public:
  explicit TerminalToolkit(Terminal& terminal) : terminal_(terminal) {}

  /// Plays the user of a modal form, until it is hidden. Without one the form is dismissed.
  std::function<void(Form&)> PlayModal;

  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  bool Unload(Form& form, int reason) override;
  void Repaint(Form& form) override;
  void PopupMenu(MenuItem&) override {}
  void SetFocus(VisibleControl&) override {}
  void ProcessPendingEvents() override;
  void KeepAlive() override {}
  ScreenArea WorkArea() override { return {}; }
  [[noreturn]] void EndProcess() override;

 private:
  Terminal& terminal_;
};

}  // namespace qb
