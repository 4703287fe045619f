#pragma once

#include "ui/frmOptions.h"
#include "wx/DialogWindow.h"

namespace qb {

/// Draws the options dialog. Pages that have no tab are not drawn.
class OptionsWindow : public DialogWindow {
 public:
  OptionsWindow(frmOptions& form, wxWindow* parent);

 private:
  wxSizer* UserInterface(wxWindow& page, frmOptions& form);
  wxSizer* User(wxWindow& page, frmOptions& form);
};

}  // namespace qb
