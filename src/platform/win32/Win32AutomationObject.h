#pragma once

#include <memory>

#include "platform/Applications.h"
#include "platform/win32/ComHeaders.h"

namespace qb {

/// An object of another program that is asked by name; nothing stays nothing.
std::shared_ptr<AutomationObject> MakeAutomationObject(ComPtr<IDispatch> object);

}  // namespace qb
