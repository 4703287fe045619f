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

wxString TextIn(const wxDataViewModel& model, const wxDataViewItem& row, unsigned column) {
  wxVariant value;
  model.GetValue(value, row, column);
  if (value.GetType() != "wxDataViewIconText") return value.GetString();
  wxDataViewIconText text;
  text << value;
  return text.GetText();
}

/// FALSE where the row is one that is looked for: the toolkit asks for a comparison, not for a yes.
gboolean IsAnother(GtkTreeModel* rows, gint, const gchar* typed, GtkTreeIter* row, gpointer data) {
  const auto& view = *static_cast<const wxDataViewCtrl*>(data);
  GtkTreePath* path = gtk_tree_model_get_path(rows, row);
  const wxDataViewItem item = view.GTKPathToItem(path);
  gtk_tree_path_free(path);
  const wxString wanted = wxString::FromUTF8(typed).Lower();
  const wxDataViewModel& model = *view.GetModel();
  for (unsigned column = 0; column < view.GetColumnCount(); ++column) {
    if (TextIn(model, item, column).Lower().StartsWith(wanted)) return FALSE;
  }
  return TRUE;
}
#endif

}  // namespace

void LeaveSearchKeyToMenus([[maybe_unused]] wxDataViewCtrl& view) {
#ifdef __WXGTK__
  g_signal_connect(view.GtkGetTreeView(), kStartSearch, G_CALLBACK(StopSearch), nullptr);
#endif
}

void SearchByAnyText([[maybe_unused]] wxDataViewCtrl& view) {
#ifdef __WXGTK__
  gtk_tree_view_set_search_equal_func(GTK_TREE_VIEW(view.GtkGetTreeView()), IsAnother, &view, nullptr);
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
