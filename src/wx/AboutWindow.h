#pragma once

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include <utility>
#include <vector>

#include "ui/frmAbout.h"
#include "wx/FormWindow.h"

namespace qb {

/// Draws the about box.
class AboutWindow : public FormWindow {
 public:
  AboutWindow(frmAbout& form, wxWindow* parent);

  wxWindow& Window() override { return *dialog_; }

 protected:
  void Apply() override;

 private:
  wxStaticText* AddLabel(wxSizer& sizer, Label& label, int space);
  wxButton* AddButton(wxSizer& sizer, Button& button);
  void AddTexts(wxSizer& sizer);
  void BindEvents();
  void FitToTexts();

  frmAbout& form_;
  wxDialog* dialog_;
  std::vector<std::pair<Label*, wxStaticText*>> labels_;
  std::vector<std::pair<Button*, wxButton*>> buttons_;
};

}  // namespace qb
