#pragma once

#include <wx/bmpbndl.h>
#include <wx/dataview.h>

#include <vector>

#include "ui/controls/ListView.h"

namespace qb {

/// Answers a data view's questions out of a list, by row number. A row beyond the end is empty, so the view
/// may lag behind the list.
class ListRowsModel : public wxDataViewVirtualListModel {
 public:
  ListRowsModel(ListView& list, std::vector<wxBitmapBundle> images)
      : list_(list), images_(std::move(images)) {}

  void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override;
  bool SetValueByRow(const wxVariant& value, unsigned row, unsigned column) override;
  unsigned GetColumnCount() const override;
  wxString GetColumnType(unsigned column) const override;

 private:
  ListView& list_;
  std::vector<wxBitmapBundle> images_;
};

}  // namespace qb
