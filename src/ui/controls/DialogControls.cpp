#include "ui/controls/DialogControls.h"

#include "runtime/RuntimeError.h"

namespace qb {

TabStrip::Tab& TabStrip::Tabs(int index) {
  if (index < 1 || index > TabCount()) throw RuntimeError(failure::kIndexOutOfRange);
  return tabs_[static_cast<std::size_t>(index) - 1];
}

void TabStrip::Select(int index) {
  Tabs(index);
  selected_ = index;
  Notify();
  if (Click) Click();
}

}  // namespace qb
