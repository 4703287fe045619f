#pragma once

#include "ui/Form.h"
#include "ui/controls/LinkedTextBox.h"

namespace qb {

/// Never shown: holds the conversation with the terminology tool.
class DDE : public Form {
 public:
  DDE() : Form("DDE") {}

  void QBL_InitLText() override {}

  LinkedTextBox DDEResult{*this, "DDEResult"};
};

}  // namespace qb
