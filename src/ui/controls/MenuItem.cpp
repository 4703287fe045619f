#include "ui/controls/MenuItem.h"

namespace qb {

MenuItem::MenuItem(Form& form, std::string_view name, std::string_view caption, std::string_view shortcut)
    : Control(form, name), Caption(*this, std::string(caption)), shortcut_(shortcut) {
}

MenuItem::MenuItem(MenuItem& parent, std::string_view name, std::string_view caption,
                   std::string_view shortcut)
    : MenuItem(parent.Owner(), name, caption, shortcut) {
  parent.entries_.push_back(this);
}

}  // namespace qb
