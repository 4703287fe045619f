#include "wx/ListRowsModel.h"

#include "wx/WxText.h"

namespace qb {

void ListRowsModel::GetValueByRow(wxVariant& value, unsigned row, unsigned column) const {
  const ListRow* found = row < list_.AllRows().size() ? list_.AllRows()[row].get() : nullptr;
  if (column > 0) {
    value = found != nullptr ? ToWx(found->SubItems(static_cast<int>(column))) : wxString();
    return;
  }
  wxBitmapBundle image;
  if (found != nullptr && found->SmallIcon() >= 0 && found->SmallIcon() < static_cast<int>(images_.size())) {
    image = images_[static_cast<std::size_t>(found->SmallIcon())];
  }
  value << wxDataViewIconText(found != nullptr ? ToWx(found->Text()) : wxString(), image);
}

bool ListRowsModel::SetValueByRow(const wxVariant&, unsigned, unsigned) {
  return false;  // nothing is edited in place
}

unsigned ListRowsModel::GetColumnCount() const {
  return static_cast<unsigned>(list_.Columns().size());
}

wxString ListRowsModel::GetColumnType(unsigned column) const {
  return column == 0 ? "wxDataViewIconText" : "string";
}

}  // namespace qb
