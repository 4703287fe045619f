#pragma once

#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/listbox.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <map>
#include <vector>

#include "ui/controls/DialogControls.h"
#include "ui/controls/SimpleControls.h"

namespace qb {

/// Draws the controls of a dialog: keeps what is drawn in line with the form, and tells the form what the
/// user does. The order of drawing is the order of the Tab key.
class DialogControls {
 public:
  wxStaticText* Draw(wxWindow& parent, Label& label);
  wxButton* Draw(wxWindow& parent, Button& button);
  /// The label beside the control is its name for assistive programs.
  wxTextCtrl* Draw(wxWindow& parent, TextBox& box, const Label& label);
  wxComboBox* Draw(wxWindow& parent, ComboBox& box, const Label& label);
  wxListBox* Draw(wxWindow& parent, ListBox& box);
  wxStaticBoxSizer* Draw(wxWindow& parent, Frame& frame);
  /// Draws the tabs; their pages are added by the caller, in order.
  wxNotebook* Draw(wxWindow& parent, TabStrip& strip);

  /// Brings everything in line with the form. True if a text changed that may need another size.
  bool Apply();
  /// What is drawn for a control; null if nothing is.
  wxWindow* WindowOf(const Control& control) const;

 private:
  /// Keeps what is drawn and how it is brought in line, which answers whether it may need another size.
  void Add(const VisibleControl& control, wxWindow& drawn, std::function<bool()> apply);

  std::map<const Control*, wxWindow*> windows_;
  std::vector<std::function<bool()>> appliers_;
};

}  // namespace qb
