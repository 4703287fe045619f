#pragma once

#include <wx/frame.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>

#include "ui/controls/SimpleControls.h"

namespace qb {

/// Draws a status bar at the bottom of a frame. Its text is a label of its own, since the toolkit draws the
/// bar's panels by hand where no assistive program can read them.
class StatusLine {
 public:
  StatusLine(wxFrame& frame, StatusBar& bar);

  /// Height in device-independent pixels.
  int Height() const;
  void Apply();

 private:
  void PlaceLabel();
  void OnDoubleClick();

  StatusBar& control_;
  wxStatusBar* bar_;
  wxStaticText* label_;
};

}  // namespace qb
