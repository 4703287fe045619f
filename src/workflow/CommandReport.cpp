#include "workflow/CommandReport.h"

#include "foundation/Product.h"
#include "platform/Dialogs.h"
#include "runtime/RuntimeError.h"
#include "workflow/TranslateMod.h"

namespace qb {

void ReportCommand(std::string_view procedure, const TwoWordings& text) {
  const PendingError error = Err;  // asking for a wording clears the pending one
  if (error.Number != 0) {
    const std::string report = QBL_FormatText(text.Text(), std::to_string(error.Number), error.Description);
    if (gMessageHandler != nullptr) gMessageHandler->Message(report, 2, true, false);
    Trace(3, "TranslateMod", procedure, "{}", report);
    Err.Clear();
  }
  TellRefusedWrites();
}

void TellRefusedWrites() {
  const std::string why = TakeRefusedWrite();
  if (why.empty() || gMessageHandler == nullptr) return;
  gMessageHandler->Message("The package file could not be changed: " + why, 2, true, false);
}

bool StoppedByVisioWindows() {
  if (gVisioWindows < 1) return false;
  MsgBox("Close all Visio windows before continuing!", box::kExclamation);
  return true;
}

}  // namespace qb
