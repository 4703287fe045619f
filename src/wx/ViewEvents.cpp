#include "wx/ViewEvents.h"

namespace qb {

namespace {

wxWindow& RowsOf(wxDataViewCtrl& view) {
#ifdef wxHAS_GENERIC_DATAVIEWCTRL
  // There the rows are a window of their own inside the view, and that has focus and pointer.
  return *view.GetMainWindow();
#else
  return view;
#endif
}

}  // namespace

void BindKeyDown(wxDataViewCtrl& view, const std::function<void(wxKeyEvent&)>& handler) {
  RowsOf(view).Bind(wxEVT_KEY_DOWN, handler);
}

void BindRightUp(wxDataViewCtrl& view, std::function<void()> handler) {
  RowsOf(view).Bind(wxEVT_RIGHT_UP, [handler = std::move(handler)](wxMouseEvent& event) {
    event.Skip();
    handler();
  });
}

}  // namespace qb
