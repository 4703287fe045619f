#pragma once

#include "ui/Form.h"

namespace qb {

/// A form without anything, for a control to be in.
class PlainForm : public Form {
 public:
  PlainForm() : Form("PlainForm") {}
  void QBL_InitLText() override {}
};

}  // namespace qb
