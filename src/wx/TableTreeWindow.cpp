#include "wx/TableTreeWindow.h"

#include <charconv>

#include "wx/ViewEvents.h"
#include "wx/WxText.h"

namespace qb {
namespace {

/// More changes than this in one turn make the model come back as a whole.
constexpr int kBulk = 200;
constexpr int kColumnWidth = 300;

int Pixels(const wxWindow& window, const std::string& width) {
  int pixels = 0;
  const auto parsed = std::from_chars(width.data(), width.data() + width.size(), pixels);
  return window.FromDIP(parsed.ec == std::errc() && pixels > 0 ? pixels : kColumnWidth);
}

}  // namespace

TableTreeWindow::TableTreeWindow(wxWindow& parent, TableTree& tree, std::vector<wxBitmapBundle> images,
                                 std::function<void()> changed)
    : tree_(tree),
      changed_(std::move(changed)),
      model_(new TableTreeModel(tree, std::move(images))),
      view_(new wxDataViewCtrl(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                               wxDV_SINGLE | wxDV_ROW_LINES)) {
  BindEvents();
  tree_.Observer = this;
}

TableTreeWindow::~TableTreeWindow() {
  tree_.Observer = nullptr;
}

void TableTreeWindow::BindEvents() {
  view_->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) {
    if (!applying_) tree_.Select(TableTreeModel::NodeOf(view_->GetSelection()));
  });
  view_->Bind(wxEVT_DATAVIEW_ITEM_EXPANDED, [this](wxDataViewEvent& event) { OnExpansion(event, true); });
  view_->Bind(wxEVT_DATAVIEW_ITEM_COLLAPSED, [this](wxDataViewEvent& event) { OnExpansion(event, false); });
  view_->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { RaiseDoubleClick(*view_, tree_); });
  view_->Bind(wxEVT_DATAVIEW_ITEM_CONTEXT_MENU,
              [this](wxDataViewEvent& event) { SelectUnderPointer(event); });
  BindRightUp(*view_, [this] { RaiseContextMenu(*view_, tree_); });
  LeaveSearchKeyToMenus(*view_);
  SearchByAnyText(*view_);
  BindKeyDown(*view_, [this](wxKeyEvent& event) { OnKeyDown(event); });
}

void TableTreeWindow::OnKeyDown(wxKeyEvent& event) {
  if (RaiseKey(event, *view_, tree_)) return;
  if (event.HasAnyModifiers() || !MoveWithinHierarchy(event.GetKeyCode())) event.Skip();
}

// The platforms differ in what these keys do to a row, and one of them would take the space bar as a double
// click.
bool TableTreeWindow::MoveWithinHierarchy(int keyCode) {
  const wxDataViewItem item = view_->GetSelection();
  if (!item.IsOk()) return false;
  const bool expanded = view_->IsExpanded(item);
  switch (keyCode) {
    case WXK_SPACE:
      expanded ? view_->Collapse(item) : view_->Expand(item);
      return true;
    case WXK_RIGHT:
      view_->Expand(item);
      return true;
    case WXK_LEFT:
      if (expanded) {
        view_->Collapse(item);
      } else {
        const wxDataViewItem parent = model_->GetParent(item);
        if (parent.IsOk()) tree_.Select(TableTreeModel::NodeOf(parent));
      }
      return true;
    default:
      return false;
  }
}

void TableTreeWindow::OnExpansion(const wxDataViewEvent& event, bool expanded) {
  if (!applying_) TableTreeModel::NodeOf(event.GetItem())->SetExpanded(expanded);
}

void TableTreeWindow::SelectUnderPointer(const wxDataViewEvent& event) {
  if (event.GetItem().IsOk()) tree_.Select(TableTreeModel::NodeOf(event.GetItem()));
}

void TableTreeWindow::NodeAdded(TreeNode& node) {
  model_->SetLeaving(nullptr);
  // A row learns only as it is made whether it can have children.
  const bool parentBecomesContainer = node.Parent() == nullptr || node.Parent()->Children().size() == 1;
  if (hasModel_ && (parentBecomesContainer || ++additions_ > kBulk)) TakeModelAway();
  if (hasModel_) model_->ItemAdded(TableTreeModel::ItemOf(node.Parent()), TableTreeModel::ItemOf(&node));
  changed_();
}

void TableTreeWindow::NodeRemoving(TreeNode& node) {
  model_->SetLeaving(&node);
  const bool parentBecomesLeaf = node.Parent() == nullptr || node.Parent()->Children().size() == 1;
  if (hasModel_ && parentBecomesLeaf) TakeModelAway();
  ForgetWithin(node);
  if (hasModel_) model_->ItemDeleted(TableTreeModel::ItemOf(node.Parent()), TableTreeModel::ItemOf(&node));
  changed_();
}

void TableTreeWindow::ForgetWithin(const TreeNode& node) {
  changedNodes_.erase(&node);
  expansionChanged_.erase(&node);
  if (toShow_ == &node) toShow_ = nullptr;
  if (firstShown_ == &node) firstShown_ = nullptr;
  for (const auto& child : node.Children()) ForgetWithin(*child);
}

void TableTreeWindow::NodeChanged(TreeNode& node) {
  if (hasModel_) changedNodes_.insert(&node);
  changed_();
}

void TableTreeWindow::NodeExpandedChanged(TreeNode& node) {
  if (hasModel_) expansionChanged_.insert(&node);
  changed_();
}

void TableTreeWindow::NodeMadeVisible(TreeNode& node) {
  toShow_ = &node;
  changed_();
}

void TableTreeWindow::SelectionChanged() {
  selectionChanged_ = true;
  changed_();
}

void TableTreeWindow::ColumnsChanged() {
  columnsChanged_ = true;
  changed_();
}

// Why the model is taken away and given back, measured on GTK with 10,000 documents of four files each under
// an expanded root, first paint included: so 0.2 s; `Cleared()` the same, but the view would hold nodes that
// are gone until then; one `ItemAdded` for each document 66 s. With 100,000 documents it is 21 s, all of it
// in the view's expansion of the root, which looks each row up by going through its siblings.
void TableTreeWindow::TakeModelAway() {
  if (firstShown_ == nullptr) firstShown_ = TableTreeModel::NodeOf(view_->GetTopItem());
  applying_ = true;
  // Where the view is drawn, it would keep the numbers of rows that are gone.
  view_->UnselectAll();
  view_->AssociateModel(nullptr);
  applying_ = false;
  hasModel_ = false;
  changedNodes_.clear();
  expansionChanged_.clear();
}

void TableTreeWindow::GiveModelBack() {
  view_->AssociateModel(model_.get());
  hasModel_ = true;
  selectionChanged_ = true;
  if (tree_.Root() != nullptr) ExpandWhatIsExpanded(*tree_.Root());
  if (toShow_ == nullptr) toShow_ = firstShown_;
  firstShown_ = nullptr;
}

void TableTreeWindow::RebuildColumns() {
  if (hasModel_) TakeModelAway();
  view_->ClearColumns();
  model_->ReadColumns();
  const int flags = wxDATAVIEW_COL_RESIZABLE;
  // The hierarchy has no heading of its own. The middle of a long path matters least.
  view_
      ->AppendIconTextColumn(wxString(), TableTreeModel::kHierarchy, wxDATAVIEW_CELL_INERT,
                             Pixels(*view_, tree_.TreeColumnWidth), wxALIGN_LEFT, flags)
      ->GetRenderer()
      ->EnableEllipsize(wxELLIPSIZE_MIDDLE);
  unsigned position = TableTreeModel::kHierarchy;
  for (const TableTree::Column& column : model_->ShownColumns()) {
    view_
        ->AppendTextColumn(ToWx(column.name), ++position, wxDATAVIEW_CELL_INERT, Pixels(*view_, column.width),
                           wxALIGN_LEFT, flags)
        ->GetRenderer()
        ->EnableEllipsize(wxELLIPSIZE_END);
  }
  columnsChanged_ = false;
}

void TableTreeWindow::ApplyChanges() {
  applying_ = true;
  if (columnsChanged_) RebuildColumns();
  if (static_cast<int>(changedNodes_.size()) > kBulk) TakeModelAway();
  applying_ = true;
  if (!hasModel_) GiveModelBack();
  for (const TreeNode* node : expansionChanged_) ApplyExpansion(*node);
  for (const TreeNode* node : changedNodes_) model_->ItemChanged(TableTreeModel::ItemOf(node));
  expansionChanged_.clear();
  changedNodes_.clear();
  additions_ = 0;
  if (selectionChanged_) ApplySelection();
  if (toShow_ != nullptr) view_->EnsureVisible(TableTreeModel::ItemOf(toShow_));
  toShow_ = nullptr;
  applying_ = false;
}

void TableTreeWindow::ApplyExpansion(const TreeNode& node) {
  const wxDataViewItem item = TableTreeModel::ItemOf(&node);
  if (node.Expanded() != view_->IsExpanded(item))
    node.Expanded() ? view_->Expand(item) : view_->Collapse(item);
  changedNodes_.insert(&node);  // an expanded node has a picture of its own
}

void TableTreeWindow::ExpandWhatIsExpanded(const TreeNode& node) {
  if (!node.Expanded()) return;
  view_->Expand(TableTreeModel::ItemOf(&node));
  for (const auto& child : node.Children()) {
    if (!child->Children().empty()) ExpandWhatIsExpanded(*child);
  }
}

void TableTreeWindow::ApplySelection() {
  selectionChanged_ = false;
  const wxDataViewItem wanted = TableTreeModel::ItemOf(tree_.SelectedItem());
  if (wanted == view_->GetSelection()) return;
  if (wanted.IsOk()) {
    view_->SetCurrentItem(wanted);
    view_->Select(wanted);
    view_->EnsureVisible(wanted);
  } else {
    view_->UnselectAll();
  }
}

}  // namespace qb
