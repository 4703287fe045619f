#pragma once

#include <wx/frame.h>
#include <wx/toolbar.h>

#include <functional>
#include <vector>

#include "ui/controls/Toolbar.h"

namespace qb {

/// Draws a tool bar at the top of a frame. A button without a tool tip goes by its key for assistive
/// programs.
class ToolbarRenderer {
 public:
  ToolbarRenderer(wxFrame& frame, Toolbar& toolbar);

  wxToolBar& Bar() { return *bar_; }
  /// Height in device-independent pixels.
  int Height() const;
  void Apply();

 private:
  void OnTool(const wxCommandEvent& event);

  Toolbar& toolbar_;
  wxToolBar* bar_;
  std::vector<int> ids_;  ///< of the tools, by index from 0; separators have wxID_SEPARATOR
};

}  // namespace qb
