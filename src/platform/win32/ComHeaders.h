#pragma once

// The system's headers for automation, in the order that they need, and pointers that count references.

#include "platform/win32/SystemHeaders.h"
// Behind it, since they do not stand alone.
#include <ocidl.h>
#include <oleauto.h>
#include <wrl/client.h>

namespace qb {

/// Not to be given an object by `Attach`, which counts a reference too many in this compiler's library.
using Microsoft::WRL::ComPtr;

/// Where a call may put an object of any interface that it was asked for; for an empty pointer.
template <class Interface>
void** Into(ComPtr<Interface>& pointer) {
  return reinterpret_cast<void**>(pointer.GetAddressOf());
}

}  // namespace qb
