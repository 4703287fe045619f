#pragma once

#include <wx/menu.h>

#include <memory>
#include <unordered_set>
#include <vector>

#include "ui/controls/MenuItem.h"

namespace qb {

/// Keeps one menu of the toolkit in line with the entries of a passive one. Entries that are hidden are not
/// in the menu, so their shortcuts do not work either; separators that would stand at an end or side by side
/// are left out.
class MenuRenderer {
 public:
  explicit MenuRenderer(const MenuItem& item);

  wxMenu& Menu() { return *menu_; }
  /// Brings the menu and those below it in line with the entries. It does nothing where nothing changed.
  void Apply();
  /// The entry that has this identifier, here or below; null if there is none.
  MenuItem* Find(int id) const;

 private:
  /// An entry as the menu shows it.
  struct Shown {
    MenuItem* item = nullptr;
    wxMenuItem* entry = nullptr;
    bool checkable = false;
    std::unique_ptr<MenuRenderer> submenu;
  };

  std::vector<MenuItem*> VisibleEntries() const;
  bool IsShownAsItStands(const std::vector<MenuItem*>& visible) const;
  void Rebuild(const std::vector<MenuItem*>& visible);
  Shown Append(MenuItem& item);
  static void ApplyState(Shown& shown);

  const MenuItem& item_;
  wxMenu* menu_;  ///< owned by the menu bar, the menu above, or who pops it up
  std::vector<Shown> shown_;
  std::unordered_set<const MenuItem*> checkable_;  ///< were checked once, and are drawn as such from then on
};

/// The label of an entry: its caption, and its shortcut behind a TAB.
wxString MenuLabel(const MenuItem& item);

}  // namespace qb
