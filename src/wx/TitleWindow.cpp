#include "wx/TitleWindow.h"

namespace qb {
namespace {

constexpr int kWidth = 520;

}  // namespace

TitleWindow::TitleWindow(frmTranslateTitle& form, wxWindow* parent) : DialogWindow(form, parent, true) {
  wxDialog& dialog = Dialog();
  const wxSizerFlags below = wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kGap));
  const wxSizerFlags apart = wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kMargin));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(Controls().Draw(dialog, form.Label1));
  wxTextCtrl* original = Controls().Draw(dialog, form.ctlTitleOrig, form.Label1);
  original->SetMinSize(dialog.FromDIP(wxSize(kWidth, -1)));
  column->Add(original, below);
  column->Add(Controls().Draw(dialog, form.Label2), apart);
  wxTextCtrl* translation = Controls().Draw(dialog, form.ctlTitleTrans, form.Label2);
  column->Add(translation, below);
  column->AddStretchSpacer();
  column->Add(ButtonRow({&form.btnOkay, &form.btnCancel}), apart);
  translation->SetFocus();
  Finish(column);
}

}  // namespace qb
