#pragma once

#include "platform/Applications.h"

namespace qb {

/// Objects of other programs by the names of their classes. Calls run on the thread that asks first.
class Win32Automation : public Automation {
 public:
  std::shared_ptr<AutomationObject> ActiveObject(std::string_view className) override;
  std::shared_ptr<AutomationObject> NewObject(std::string_view className) override;
};

}  // namespace qb
