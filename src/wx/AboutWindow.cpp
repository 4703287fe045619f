#include "wx/AboutWindow.h"

#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/statline.h>

#include "ui/Toolkit.h"
#include "wx/AccessibleNames.h"
#include "wx/Icons.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kLogoSize = 64;
constexpr int kMargin = 16;
constexpr int kGap = 8;
constexpr int kLineGap = 2;
constexpr double kTitleScale = 1.4;

}  // namespace

AboutWindow::AboutWindow(frmAbout& form, wxWindow* parent)
    : FormWindow(form), form_(form), dialog_(new wxDialog(parent, wxID_ANY, ToWx(form.Caption.Get()))) {
  auto* logo = new wxStaticBitmap(dialog_, wxID_ANY, IconBitmap(form.imgLogo.Icon(), kLogoSize));
  auto* texts = new wxBoxSizer(wxVERTICAL);
  AddTexts(*texts);
  auto* top = new wxBoxSizer(wxHORIZONTAL);
  top->Add(logo, wxSizerFlags().Border(wxRIGHT, dialog_->FromDIP(kMargin)));
  top->Add(texts, wxSizerFlags(1));

  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  AddButton(*buttons, form.cmdSysInfo);
  buttons->AddStretchSpacer();
  AddButton(*buttons, form.cmdOK);

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(top, wxSizerFlags(1).Expand().Border(wxALL, dialog_->FromDIP(kMargin)));
  column->Add(new wxStaticLine(dialog_), wxSizerFlags().Expand());
  column->Add(buttons, wxSizerFlags().Expand().Border(wxALL, dialog_->FromDIP(kMargin)));
  dialog_->SetSizer(column);
  MarkAsDialog(*dialog_);
  BindEvents();
  FitToTexts();
}

void AboutWindow::AddTexts(wxSizer& sizer) {
  wxStaticText* title = AddLabel(sizer, form_.lblTitle, 0);
  title->SetFont(title->GetFont().Scaled(static_cast<float>(kTitleScale)).Bold());
  AddLabel(sizer, form_.Label2, kLineGap);
  AddLabel(sizer, form_.lblRelease, kLineGap);
  AddLabel(sizer, form_.lblDescription, kGap);
  AddLabel(sizer, form_.Label1, kGap);
  AddLabel(sizer, form_.lblDisclaimer, kLineGap);
}

wxStaticText* AboutWindow::AddLabel(wxSizer& sizer, Label& label, int space) {
  auto* text = new wxStaticText(dialog_, wxID_ANY, ToWx(label.Caption.Get()));
  sizer.Add(text, wxSizerFlags().Border(wxTOP, dialog_->FromDIP(space)));
  labels_.emplace_back(&label, text);
  return text;
}

wxButton* AboutWindow::AddButton(wxSizer& sizer, Button& button) {
  // The identifier makes the toolkit press the button on Escape.
  auto* drawn = new wxButton(dialog_, button.Cancel ? wxID_CANCEL : wxID_ANY, ToWx(button.Caption.Get()));
  drawn->Bind(wxEVT_BUTTON, [&button](wxCommandEvent&) {
    if (button.Click) button.Click();
  });
  if (button.Default) {
    drawn->SetDefault();
    drawn->SetFocus();
  }
  sizer.Add(drawn);
  buttons_.emplace_back(&button, drawn);
  return drawn;
}

void AboutWindow::BindEvents() {
  dialog_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
    if (event.CanVeto()) event.Veto();
    TheToolkit().Unload(form_, Form::kUnloadByUser);
  });
}

void AboutWindow::Apply() {
  bool textsChanged = false;
  if (dialog_->GetTitle() != ToWx(form_.Caption.Get())) dialog_->SetTitle(ToWx(form_.Caption.Get()));
  for (const auto& [label, text] : labels_) {
    const wxString wanted = ToWx(label->Caption.Get());
    if (text->GetLabelText() == wanted) continue;
    text->SetLabelText(wanted);
    textsChanged = true;
  }
  for (const auto& [button, drawn] : buttons_) {
    const wxString wanted = ToWx(button->Caption.Get());
    if (drawn->GetLabel() != wanted) {
      drawn->SetLabel(wanted);
      textsChanged = true;
    }
    drawn->Enable(button->Enabled);
  }
  // Only then: a dialog that is measured while it comes on screen for the first time ends up too narrow on
  // GTK.
  if (textsChanged) FitToTexts();
}

void AboutWindow::FitToTexts() {
  dialog_->GetSizer()->SetSizeHints(dialog_);
  dialog_->CentreOnParent();
}

}  // namespace qb
