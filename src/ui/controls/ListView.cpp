#include "ui/controls/ListView.h"

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

std::size_t SubItemIndex(int number) {
  if (number < 1 || number > ListRow::kSubItems) throw RuntimeError(failure::kIndexOutOfRange);
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

ListRow::ListRow(ListView& list, std::string_view key, std::string_view text, int icon)
    : list_(list),
      key_(key),
      text_(text),
      icon_(static_cast<std::int16_t>(icon)),
      smallIcon_(static_cast<std::int16_t>(icon)) {
}

void ListRow::SetSmallIcon(int icon) {
  if (smallIcon_ == icon) return;
  smallIcon_ = static_cast<std::int16_t>(icon);
  if (list_.Observer != nullptr) list_.Observer->RowChanged(*this);
}

const SharedText& ListRow::SubItems(int number) const {
  return subItems_[SubItemIndex(number)];
}

void ListRow::SetSubItems(int number, std::string_view text) {
  SharedText& item = subItems_[SubItemIndex(number)];
  if (item == text) return;
  item = text;
  if (list_.Observer != nullptr) list_.Observer->RowChanged(*this);
}

void ListView::SetHeading(int position, std::string_view heading) {
  if (position < 1 || position > static_cast<int>(columns_.size()))
    throw RuntimeError(failure::kIndexOutOfRange);
  columns_[static_cast<std::size_t>(position) - 1].heading = heading;
  Notify();
}

ListRow& ListView::Add(std::string_view key, std::string_view text, int icon) {
  std::unique_ptr<ListRow> added(new ListRow(*this, key, text, icon));
  ListRow& row = *added;
  if (!index_.insert(&row).second) RaiseAbout(failure::kKeyAlreadyThere, key);
  rows_.push_back(std::move(added));
  if (Observer != nullptr) Observer->RowAdded(row);
  return row;
}

ListRow& ListView::Rows(std::string_view key) {
  const auto found = index_.find(key);
  if (found == index_.end()) {
    RaiseAbout(failure::kInvalidArgument, key);
  }
  return **found;
}

void ListView::Clear() {
  selected_ = nullptr;
  index_.clear();
  if (Observer != nullptr) Observer->RowsCleared();
  rows_.clear();
}

void ListView::Select(ListRow* row) {
  if (selected_ == row) return;
  selected_ = row;
  if (Observer != nullptr) Observer->RowSelectionChanged();
}

}  // namespace qb
