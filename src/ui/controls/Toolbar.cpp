#include "ui/controls/Toolbar.h"

#include "runtime/RuntimeError.h"

namespace qb {

ToolButton::ToolButton(Toolbar& toolbar, std::string_view key, std::string_view image)
    : ToolTipText(toolbar, {}), Enabled(toolbar, true), key_(key), image_(image) {
}

ToolButton& Toolbar::AddButton(std::string_view key, std::string_view image) {
  return buttons_.emplace_back(*this, key, image);
}

ToolButton& Toolbar::Buttons(int index) {
  if (index < 1 || index > ButtonCount()) throw RuntimeError(failure::kIndexOutOfRange);
  return buttons_[static_cast<std::size_t>(index) - 1];
}

}  // namespace qb
