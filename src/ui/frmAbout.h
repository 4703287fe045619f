#pragma once

#include "ui/Form.h"
#include "ui/controls/DialogControls.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Shows what the program is and which version runs.
class frmAbout : public Form {
 public:
  frmAbout();

  void QBL_InitLText() override;

  Image picIcon{*this, "picIcon", "ICON_QBT"};
  Image imgLogo{*this, "imgLogo", "ICON_QBT"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdSysInfo{*this, "cmdSysInfo", "&System Info..."};
  Label Label2{*this, "Label2", "Translator"};
  Label Label1{*this, "Label1", "Copyright ORB AG. All rights reserved."};
  Line Line1{*this, "Line1"};
  Label lblDescription{*this, "lblDescription", "Making your translation/localization handling easier"};
  Label lblTitle{*this, "lblTitle", "Quillbank"};
  Label lblRelease{*this, "lblRelease", "Version"};
  Label lblDisclaimer{*this, "lblDisclaimer",
                      "This program is protected by copyright law and international treaties."};
};

}  // namespace qb
