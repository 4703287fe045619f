#include "editors/libreoffice/WaitingSign.h"

#include "platform/Platform.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmQBTranslator.h"

namespace qb {

void WaitingSign::Turn(std::chrono::milliseconds waited, std::string_view text) {
  if (waited >= patience_) {
    auto& status = Default<frmQBTranslator>().sbcStatusBar;
    if (!before_) {
      before_ = status.SimpleText.Get();
      ThePlatform().mousePointer->Set(MousePointer::kHourglass);
    }
    if (status.SimpleText.Get() != text) status.SimpleText = std::string(text);
  }
  TheToolkit().KeepAlive();
}

WaitingSign::~WaitingSign() {
  if (!before_) return;
  Default<frmQBTranslator>().sbcStatusBar.SimpleText = *before_;
  ThePlatform().mousePointer->Set(MousePointer::kDefault);
}

}  // namespace qb
