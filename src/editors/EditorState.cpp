#include "editors/EditorState.h"

#include <charconv>
#include <string_view>

#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"

namespace qb {

std::int16_t gVisioWindows = 0;
std::string gSessionStamp;
std::string gUserID;

namespace {

void SwitchTimers(bool on) {
  auto& form = Default<frmQBTranslator>();
  form.tmrTimer1.Enabled = on;
  form.tmrTimer2.Enabled = on;
}

std::uint64_t StampNumber(const std::string& stamp) {
  std::uint64_t number = 0;
  std::from_chars(stamp.data(), stamp.data() + stamp.size(), number);
  return number;
}

}  // namespace

void StopTimers() {
  SwitchTimers(false);
}

void StartTimers() {
  SwitchTimers(true);
}

bool IsVisio11Running() {
  bool running = false;
  Attempt([&] {
    const auto visio = ThePlatform().automation->ActiveObject("Visio.Application");
    running = visio != nullptr && EqualIgnoringCase(FirstCharacters(visio->TextProperty("Version"), 2), "11");
  });
  Err.Clear();
  return running;
}

bool IsLaterThanSession(const std::string& stamp) {
  return StampNumber(stamp) > StampNumber(gSessionStamp);
}

}  // namespace qb
