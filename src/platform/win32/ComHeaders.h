#pragma once

// The system's headers for automation, in the order that they need, and pointers that count references.

#include "platform/win32/SystemHeaders.h"
// Behind it, since they do not stand alone.
#include <ocidl.h>
#include <oleauto.h>
#include <wrl/client.h>

namespace qb {

using Microsoft::WRL::ComPtr;

}  // namespace qb
