#pragma once

#include <vector>

#include "platform/win32/ComHeaders.h"
#include "platform/win32/ComValues.h"

namespace qb {

/// The elements of an automation collection in its order: by its enumerator, else by `Count` and `Item` from
/// 1. Raises what the collection raises; 438 if it is none; 6 if it has more than 100,000.
std::vector<ComValue> ElementsOf(IDispatch& collection);

}  // namespace qb
