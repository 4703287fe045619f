#pragma once

#include <string_view>

#include "platform/Applications.h"
#include "platform/win32/ComValues.h"

namespace qb {

/// The number of a member of an automation object. Raises 438 if the object has none of this name.
DISPID MemberNumber(IDispatch& object, std::string_view name);

/// Calls a member of an automation object by its number, as a method (DISPATCH_METHOD) or a property that is
/// read (DISPATCH_PROPERTYGET), and returns what it gives. Waits a moment for a program that is busy. Raises
/// what the object raises, with `subject` to name the member where the object does not say what went wrong.
ComValue InvokeMember(IDispatch& object, DISPID member, WORD kind, std::string_view subject,
                      const CallArguments& arguments = {});

}  // namespace qb
