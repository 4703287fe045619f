#include "wx/TableTreeModel.h"

#include "runtime/Text.h"
#include "wx/WxText.h"

namespace qb {
namespace {

constexpr const char* kTechnicalNameColumn = "TechName";
constexpr const char* kTitleColumn = "Title";

bool IsShown(const TableTree::Column& column) {
  return EqualIgnoringCase(column.name, kTechnicalNameColumn) || EqualIgnoringCase(column.name, kTitleColumn);
}

bool IsDocument(const TreeNode& node) {
  return node.Parent() != nullptr && node.Parent()->Parent() == nullptr;
}

}  // namespace

TableTreeModel::TableTreeModel(TableTree& tree, std::vector<wxBitmapBundle> images)
    : tree_(tree), images_(std::move(images)) {
  ReadColumns();
}

wxDataViewItem TableTreeModel::ItemOf(const TreeNode* node) {
  return wxDataViewItem(const_cast<TreeNode*>(node));
}

TreeNode* TableTreeModel::NodeOf(const wxDataViewItem& item) {
  return static_cast<TreeNode*>(item.GetID());
}

std::vector<TableTree::Column> TableTreeModel::ShownColumns() const {
  std::vector<TableTree::Column> shown;
  for (int position = 1; position <= tree_.ColumnCount(); ++position) {
    if (IsShown(tree_.ColumnAt(position))) shown.push_back(tree_.ColumnAt(position));
  }
  return shown;
}

void TableTreeModel::ReadColumns() {
  contents_.clear();
  for (const TableTree::Column& column : ShownColumns()) {
    contents_.push_back(EqualIgnoringCase(column.name, kTitleColumn) ? Content::kTitle
                                                                     : Content::kTechnicalName);
  }
}

wxString TableTreeModel::HierarchyText(const TreeNode& node) const {
  return node.Parent() == nullptr ? ToWx(ShownPath(node.Text())) : ToWx(node.Text());
}

wxString TableTreeModel::ColumnText(const TreeNode& node, unsigned column) const {
  const Content content = column <= contents_.size() ? contents_[column - 1] : Content::kNothing;
  // A document keeps its technical name where the package keeps its title.
  if (content == Content::kTechnicalName && IsDocument(node)) return ToWx(node.Title());
  if (content == Content::kTitle && node.Parent() == nullptr) return ToWx(node.Title());
  if (content == Content::kTitle && IsDocument(node)) return ToWx(node.Text());
  return {};
}

const wxBitmapBundle& TableTreeModel::ImageOf(const TreeNode& node) const {
  const int image = node.Expanded() && node.ExpandedImage() >= 0 ? node.ExpandedImage() : node.Image();
  return image >= 0 && image < static_cast<int>(images_.size()) ? images_[static_cast<std::size_t>(image)]
                                                                : noImage_;
}

void TableTreeModel::GetValue(wxVariant& value, const wxDataViewItem& item, unsigned column) const {
  const TreeNode& node = *NodeOf(item);
  if (column == kHierarchy) {
    value << wxDataViewIconText(HierarchyText(node), ImageOf(node));
  } else {
    value = ColumnText(node, column);
  }
}

bool TableTreeModel::SetValue(const wxVariant&, const wxDataViewItem&, unsigned) {
  return false;  // nothing is edited in place
}

wxDataViewItem TableTreeModel::GetParent(const wxDataViewItem& item) const {
  return item.IsOk() ? ItemOf(NodeOf(item)->Parent()) : wxDataViewItem();
}

bool TableTreeModel::IsContainer(const wxDataViewItem& item) const {
  return !item.IsOk() || !NodeOf(item)->Children().empty();
}

bool TableTreeModel::HasContainerColumns(const wxDataViewItem&) const {
  return true;
}

unsigned TableTreeModel::GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const {
  if (!item.IsOk()) {
    if (tree_.Root() != nullptr && tree_.Root() != leaving_) children.Add(ItemOf(tree_.Root()));
    return static_cast<unsigned>(children.size());
  }
  const auto& nodes = NodeOf(item)->Children();
  children.Alloc(nodes.size());
  for (const auto& node : nodes) {
    if (node.get() != leaving_) children.Add(ItemOf(node.get()));
  }
  return static_cast<unsigned>(children.size());
}

unsigned TableTreeModel::GetColumnCount() const {
  return static_cast<unsigned>(contents_.size()) + 1;
}

wxString TableTreeModel::GetColumnType(unsigned column) const {
  return column == kHierarchy ? "wxDataViewIconText" : "string";
}

}  // namespace qb
