#include "wx/ToolbarRenderer.h"

#include <algorithm>

#include "wx/AccessibleNames.h"
#include "wx/Icons.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr int kIconSize = 24;

}  // namespace

ToolbarRenderer::ToolbarRenderer(wxFrame& frame, Toolbar& toolbar)
    : toolbar_(toolbar), bar_(frame.CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT)) {
  for (int index = 1; index <= toolbar_.ButtonCount(); ++index) {
    const ToolButton& button = toolbar_.Buttons(index);
    const wxToolBarToolBase* tool =
        button.IsSeparator() ? bar_->AddSeparator()
                             : bar_->AddTool(wxID_ANY, wxString(), IconBitmap(button.Image(), kIconSize));
    ids_.push_back(tool->GetId());
  }
  bar_->Realize();
  bar_->Bind(wxEVT_TOOL, [this](wxCommandEvent& event) { OnTool(event); });
  Apply();
}

int ToolbarRenderer::Height() const {
  return bar_->ToDIP(bar_->GetSize()).y;
}

void ToolbarRenderer::Apply() {
  std::vector<std::string> names;
  for (int index = 1; index <= toolbar_.ButtonCount(); ++index) {
    const ToolButton& button = toolbar_.Buttons(index);
    const std::string& tip = button.ToolTipText;
    names.push_back(button.IsSeparator() || !tip.empty() ? tip : button.Key());
    if (button.IsSeparator()) continue;
    const int id = ids_[static_cast<std::size_t>(index) - 1];
    if (bar_->GetToolShortHelp(id) != ToWx(tip)) bar_->SetToolShortHelp(id, ToWx(tip));
    if (bar_->GetToolEnabled(id) != button.Enabled.Get()) bar_->EnableTool(id, button.Enabled);
  }
  SetAccessibleNames(*bar_, names);
}

void ToolbarRenderer::OnTool(const wxCommandEvent& event) {
  const auto found = std::find(ids_.begin(), ids_.end(), event.GetId());
  if (found == ids_.end() || !toolbar_.ButtonClick) return;
  toolbar_.ButtonClick(static_cast<int>(found - ids_.begin()) + 1);
}

}  // namespace qb
