#pragma once

#include "platform/Dialogs.h"

namespace qb {

/// The pointer of all windows: the hourglass, or the usual one for any other value.
class WxMousePointer : public MousePointer {
 public:
  void Set(int pointer) override;
};

}  // namespace qb
