#pragma once

#include "ui/Form.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Shows the version at start-up until its timer or a key unloads it.
class frmSplash : public Form {
 public:
  frmSplash();

  void QBL_InitLText() override;

  Timer tmrSplash{*this, "tmrSplash", 300};
  Label lblVersion{*this, "lblVersion"};
  Image Image1{*this, "Image1", "ICON_QBT"};
};

}  // namespace qb
