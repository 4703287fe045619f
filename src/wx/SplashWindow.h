#pragma once

#include <wx/frame.h>
#include <wx/stattext.h>

#include "ui/frmSplash.h"
#include "wx/FormWindow.h"

namespace qb {

/// Draws the splash: the logo, the product's name and the version in a window without a border.
class SplashWindow : public FormWindow {
 public:
  explicit SplashWindow(frmSplash& form);

  wxWindow& Window() override { return *frame_; }

 protected:
  void Apply() override;

 private:
  frmSplash& form_;
  wxFrame* frame_;
  wxPanel* panel_;
  wxStaticText* version_;
};

}  // namespace qb
