#pragma once

#include <map>
#include <memory>

#include "platform/Platform.h"
#include "ui/Toolkit.h"
#include "wx/FormWindow.h"

namespace qb {

/// Draws forms with wxWidgets. Needs a running wxApp.
class WxToolkit : public Toolkit {
 public:
  WxToolkit();
  ~WxToolkit() override;

  void Show(Form& form) override;
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;
  bool Unload(Form& form, int reason) override;
  void Repaint(Form& form) override;
  void PopupMenu(MenuItem& menu) override;
  void SetFocus(VisibleControl& control) override;
  /// Processes what is pending and waits a few milliseconds for more, so that a loop around it leaves the
  /// processor to others.
  void ProcessPendingEvents() override;
  void KeepAlive() override;
  ScreenArea WorkArea() override;
  [[noreturn]] void EndProcess() override;

  /// Brings all windows up to what their forms hold now.
  void ApplyAllChanges();

  /// Asks every shown form to go since the session ends.
  void EndSession();

 private:
  FormWindow* Find(const Form& form);
  FormWindow* FindOrMake(Form& form);
  void Retire(const Form& form);
  void ApplyFocus();

  std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
  VisibleControl* wantsFocus_ = nullptr;
};

/// The window that boxes and dialogs stand in front of: the active one, else the last that is shown; null if
/// there is none.
wxWindow* ParentForDialogs();

/// Brings all windows up to date now. The system's own dialogs run a loop of their own, in which nothing
/// would do so.
void DrawChanges();

/// Fills in the desktop's half of a platform: message boxes, file dialogs, clipboard and mouse pointer.
void AddWxDesktop(Platform& platform);

}  // namespace qb
