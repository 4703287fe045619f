#include "wx/OptionsWindow.h"

#include <wx/panel.h>

namespace qb {
namespace {

constexpr int kPageWidth = 380;

}  // namespace

OptionsWindow::OptionsWindow(frmOptions& form, wxWindow* parent) : DialogWindow(form, parent) {
  wxDialog& dialog = Dialog();
  wxNotebook* tabs = Controls().Draw(dialog, form.tbsOptions);
  auto* page = new wxPanel(tabs);
  const wxSizerFlags frame = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(kGap));
  auto* frames = new wxBoxSizer(wxVERTICAL);
  frames->Add(UserInterface(*page, form), frame);
  frames->Add(User(*page, form), frame);
  frames->SetMinSize(dialog.FromDIP(wxSize(kPageWidth, -1)));
  page->SetSizer(frames);
  tabs->AddPage(page, wxString());

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(tabs, wxSizerFlags(1).Expand());
  column->Add(ButtonRow({&form.cmdOK, &form.cmdCancel, &form.cmdApply}),
              wxSizerFlags().Expand().Border(wxTOP, dialog.FromDIP(kMargin)));
  Controls().WindowOf(form.edtTimerInterval)->SetFocus();
  Finish(column);
}

wxSizer* OptionsWindow::UserInterface(wxWindow& page, frmOptions& form) {
  wxStaticBoxSizer* frame = Controls().Draw(page, form.fraUserInterface);
  wxWindow& inside = *frame->GetStaticBox();
  const int gap = page.FromDIP(kGap);
  auto* rows = new wxFlexGridSizer(2, wxSize(gap, gap));
  rows->AddGrowableCol(1);
  rows->Add(Controls().Draw(inside, form.lblRefreshInterval), wxSizerFlags().CenterVertical());
  auto* interval = new wxBoxSizer(wxHORIZONTAL);
  interval->Add(Controls().Draw(inside, form.edtTimerInterval, form.lblRefreshInterval), wxSizerFlags(1));
  interval->Add(Controls().Draw(inside, form.lblMs), wxSizerFlags().CenterVertical().Border(wxLEFT, gap));
  rows->Add(interval, wxSizerFlags().Expand());
  rows->Add(Controls().Draw(inside, form.lblLanguage), wxSizerFlags().CenterVertical());
  rows->Add(Controls().Draw(inside, form.cmbLanguage, form.lblLanguage), wxSizerFlags().Expand());
  frame->Add(rows, wxSizerFlags(1).Expand().Border(wxALL, gap));
  return frame;
}

wxSizer* OptionsWindow::User(wxWindow& page, frmOptions& form) {
  wxStaticBoxSizer* frame = Controls().Draw(page, form.fraU);
  wxWindow& inside = *frame->GetStaticBox();
  const int gap = page.FromDIP(kGap);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(Controls().Draw(inside, form.lblUserID), wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  row->Add(Controls().Draw(inside, form.edtUserID, form.lblUserID), wxSizerFlags(1));
  frame->Add(row, wxSizerFlags(1).Expand().Border(wxALL, gap));
  return frame;
}

}  // namespace qb
