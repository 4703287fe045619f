#include "wx/AttributeWindow.h"

namespace qb {
namespace {

constexpr int kFieldWidth = 380;
constexpr int kListWidth = 180;

}  // namespace

AttributeWindow::AttributeWindow(frmAttributeTranslation& form, wxWindow* parent)
    : DialogWindow(form, parent, true) {
  wxDialog& dialog = Dialog();
  wxListBox* list = Controls().Draw(dialog, form.ctlProperties);
  list->SetMinSize(dialog.FromDIP(wxSize(kListWidth, -1)));

  auto* fields = new wxBoxSizer(wxVERTICAL);
  const auto add = [&](Label& label, TextBox& box) {
    const int space = dialog.FromDIP(fields->IsEmpty() ? 0 : kGap);
    fields->Add(Controls().Draw(dialog, label), wxSizerFlags().Border(wxTOP, space));
    wxTextCtrl* drawn = Controls().Draw(dialog, box, label);
    drawn->SetMinSize(dialog.FromDIP(wxSize(kFieldWidth, -1)));
    fields->Add(drawn, wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kGap / 2)));
    return drawn;
  };
  add(form.lblAttributeName, form.AttributeName);
  add(form.lblSourceValue, form.SourceValue);
  wxTextCtrl* target = add(form.lblTargetValue, form.TargetValue);
  add(form.lblPreviousTranslation, form.PreviousTranslation);
  auto* fillers = new wxBoxSizer(wxHORIZONTAL);
  fillers->Add(Controls().Draw(dialog, form.btnCopySource),
               wxSizerFlags(1).Border(wxRIGHT, dialog.FromDIP(kGap)));
  fillers->Add(Controls().Draw(dialog, form.btnReusePreviousTranslation), wxSizerFlags(1));
  fields->Add(fillers, wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kMargin)));

  auto* top = new wxBoxSizer(wxHORIZONTAL);
  top->Add(list, wxSizerFlags().Expand().Border(wxRIGHT, dialog.FromDIP(kMargin)));
  top->Add(fields, wxSizerFlags(1).Expand());
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(top, wxSizerFlags(1).Expand());
  column->Add(ButtonRow({&form.btnOK, &form.btnCancel}),
              wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kMargin)));
  target->SetFocus();
  Finish(column);
}

}  // namespace qb
