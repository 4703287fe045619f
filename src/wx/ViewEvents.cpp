#include "wx/ViewEvents.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

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

#ifdef __WXGTK__
constexpr const char* kStartSearch = "start-interactive-search";

gboolean StopSearch(GtkTreeView* rows, gpointer) {
  g_signal_stop_emission_by_name(rows, kStartSearch);
  return FALSE;  // the key was for somebody else
}
#endif

}  // namespace

void LeaveSearchKeyToMenus([[maybe_unused]] wxDataViewCtrl& view) {
#ifdef __WXGTK__
  g_signal_connect(view.GtkGetTreeView(), kStartSearch, G_CALLBACK(StopSearch), nullptr);
#endif
}

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
