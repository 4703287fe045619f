#pragma once

#include "ui/Form.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Shows how far the check-in of a translated file has come. It waits for nothing, and nothing can be stopped
/// in it.
class frmFileCheckinDialog : public Form {
 public:
  frmFileCheckinDialog();

  void QBL_InitLText() override;
  void QBL_InitLText_Localization() override;

  Label lblText{*this, "lblText", "Copying of documents in progress:"};
  TextBox ctlCurrentFile{*this, "ctlCurrentFile"};
  ProgressBar ctlProgressBar{*this, "ctlProgressBar"};
  Button btnCancel{*this, "btnCancel", "Cancel"};
};

}  // namespace qb
