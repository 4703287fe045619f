#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ui/Toolkit.h"

namespace qb {

/// A toolkit without a display: records what was asked of it and lets a test play the user.
class ScriptedToolkit : public Toolkit {
 public:
  void Show(Form& form) override;
  /// Plays the next script of `WhileNextModal`; without one the form is dismissed at once.
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  bool Unload(Form& form, int reason) override;
  void Repaint(Form& form) override;
  void PopupMenu(MenuItem& menu) override;
  void SetFocus(VisibleControl& control) override;
  /// Ticks the splash's timer while it is shown.
  void ProcessPendingEvents() override;
  void KeepAlive() override {
    if (whileWaiting) whileWaiting();
  }
  ScreenArea WorkArea() override { return workArea; }
  [[noreturn]] void EndProcess() override { throw ProcessEnded{}; }

  void WhileNextModal(std::function<void(Form&)> play) { modals_.push_back(std::move(play)); }

  /// Everything in order, as "show frmSplash", "focus TransPackTree", "popup mniComponents", ...
  std::vector<std::string> calls;
  int repaints = 0;
  ScreenArea workArea{0, 30, 1600, 970};
  /// Runs whenever a command that waits for another program keeps the windows drawn.
  std::function<void()> whileWaiting;
  /// Looks at a form whenever it is drawn anew.
  std::function<void(Form&)> onRepaint;

 private:
  std::deque<std::function<void(Form&)>> modals_;
};

}  // namespace qb
