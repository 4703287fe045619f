#pragma once

#include <functional>
#include <string>

#include "ui/Form.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Asks for a document's title in the target language.
class frmTranslateTitle : public Form {
 public:
  frmTranslateTitle();

  void QBL_InitLText() override;

  /// What speaks against a title; empty if nothing does. Asked before Ok takes it.
  std::function<std::string(const std::string&)> Objection;

  Label Label1{*this, "Label1", "Title in the original language:"};
  TextBox ctlTitleOrig{*this, "ctlTitleOrig"};
  Label Label2{*this, "Label2", "Please enter the translated title for the Info Object:"};
  TextBox ctlTitleTrans{*this, "ctlTitleTrans"};
  Button btnOkay{*this, "btnOkay", "Ok"};
  Button btnCancel{*this, "btnCancel", "Cancel"};
};

}  // namespace qb
