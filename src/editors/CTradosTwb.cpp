#include "editors/CTradosTwb.h"

#include <utility>

#include "editors/EditorState.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"

namespace qb {

std::shared_ptr<CTradosTwb> gTwb;

namespace {
constexpr std::string_view kWindowClass = "TW4Win2Class";
constexpr std::string_view kAutomationClass = "TW4Win.Application";
}  // namespace

CTradosTwb::~CTradosTwb() {
  const PendingError pending = Err;
  Attempt([this] { Quit(); });  // a Workbench that has gone needs no closing
  Err = pending;
}

std::string CTradosTwb::Cleanup(std::string_view) {
  return {};
}

void CTradosTwb::Quit() {
  // Emptied first, so that one that fails to close is not asked again.
  const auto workbench = std::exchange(workbench_, nullptr);
  if (workbench != nullptr) workbench->Call("Quit");
}

bool CTradosTwb::LoadTM(std::string_view strFile) {
  if (workbench_ == nullptr) throw RuntimeError(failure::kObjectNotSet);
  const auto memory = workbench_->ObjectProperty("TranslationMemory");
  if (memory == nullptr) throw RuntimeError(failure::kObjectNotSet);
  memory->Call("Open", {std::string(strFile), UserID(), std::nullopt, std::string("w")});
  return true;
}

bool CTradosTwb::IsTwbRunning() {
  return ThePlatform().windows->Find(kWindowClass, std::nullopt) != 0;
}

bool CTradosTwb::Init(std::string_view) {
  const bool done = Attempt([this] {
    Automation& automation = *ThePlatform().automation;
    workbench_ =
        IsTwbRunning() ? automation.ActiveObject(kAutomationClass) : automation.NewObject(kAutomationClass);
  });
  Err.Clear();
  return done && workbench_ != nullptr;
}

const std::string& CTradosTwb::UserID() const {
  return gUserID;
}

}  // namespace qb
