#include "wx/ListViewWindow.h"

#include "wx/Twips.h"
#include "wx/ViewEvents.h"
#include "wx/WxText.h"

namespace qb {

ListViewWindow::ListViewWindow(wxWindow& parent, ListView& list, std::vector<wxBitmapBundle> images,
                               std::function<void()> changed)
    : list_(list),
      changed_(std::move(changed)),
      model_(new ListRowsModel(list, std::move(images))),
      view_(new wxDataViewCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                               wxDV_SINGLE | wxDV_ROW_LINES)) {
  for (const auto& row : list_.AllRows()) numbers_.emplace(row.get(), static_cast<unsigned>(numbers_.size()));
  AppendColumns();
  BindEvents();
  list_.Observer = this;
}

ListViewWindow::~ListViewWindow() {
  list_.Observer = nullptr;
}

void ListViewWindow::AppendColumns() {
  for (unsigned position = 0; position < list_.Columns().size(); ++position) {
    const ListView::Column& column = list_.Columns()[position];
    const int width = view_->FromDIP(PixelsOf(column.width));
    const wxString heading = ToWx(column.heading);
    wxDataViewColumn* drawn = position == 0
                                  ? view_->AppendIconTextColumn(heading, position, wxDATAVIEW_CELL_INERT,
                                                                width, wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE)
                                  : view_->AppendTextColumn(heading, position, wxDATAVIEW_CELL_INERT, width,
                                                            wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
    drawn->GetRenderer()->EnableEllipsize(wxELLIPSIZE_END);
  }
}

void ListViewWindow::BindEvents() {
  view_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    if (!applying_) list_.Select(RowOf(view_->GetSelection()));
  });
  view_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { RaiseDoubleClick(*view_, list_); });
  view_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU, [this](wxDataViewEvent& event) {
    if (event.GetItem().IsOk()) list_.Select(RowOf(event.GetItem()));
  });
  BindRightUp(*view_, [this] { RaiseContextMenu(*view_, list_); });
  LeaveSearchKeyToMenus(*view_);
  SearchByAnyText(*view_);
  BindKeyDown(*view_, [this](wxKeyEvent& event) {
    // One of the platforms would take the space bar as a double click.
    if (!RaiseKey(event, *view_, list_) && event.GetKeyCode() != WXK_SPACE) event.Skip();
  });
}

ListRow* ListViewWindow::RowOf(const wxDataViewItem& item) const {
  if (!item.IsOk()) return nullptr;
  const unsigned row = model_->GetRow(item);
  return row < list_.AllRows().size() ? list_.AllRows()[row].get() : nullptr;
}

void ListViewWindow::RowAdded(ListRow& row) {
  numbers_.emplace(&row, static_cast<unsigned>(numbers_.size()));
  rowsChanged_ = true;
  changed_();
}

void ListViewWindow::RowChanged(ListRow& row) {
  if (!rowsChanged_) changedRows_.insert(&row);
  changed_();
}

void ListViewWindow::RowsCleared() {
  numbers_.clear();
  changedRows_.clear();
  rowsChanged_ = true;
  changed_();
}

void ListViewWindow::RowSelectionChanged() {
  selectionChanged_ = true;
  changed_();
}

void ListViewWindow::ApplyChanges() {
  applying_ = true;
  if (rowsChanged_) {
    // One reset, and a view that starts over, instead of a notice for each row.
    view_->AssociateModel(nullptr);
    model_->Reset(static_cast<unsigned>(list_.AllRows().size()));
    view_->AssociateModel(model_.get());
    changedRows_.clear();
    selectionChanged_ = true;
  }
  rowsChanged_ = false;
  for (const ListRow* row : changedRows_) model_->RowChanged(numbers_.at(row));
  changedRows_.clear();
  ApplyHeadings();
  if (selectionChanged_) ApplySelection();
  applying_ = false;
}

void ListViewWindow::ApplyHeadings() {
  for (unsigned position = 0; position < view_->GetColumnCount(); ++position) {
    const wxString heading = ToWx(list_.Columns()[position].heading);
    wxDataViewColumn& column = *view_->GetColumn(position);
    if (column.GetTitle() != heading) column.SetTitle(heading);
  }
}

void ListViewWindow::ApplySelection() {
  selectionChanged_ = false;
  if (list_.SelectedItem() == RowOf(view_->GetSelection())) return;
  if (list_.SelectedItem() == nullptr) {
    view_->UnselectAll();
    return;
  }
  const wxDataViewItem wanted = model_->GetItem(numbers_.at(list_.SelectedItem()));
  view_->SetCurrentItem(wanted);
  view_->Select(wanted);
  view_->EnsureVisible(wanted);
}

}  // namespace qb
