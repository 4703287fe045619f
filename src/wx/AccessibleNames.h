#pragma once

#include <wx/combobox.h>
#include <wx/dataview.h>
#include <wx/listbox.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>
#include <wx/window.h>

#include <string>
#include <vector>

namespace qb {

/// Gives a window the name that assistive programs read out. On platforms whose controls are named by their
/// own means this does no more than that.
void SetAccessibleName(wxWindow& window, const std::string& name);
void SetAccessibleName(wxDataViewCtrl& view, const std::string& name);
void SetAccessibleName(wxComboBox& box, const std::string& name);
void SetAccessibleName(wxListBox& box, const std::string& name);
/// Tells assistive programs that the window is a status bar, and its name.
void SetAccessibleName(wxStatusBar& bar, const std::string& name);
/// Tells assistive programs that the window is a dialog, which the toolkit does for the desktop's own only.
void MarkAsDialog(wxWindow& window);
/// The names of a tool bar's tools in order, separators counted too.
void SetAccessibleNames(wxToolBar& bar, const std::vector<std::string>& names);

}  // namespace qb
