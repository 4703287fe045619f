#pragma once

#include "platform/Dialogs.h"

namespace qb {

/// Message boxes of the desktop. Closing one without an answer cancels it, or says no where nothing is to
/// cancel.
class WxMessageBoxes : public MessageBoxes {
 public:
  int Show(const MessageBoxRequest& request) override;
};

}  // namespace qb
