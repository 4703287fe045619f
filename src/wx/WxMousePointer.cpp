#include "wx/WxMousePointer.h"

#include <wx/utils.h>

namespace qb {

void WxMousePointer::Set(int pointer) {
  if (pointer == kHourglass && !wxIsBusy()) wxBeginBusyCursor();
  if (pointer != kHourglass && wxIsBusy()) wxEndBusyCursor();
}

}  // namespace qb
