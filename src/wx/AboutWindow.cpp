#include "wx/AboutWindow.h"

#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/generic/statbmpg.h>
#include <wx/statline.h>

#include "foundation/Product.h"
#include "wx/Icons.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kLogoSize = 64;
constexpr int kLineGap = 2;
constexpr double kTitleScale = 1.4;

int EffectOf(wxDragResult result) {
  if (result == wxDragCopy) return Image::kDropCopy;
  if (result == wxDragMove) return Image::kDropMove;
  return Image::kDropNone;
}

}  // namespace

AboutWindow::AboutWindow(frmAbout& form, wxWindow* parent) : DialogWindow(form, parent) {
  wxDialog& dialog = Dialog();
  auto* top = new wxBoxSizer(wxHORIZONTAL);
  top->Add(DrawLogo(form.imgLogo), wxSizerFlags().Border(wxRIGHT, dialog.FromDIP(kMargin)));
  top->Add(Texts(form), wxSizerFlags(1));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(top, wxSizerFlags(1).Expand());
  column->Add(new wxStaticLine(&dialog),
              wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, dialog.FromDIP(kMargin)));
  column->Add(ButtonRow({&form.cmdSysInfo, &form.cmdOK}, true), wxSizerFlags().Expand());
  Controls().WindowOf(form.cmdOK)->SetFocus();
  Finish(column);
}

wxSizer* AboutWindow::Texts(frmAbout& form) {
  auto* texts = new wxBoxSizer(wxVERTICAL);
  const auto add = [&](Label& label, int space) {
    wxStaticText* drawn = Controls().Draw(Dialog(), label);
    texts->Add(drawn, wxSizerFlags().Border(wxTOP, Dialog().FromDIP(space)));
    return drawn;
  };
  wxStaticText* title = add(form.lblTitle, 0);
  title->SetFont(title->GetFont().Scaled(static_cast<float>(kTitleScale)).Bold());
  // The desktop would measure it by its usual font before it is on screen.
  title->SetMinSize(title->GetTextExtent(ToWx(form.lblTitle.Caption.Get())));
  add(form.Label2, kLineGap);
  add(form.lblRelease, kLineGap);
  add(form.lblDescription, kGap);
  add(form.Label1, kGap);
  add(form.lblDisclaimer, kLineGap);
  return texts;
}

wxWindow* AboutWindow::DrawLogo(Image& logo) {
  // Drawn by the toolkit itself: the desktop's own picture is told nothing of the mouse.
  auto* drawn = new wxGenericStaticBitmap(&Dialog(), wxID_ANY, IconBitmap(logo.Icon(), kLogoSize));
  drawn->Bind(wxEVT_MOTION, [&logo, drawn](wxMouseEvent& event) {
    event.Skip();
    // The button may have come up since the mouse moved: a drag that began now would have no end.
    if (!event.Dragging() || !wxGetMouseState().LeftIsDown() || !logo.DragEnded) return;
    wxTextDataObject name(ToWx(kProductName));
    wxDropSource source(name, drawn);
    logo.DragEnded(EffectOf(source.DoDragDrop(wxDrag_CopyOnly)));
  });
  return drawn;
}

}  // namespace qb
