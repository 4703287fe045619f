#pragma once

#include <wx/window.h>

#include <memory>

#include "ui/Form.h"
#include "wx/FormTimers.h"

namespace qb {

/// Draws one form. Change notices of its controls are collected and applied once per turn of the event loop.
class FormWindow : private FormObserver {
 public:
  explicit FormWindow(Form& form);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;

  /// The toolkit's window of the form.
  virtual wxWindow& Window() = 0;
  /// The toolkit's window of a control, null for those that have none.
  virtual wxWindow* WindowOf(const Control&) { return nullptr; }

  virtual void Show();
  /// Shows a dialog and returns when it was hidden. A window that is no dialog is only shown.
  void ShowModal();
  void Hide();
  bool IsModal() { return modal_; }

  /// Draws what changed, now.
  virtual void Repaint();

  /// Applies what was collected. Does nothing if nothing was.
  void ApplyChanges();
  /// Lets go of the form, which may end before the window does.
  void Detach();

 protected:
  /// Asks for `Apply` in the next turn.
  void RequestApply();
  /// Brings the window in line with the form.
  virtual void Apply() = 0;

 private:
  void ControlChanged(Control& control) override;

  Form* form_;
  FormTimers timers_;
  bool applyRequested_ = false;
  bool modal_ = false;
};

/// The window for a form, by the form's kind. Null for a form that is never shown.
std::unique_ptr<FormWindow> MakeFormWindow(Form& form, wxWindow* parent);

}  // namespace qb
