#include "foundation/FoundationState.h"

#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/EventLoop.h"
#include "foundation/modMultiLanguage.h"
#include "runtime/RuntimeError.h"

namespace qb {

std::function<void()> gProcessPendingEvents;
bool gInError = false;

void ResetFoundationState() {
  gMessageHandler.reset();
  gTrace.reset();
  gProtocolDirectory = {};
  gProcessPendingEvents = nullptr;
  gLanguageTexts.reset();
  gLanguageFile.clear();
  gInterfaceLanguage.clear();
  gInError = false;
  Err.Clear();
}

}  // namespace qb
