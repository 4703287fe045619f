#include "wx/KeepAlive.h"

#include <wx/event.h>
#include <wx/evtloop.h>

namespace qb {
namespace {

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
  loop->YieldFor(wxEVT_CATEGORY_UI);
  keptAlive = before;
}

bool IsKeptAlive() {
  return keptAlive;
}

}  // namespace qb
