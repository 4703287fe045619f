#include "wx/DialogControls.h"

#include <wx/settings.h>

#include "wx/AccessibleNames.h"
#include "wx/WxText.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace qb {
namespace {

/// Shows a text that fits into any line. A control that cannot hold it whole is not offered for a change,
/// which would cost the rest.
void ShowText(wxTextCtrl& drawn, const TextBox& box) {
  const wxString text = ToWx(box.Text.Get());
  if (drawn.GetValue() != text) drawn.ChangeValue(text);
  drawn.SetEditable(!box.Locked && drawn.GetValue() == text);
  if (box.Locked) drawn.SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
}

/// The toolkit has tool tips for whole windows only.
void SetTabToolTip(wxNotebook& tabs, std::size_t page, const std::string& text) {
#ifdef __WXGTK__
  GtkNotebook* notebook = GTK_NOTEBOOK(tabs.GetHandle());
  GtkWidget* contents = gtk_notebook_get_nth_page(notebook, static_cast<int>(page));
  gtk_widget_set_tooltip_text(gtk_notebook_get_tab_label(notebook, contents), text.c_str());
#else
  tabs.GetPage(page)->SetToolTip(ToWx(text));
#endif
}

#ifdef __WXGTK__
void RefuseFocusOfButtons(GtkWidget* widget, gpointer) {
  if (GTK_IS_TOGGLE_BUTTON(widget)) {
    gtk_widget_set_can_focus(widget, FALSE);
  } else if (GTK_IS_CONTAINER(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), RefuseFocusOfButtons, nullptr);
  }
}
#endif

/// The arrow of a combination box is no stop of the Tab key, where no screen reader could tell what has the
/// focus. The arrow keys do the same in the line.
void SkipArrow([[maybe_unused]] wxComboBox& box) {
#ifdef __WXGTK__
  RefuseFocusOfButtons(box.GetHandle(), nullptr);
#endif
}

}  // namespace

void DialogControls::Add(const VisibleControl& control, wxWindow& drawn, std::function<bool()> apply) {
  windows_[&control] = &drawn;
  appliers_.push_back([&control, &drawn, apply = std::move(apply)] {
    if (drawn.IsEnabled() != control.Enabled.Get()) drawn.Enable(control.Enabled);
    if (drawn.IsShown() != control.Visible.Get()) drawn.Show(control.Visible);
    return apply();
  });
}

wxStaticText* DialogControls::Draw(wxWindow& parent, Label& label) {
  auto* drawn = new wxStaticText(&parent, wxID_ANY, wxString());
  Add(label, *drawn, [&label, drawn] {
    const wxString wanted = ToWx(label.Caption.Get());
    if (drawn->GetLabelText() == wanted) return false;
    drawn->SetLabelText(wanted);
    return true;
  });
  return drawn;
}

wxButton* DialogControls::Draw(wxWindow& parent, Button& button) {
  // The identifier makes the toolkit press the button on Escape.
  auto* drawn = new wxButton(&parent, button.Cancel ? wxID_CANCEL : wxID_ANY, ToWx(button.Caption.Get()));
  drawn->Bind(wxEVT_BUTTON, [&button](wxCommandEvent&) {
    if (button.Click) button.Click();
  });
  Add(button, *drawn, [&button, drawn] {
    const wxString wanted = ToWx(button.Caption.Get());
    if (drawn->GetLabel() == wanted) return false;
    drawn->SetLabel(wanted);
    return true;
  });
  return drawn;
}

wxTextCtrl* DialogControls::Draw(wxWindow& parent, TextBox& box, const Label& label) {
  auto* drawn = new wxTextCtrl(&parent, wxID_ANY);
  drawn->Bind(wxEVT_TEXT, [&box, drawn](wxCommandEvent&) { box.Text = FromWx(drawn->GetValue()); });
  Add(box, *drawn, [&box, &label, drawn, start = 0, length = 0]() mutable {
    SetAccessibleName(*drawn, label.Caption);
    ShowText(*drawn, box);
    if (start == box.SelStart && length == box.SelLength) return false;
    start = box.SelStart;
    length = box.SelLength;
    drawn->SetSelection(start, start + length);
    return false;
  });
  return drawn;
}

wxComboBox* DialogControls::Draw(wxWindow& parent, ComboBox& box, const Label& label) {
  auto* drawn = new wxComboBox(&parent, wxID_ANY);
  SkipArrow(*drawn);
  const auto take = [&box, drawn](wxCommandEvent&) { box.Text = FromWx(drawn->GetValue()); };
  drawn->Bind(wxEVT_TEXT, take);
  drawn->Bind(wxEVT_COMBOBOX, take);
  Add(box, *drawn, [&box, &label, drawn] {
    SetAccessibleName(*drawn, label.Caption);
    const std::string text = box.Text;  // a new item may change what is drawn
    for (unsigned i = drawn->GetCount(); i < box.Items().size(); ++i) drawn->Append(ToWx(box.Items()[i]));
    if (drawn->GetValue() != ToWx(text)) drawn->SetValue(ToWx(text));
    return false;
  });
  return drawn;
}

wxListBox* DialogControls::Draw(wxWindow& parent, ListBox& box) {
  auto* drawn = new wxListBox(&parent, wxID_ANY);
  drawn->Bind(wxEVT_LISTBOX, [&box, drawn](wxCommandEvent&) {
    box.ListIndex = drawn->GetSelection();
    if (box.Click) box.Click();
  });
  Add(box, *drawn, [&box, drawn] {
    SetAccessibleName(*drawn, "Attributes");
    for (unsigned i = drawn->GetCount(); i < box.Items().size(); ++i) drawn->Append(ToWx(box.Items()[i]));
    if (drawn->GetSelection() != box.ListIndex) drawn->SetSelection(box.ListIndex);
    return false;
  });
  return drawn;
}

wxStaticBoxSizer* DialogControls::Draw(wxWindow& parent, Frame& frame) {
  auto* sizer = new wxStaticBoxSizer(wxVERTICAL, &parent, ToWx(frame.Caption.Get()));
  wxStaticBox* drawn = sizer->GetStaticBox();
  Add(frame, *drawn, [&frame, drawn] {
    const wxString wanted = ToWx(frame.Caption.Get());
    if (drawn->GetLabel() == wanted) return false;
    drawn->SetLabel(wanted);
    return true;
  });
  return sizer;
}

wxNotebook* DialogControls::Draw(wxWindow& parent, TabStrip& strip) {
  auto* drawn = new wxNotebook(&parent, wxID_ANY);
  drawn->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [&strip, drawn](wxBookCtrlEvent& event) {
    event.Skip();
    const int selected = drawn->GetSelection() + 1;
    if (selected >= 1 && selected != strip.SelectedIndex()) strip.Select(selected);
  });
  Add(strip, *drawn, [&strip, drawn] {
    bool changed = false;
    const int pages = static_cast<int>(drawn->GetPageCount());
    for (int i = 1; i <= strip.TabCount() && i <= pages; ++i) {
      const auto page = static_cast<std::size_t>(i) - 1;
      const wxString wanted = ToWx(strip.Tabs(i).Caption.Get());
      if (drawn->GetPageText(page) != wanted) {
        drawn->SetPageText(page, wanted);
        changed = true;
      }
      SetTabToolTip(*drawn, page, strip.Tabs(i).ToolTipText);
    }
    if (strip.SelectedIndex() <= pages && drawn->GetSelection() != strip.SelectedIndex() - 1) {
      drawn->ChangeSelection(static_cast<std::size_t>(strip.SelectedIndex()) - 1);
    }
    return changed;
  });
  return drawn;
}

bool DialogControls::Apply() {
  bool changed = false;
  for (const auto& apply : appliers_) changed = apply() || changed;
  return changed;
}

wxWindow* DialogControls::WindowOf(const Control& control) const {
  const auto found = windows_.find(&control);
  return found == windows_.end() ? nullptr : found->second;
}

}  // namespace qb
