#pragma once

#include <wx/dataview.h>

#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "ui/controls/ListView.h"
#include "wx/ListRowsModel.h"

namespace qb {

/// Draws a list in a data view and sends what the user does there to it. Changes of the list are collected
/// until `ApplyChanges`.
class ListViewWindow : private ListViewObserver {
 public:
  /// `changed` is called whenever there is something for `ApplyChanges` to do.
  ListViewWindow(wxWindow& parent, ListView& list, std::vector<wxBitmapBundle> images,
                 std::function<void()> changed);
  ~ListViewWindow() override;
  ListViewWindow(const ListViewWindow&) = delete;

  wxDataViewCtrl& Window() { return *view_; }
  void ApplyChanges();

 private:
  void RowAdded(ListRow& row) override;
  void RowChanged(ListRow& row) override;
  void RowsCleared() override;
  void RowSelectionChanged() override;

  void BindEvents();
  void AppendColumns();
  void ApplyHeadings();
  void ApplySelection();
  ListRow* RowOf(const wxDataViewItem& item) const;

  ListView& list_;
  std::function<void()> changed_;
  wxObjectDataPtr<ListRowsModel> model_;
  wxDataViewCtrl* view_;
  bool applying_ = false;  ///< what the view reports now was done by the program
  bool rowsChanged_ = true;
  bool selectionChanged_ = false;
  std::unordered_map<const ListRow*, unsigned> numbers_;
  std::unordered_set<const ListRow*> changedRows_;
};

}  // namespace qb
