#pragma once

#include <array>

#include "ui/Form.h"
#include "ui/controls/DialogControls.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// The settings that the user can change.
class frmOptions : public Form {
 public:
  frmOptions();

  void QBL_InitLText() override;

  TabStrip tbsOptions{*this, "tbsOptions"};
  /// By index from 0; only the first has a tab.
  std::array<TabPage, 4> picOptions{{{*this, "picOptions(0)"},
                                     {*this, "picOptions(1)"},
                                     {*this, "picOptions(2)"},
                                     {*this, "picOptions(3)"}}};
  Frame fraUserInterface{*this, "fraUserInterface", "User Interface Settings"};
  Label lblRefreshInterval{*this, "lblRefreshInterval", "Refresh after"};
  TextBox edtTimerInterval{*this, "edtTimerInterval"};
  Label lblMs{*this, "lblMs", "ms"};
  Label lblLanguage{*this, "lblLanguage", "Language"};
  ComboBox cmbLanguage{*this, "cmbLanguage"};
  Frame fraU{*this, "fraU", "User"};
  Label lblUserID{*this, "lblUserID", "User ID"};
  TextBox edtUserID{*this, "edtUserID"};
  Frame fraSample4{*this, "fraSample4", "Sample 4"};
  Frame fraSample3{*this, "fraSample3", "Sample 3"};
  Frame fraSample2{*this, "fraSample2", "Sample 2"};
  Label Label1{*this, "Label1", "Language"};
  Button cmdOK{*this, "cmdOK", "OK"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};
  Button cmdApply{*this, "cmdApply", "Apply"};
};

}  // namespace qb
