#pragma once

#include "ui/Form.h"
#include "ui/controls/DialogControls.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Asks for the value of an attribute in the target language. No command shows it yet.
class frmAttributeTranslation : public Form {
 public:
  frmAttributeTranslation();

  void QBL_InitLText() override;

  /// The place at which a caller would fill the form.
  void Init() {}

  ListBox ctlProperties{*this, "ctlProperties"};
  Label lblAttributeName{*this, "lblAttributeName", "Attribute Name:"};
  TextBox AttributeName{*this, "AttributeName"};
  Label lblSourceValue{*this, "lblSourceValue", "Value in Source Language:"};
  TextBox SourceValue{*this, "SourceValue"};
  Label lblTargetValue{*this, "lblTargetValue", "Value in Target Language:"};
  TextBox TargetValue{*this, "TargetValue"};
  Label lblPreviousTranslation{*this, "lblPreviousTranslation", "Previous Translation:"};
  TextBox PreviousTranslation{*this, "PreviousTranslation"};
  Button btnCopySource{*this, "btnCopySource", "Copy Source Language Text"};
  Button btnReusePreviousTranslation{*this, "btnReusePreviousTranslation", "Reuse Previous Translation"};
  /// Has no caption: Enter alone presses it.
  Button btnDefault{*this, "btnDefault"};
  Button btnOK{*this, "btnOK", "OK"};
  Button btnCancel{*this, "btnCancel", "Cancel"};
};

}  // namespace qb
