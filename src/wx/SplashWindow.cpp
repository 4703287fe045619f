#include "wx/SplashWindow.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>

#include "foundation/Product.h"
#include "wx/Icons.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kLogoSize = 96;
constexpr int kGap = 12;
constexpr int kMargin = 32;
constexpr double kNameScale = 1.6;

/// A text in a font of its own is measured by that font: before it is on screen, the desktop measures it by
/// the usual one and would cut it off.
void TakeRoom(wxStaticText& text) {
  text.SetMinSize(text.GetTextExtent(text.GetLabelText()));
}

}  // namespace

SplashWindow::SplashWindow(frmSplash& form)
    : FormWindow(form),
      form_(form),
      frame_(new wxFrame(nullptr, wxID_ANY, ToWx(kProductName), wxDefaultPosition, wxDefaultSize,
                         wxBORDER_NONE | wxFRAME_NO_TASKBAR | wxSTAY_ON_TOP)),
      panel_(new wxPanel(frame_, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                         wxTAB_TRAVERSAL | wxBORDER_SIMPLE | wxWANTS_CHARS)),
      version_(new wxStaticText(panel_, wxID_ANY, wxString())) {
  auto* name = new wxStaticText(panel_, wxID_ANY, ToWx(kProductName));
  name->SetFont(name->GetFont().Scaled(static_cast<float>(kNameScale)));
  TakeRoom(*name);
  if (form.lblVersion.TextFont.Get().bold) version_->SetFont(version_->GetFont().Bold());
  auto* logo = new wxStaticBitmap(panel_, wxID_ANY, IconBitmap(form.Image1.Icon(), kLogoSize));

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(logo, wxSizerFlags().Center());
  column->Add(name, wxSizerFlags().Center().Border(wxTOP, panel_->FromDIP(kGap)));
  column->Add(version_, wxSizerFlags().Center().Border(wxTOP, panel_->FromDIP(kGap)));
  auto* frameOfColumn = new wxBoxSizer(wxVERTICAL);
  frameOfColumn->Add(column, wxSizerFlags(1).Expand().Border(wxALL, panel_->FromDIP(kMargin)));
  panel_->SetSizer(frameOfColumn);
  panel_->Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
    if (form_.KeyPress) form_.KeyPress(event.GetUnicodeKey());
  });
  frame_->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });  // it goes by itself
  RequestApply();
}

void SplashWindow::Apply() {
  if (version_->GetLabelText() == ToWx(form_.lblVersion.Caption.Get())) return;
  version_->SetLabelText(ToWx(form_.lblVersion.Caption.Get()));
  TakeRoom(*version_);
  panel_->Fit();
  frame_->SetClientSize(panel_->GetSize());
  frame_->CentreOnScreen();
  panel_->SetFocusIgnoringChildren();
}

}  // namespace qb
