#include "wx/AccessibleNames.h"

#include "wx/WxText.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace qb {
namespace {

#ifdef __WXGTK__
// The toolkit names only what shows a text.
void NameWidget(GtkWidget* widget, const std::string& name) {
  atk_object_set_name(gtk_widget_get_accessible(widget), name.c_str());
}
#endif

}  // namespace

void SetAccessibleName(wxWindow& window, const std::string& name) {
  window.SetName(ToWx(name));
#ifdef __WXGTK__
  NameWidget(window.GetHandle(), name);
#endif
}

void SetAccessibleName(wxDataViewCtrl& view, const std::string& name) {
  view.SetName(ToWx(name));
#ifdef __WXGTK__
  NameWidget(view.GtkGetTreeView(), name);
#endif
}

void SetAccessibleName(wxComboBox& box, const std::string& name) {
  box.SetName(ToWx(name));
#ifdef __WXGTK__
  NameWidget(box.GetHandle(), name);
  // The line inside is what takes the focus.
  NameWidget(gtk_bin_get_child(GTK_BIN(box.GetHandle())), name);
#endif
}

void SetAccessibleName(wxListBox& box, const std::string& name) {
  box.SetName(ToWx(name));
#ifdef __WXGTK__
  NameWidget(gtk_bin_get_child(GTK_BIN(box.GetHandle())), name);
#endif
}

void SetAccessibleName(wxStatusBar& bar, const std::string& name) {
  bar.SetName(ToWx(name));
#ifdef __WXGTK__
  NameWidget(bar.GetHandle(), name);
  atk_object_set_role(gtk_widget_get_accessible(bar.GetHandle()), ATK_ROLE_STATUSBAR);
#endif
}

void MarkAsDialog([[maybe_unused]] wxWindow& window) {
#ifdef __WXGTK__
  atk_object_set_role(gtk_widget_get_accessible(window.GetHandle()), ATK_ROLE_DIALOG);
#endif
}

void SetAccessibleNames([[maybe_unused]] wxToolBar& bar,
                        [[maybe_unused]] const std::vector<std::string>& names) {
#ifdef __WXGTK__
  GtkWidget* toolbar = bar.GetHandle();
  // The tool bar itself may stand inside a box that catches its events.
  if (!GTK_IS_TOOLBAR(toolbar)) toolbar = gtk_bin_get_child(GTK_BIN(toolbar));
  for (std::size_t i = 0; i < names.size(); ++i) {
    GtkToolItem* item = gtk_toolbar_get_nth_item(GTK_TOOLBAR(toolbar), static_cast<int>(i));
    if (item == nullptr || names[i].empty()) continue;
    // The button inside the item is what takes the focus and the click.
    GtkWidget* button = gtk_bin_get_child(GTK_BIN(item));
    if (button != nullptr) NameWidget(button, names[i]);
  }
#endif
}

}  // namespace qb
