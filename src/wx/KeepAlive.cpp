#include "wx/KeepAlive.h"

#include <wx/event.h>
#include <wx/evtloop.h>
#include <wx/utils.h>

#include <chrono>

namespace qb {
namespace {

using SteadyClock = std::chrono::steady_clock;

/// A screen reader asks hundreds of questions in a row, each when it has the answer to the one before.
constexpr std::chrono::milliseconds kLongest{50};
constexpr unsigned long kPauseMilliseconds = 1;  // the next question comes sooner

bool keptAlive = false;

/// Takes away what would start a command.
class Filter : public wxEventFilter {
 public:
  Filter() { wxEvtHandler::AddFilter(this); }
  ~Filter() override { wxEvtHandler::RemoveFilter(this); }

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == wxEVT_CLOSE_WINDOW) {
      static_cast<wxCloseEvent&>(event).Veto();
      return Event_Processed;
    }
    return event.GetEventCategory() == wxEVT_CATEGORY_USER_INPUT ? Event_Processed : Event_Skip;
  }
};

}  // namespace

void DrawWithoutInput() {
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop == nullptr) return;
  const Filter filter;
  const bool before = keptAlive;
  keptAlive = true;
  const auto start = SteadyClock::now();
  do {
    loop->YieldFor(wxEVT_CATEGORY_UI);
    wxMilliSleep(kPauseMilliseconds);
  } while (loop->Pending() && SteadyClock::now() - start < kLongest);
  keptAlive = before;
}

bool IsKeptAlive() {
  return keptAlive;
}

}  // namespace qb
