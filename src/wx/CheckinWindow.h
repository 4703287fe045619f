#pragma once

#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "ui/frmFileCheckinDialog.h"
#include "wx/FormWindow.h"

namespace qb {

/// Draws the progress of a check-in. Nothing waits for it, and it goes only with its form.
class CheckinWindow : public FormWindow {
 public:
  CheckinWindow(frmFileCheckinDialog& form, wxWindow* parent);

  wxWindow& Window() override { return *dialog_; }
  /// Waits until the screen shows what changed, since the check-in does not come back to the event loop
  /// before it is done.
  void Repaint() override;

 protected:
  void Apply() override;

 private:
  frmFileCheckinDialog& form_;
  wxDialog* dialog_;
  wxStaticText* text_;
  wxTextCtrl* file_;
  wxGauge* bar_;
  wxButton* cancel_;
  bool painted_ = false;
};

}  // namespace qb
