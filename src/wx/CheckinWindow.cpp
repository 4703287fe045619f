#include "wx/CheckinWindow.h"

#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/sizer.h>
#include <wx/utils.h>

#include <chrono>

#include "wx/AccessibleNames.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kMargin = 16;
constexpr int kGap = 8;
constexpr int kWidth = 520;
constexpr unsigned long kPauseMilliseconds = 2;
// A window that is covered or on another desktop is not drawn at all.
constexpr std::chrono::milliseconds kLongestWait{100};

}  // namespace

CheckinWindow::CheckinWindow(frmFileCheckinDialog& form, wxWindow* parent)
    : FormWindow(form),
      form_(form),
      dialog_(new wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxCAPTION)),
      text_(new wxStaticText(dialog_, wxID_ANY, wxString())),
      file_(new wxTextCtrl(dialog_, wxID_ANY)),
      bar_(new wxGauge(dialog_, wxID_ANY, 1)),
      cancel_(new wxButton(dialog_, wxID_ANY)) {
  const wxSizerFlags below = wxSizerFlags().Expand().Border(wxTOP, dialog_->FromDIP(kGap));
  file_->SetMinSize(dialog_->FromDIP(wxSize(kWidth, -1)));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(text_);
  column->Add(file_, below);
  column->Add(bar_, below);
  column->Add(cancel_, wxSizerFlags().Right().Border(wxTOP, dialog_->FromDIP(kMargin)));
  auto* frame = new wxBoxSizer(wxVERTICAL);
  frame->Add(column, wxSizerFlags(1).Expand().Border(wxALL, dialog_->FromDIP(kMargin)));
  dialog_->SetSizer(frame);
  dialog_->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
  dialog_->SetEscapeId(wxID_NONE);
  text_->Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
    event.Skip();
    painted_ = true;
  });
  MarkAsDialog(*dialog_);
  CheckinWindow::Apply();
  frame->SetSizeHints(dialog_);
  dialog_->CentreOnParent();
}

void CheckinWindow::Apply() {
  const wxString title = ToWx(form_.Caption.Get());
  if (dialog_->GetTitle() != title) dialog_->SetTitle(title);
  text_->SetLabelText(ToWx(form_.lblText.Caption.Get()));
  SetAccessibleName(*file_, form_.lblText.Caption);
  SetAccessibleName(*bar_, form_.lblText.Caption);
  const wxString file = ToWx(ShownPath(form_.ctlCurrentFile.Text.Get()));
  if (file_->GetValue() != file) file_->ChangeValue(file);
  file_->SetInsertionPointEnd();  // the file's name rather than the folders before it
  file_->SetEditable(!form_.ctlCurrentFile.Locked);
  bar_->Show(form_.ctlProgressBar.Visible);
  bar_->SetRange(form_.ctlProgressBar.Max - form_.ctlProgressBar.Min);
  bar_->SetValue(form_.ctlProgressBar.Value - form_.ctlProgressBar.Min);
  cancel_->SetLabel(ToWx(form_.btnCancel.Caption.Get()));
  cancel_->Enable(form_.btnCancel.Enabled);
}

void CheckinWindow::Repaint() {
  FormWindow::Repaint();
  wxEventLoopBase* loop = wxEventLoopBase::GetActive();
  if (loop == nullptr || !dialog_->IsShown()) return;
  painted_ = false;
  text_->Refresh();
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  // Only drawing: keys and clicks stay in the queue, so that no second command falls into the middle of the
  // first.
  for (loop->YieldFor(wxEVT_CATEGORY_UI); !painted_ && std::chrono::steady_clock::now() < end;
       loop->YieldFor(wxEVT_CATEGORY_UI)) {
    wxMilliSleep(kPauseMilliseconds);
  }
}

}  // namespace qb
