#include "wx/StatusLine.h"

#include "wx/AccessibleNames.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kMargin = 6;

}  // namespace

StatusLine::StatusLine(wxFrame& frame, StatusBar& bar)
    : control_(bar),
      bar_(frame.CreateStatusBar(1, wxSTB_SIZEGRIP | wxFULL_REPAINT_ON_RESIZE)),
      label_(new wxStaticText(bar_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END)) {
  SetAccessibleName(*bar_, "Status bar");
  bar_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    PlaceLabel();
  });
  bar_->Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { OnDoubleClick(); });
  label_->Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent&) { OnDoubleClick(); });
  Apply();
}

int StatusLine::Height() const {
  return bar_->ToDIP(bar_->GetSize()).y;
}

void StatusLine::Apply() {
  const std::string& simple = control_.SimpleText;
  const wxString text = ToWx(simple.empty() ? control_.PanelText.Get() : simple);
  if (label_->GetLabelText() != text) label_->SetLabelText(text);
}

void StatusLine::PlaceLabel() {
  wxRect field;
  if (!bar_->GetFieldRect(0, field)) return;
  const int height = label_->GetBestSize().y;
  const int margin = bar_->FromDIP(kMargin);
  label_->SetSize(field.x + margin, field.y + (field.height - height) / 2, field.width - 2 * margin, height);
}

void StatusLine::OnDoubleClick() {
  if (control_.DblClick) control_.DblClick();
}

}  // namespace qb
