#pragma once

#include "ui/frmTranslateTitle.h"
#include "wx/DialogWindow.h"

namespace qb {

/// Draws the title dialog.
class TitleWindow : public DialogWindow {
 public:
  TitleWindow(frmTranslateTitle& form, wxWindow* parent);
};

}  // namespace qb
