#pragma once

#include <wx/dialog.h>
#include <wx/sizer.h>

#include "wx/DialogControls.h"
#include "wx/FormWindow.h"

namespace qb {

/// Draws a form as a dialog: title, default button, keys, size by its contents. What stands in it is the
/// kind's own.
class DialogWindow : public FormWindow {
 public:
  wxWindow& Window() override { return *dialog_; }
  wxWindow* WindowOf(const Control& control) override { return controls_.WindowOf(control); }

 protected:
  /// Measures between controls, in device-independent pixels.
  static constexpr int kMargin = 16;
  static constexpr int kGap = 8;

  /// The user can make a `wide` dialog wider, for long texts.
  DialogWindow(Form& form, wxWindow* parent, bool wide = false);

  wxDialog& Dialog() { return *dialog_; }
  DialogControls& Controls() { return controls_; }

  /// Puts the contents into the dialog and fits it to them. Called once, when all is drawn.
  void Finish(wxSizer* contents);
  /// A row of buttons; the first goes to the left end if `firstApart`.
  wxSizer* ButtonRow(std::initializer_list<Button*> buttons, bool firstApart = false);

  void Apply() override;

 private:
  void BindEvents();
  void OnKey(wxKeyEvent& event);
  void ApplyDefault();
  void FitToTexts();

  Form& form_;
  wxDialog* dialog_;
  DialogControls controls_;
  Button* default_ = nullptr;  ///< as last applied
};

}  // namespace qb
