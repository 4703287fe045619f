#include "platform/win32/ComApartment.h"

#include "platform/win32/ComFailure.h"

namespace qb {

void EnterComApartment() {
  // Never left: objects of the thread may live to the very end of the process.
  static thread_local bool entered = false;
  if (entered) return;
  CheckCom(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "CoInitializeEx");
  entered = true;
}

}  // namespace qb
