#include "wx/MenuRenderer.h"

#include "wx/WxText.h"

namespace qb {
namespace {

/// "&1 " to "&4 " in front of a path.
constexpr std::size_t kMenuNumberLength = 3;

bool IsNumberedPath(const std::string& caption) {
  return caption.size() > kMenuNumberLength && caption[0] == '&' && caption[1] >= '0' && caption[1] <= '9' &&
         caption[2] == ' ';
}

wxString MenuCaption(const MenuItem& item) {
  const std::string& caption = item.Caption;
  if (!IsNumberedPath(caption)) return ToWx(caption);
  wxString path = ToWx(ShownPath(caption.substr(kMenuNumberLength)));
  path.Replace("&", "&&");  // in a path it is no access key
  return ToWx(caption.substr(0, kMenuNumberLength)) + path;
}

}  // namespace

wxString MenuLabel(const MenuItem& item) {
  wxString label = MenuCaption(item);
  if (!item.Shortcut().empty()) label += "\t" + ToWx(item.Shortcut());
  return label;
}

MenuRenderer::MenuRenderer(const MenuItem& item) : item_(item), menu_(new wxMenu) {
  Apply();
}

std::vector<MenuItem*> MenuRenderer::VisibleEntries() const {
  std::vector<MenuItem*> visible;
  for (MenuItem* entry : item_.Entries()) {
    if (!entry->Visible) continue;
    if (entry->IsSeparator() && (visible.empty() || visible.back()->IsSeparator())) continue;
    visible.push_back(entry);
  }
  if (!visible.empty() && visible.back()->IsSeparator()) visible.pop_back();
  return visible;
}

bool MenuRenderer::IsShownAsItStands(const std::vector<MenuItem*>& visible) const {
  if (visible.size() != shown_.size()) return false;
  for (std::size_t i = 0; i < visible.size(); ++i) {
    if (shown_[i].item != visible[i] || (visible[i]->Checked && !shown_[i].checkable)) return false;
  }
  return true;
}

void MenuRenderer::Apply() {
  const std::vector<MenuItem*> visible = VisibleEntries();
  if (!IsShownAsItStands(visible)) Rebuild(visible);
  for (Shown& shown : shown_) ApplyState(shown);
}

void MenuRenderer::Rebuild(const std::vector<MenuItem*>& visible) {
  for (const Shown& shown : shown_) menu_->Destroy(shown.entry);
  shown_.clear();
  for (MenuItem* item : visible) shown_.push_back(Append(*item));
}

MenuRenderer::Shown MenuRenderer::Append(MenuItem& item) {
  Shown shown;
  shown.item = &item;
  if (item.IsSeparator()) {
    shown.entry = menu_->AppendSeparator();
    return shown;
  }
  if (!item.Entries().empty()) {
    shown.submenu = std::make_unique<MenuRenderer>(item);
    shown.entry = menu_->AppendSubMenu(&shown.submenu->Menu(), MenuLabel(item));
    return shown;
  }
  if (item.Checked) checkable_.insert(&item);
  shown.checkable = checkable_.contains(&item);
  shown.entry =
      menu_->Append(wxID_ANY, MenuLabel(item), wxString(), shown.checkable ? wxITEM_CHECK : wxITEM_NORMAL);
  return shown;
}

void MenuRenderer::ApplyState(Shown& shown) {
  if (shown.item->IsSeparator()) return;
  const wxString label = MenuLabel(*shown.item);
  if (shown.entry->GetItemLabel() != label) shown.entry->SetItemLabel(label);
  if (shown.entry->IsEnabled() != shown.item->Enabled.Get()) shown.entry->Enable(shown.item->Enabled);
  if (shown.checkable) shown.entry->Check(shown.item->Checked);
  if (shown.submenu) shown.submenu->Apply();
}

MenuItem* MenuRenderer::Find(int id) const {
  for (const Shown& shown : shown_) {
    if (shown.entry->GetId() == id && !shown.submenu) return shown.item;
    MenuItem* below = shown.submenu ? shown.submenu->Find(id) : nullptr;
    if (below != nullptr) return below;
  }
  return nullptr;
}

}  // namespace qb
