#pragma once

#include "ui/frmAbout.h"
#include "wx/DialogWindow.h"

namespace qb {

/// Draws the about box.
class AboutWindow : public DialogWindow {
 public:
  AboutWindow(frmAbout& form, wxWindow* parent);

 private:
  wxWindow* DrawLogo(Image& logo);
  wxSizer* Texts(frmAbout& form);
};

}  // namespace qb
