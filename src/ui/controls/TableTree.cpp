#include "ui/controls/TableTree.h"

#include <algorithm>

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
TreeNode::TreeNode(TableTree& tree, TreeNode* parent, std::string_view key, std::string_view text, int image,
                   int expandedImage, int selectedImage)
    : tree_(tree),
      parent_(parent),
      key_(key),
      text_(text),
      image_(static_cast<std::int16_t>(image)),
      expandedImage_(static_cast<std::int16_t>(expandedImage)),
      selectedImage_(static_cast<std::int16_t>(selectedImage)) {
}

void TreeNode::SetText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  if (tree_.Observer != nullptr) tree_.Observer->NodeChanged(*this);
}

void TreeNode::SetTitle(std::string_view title) {
  if (title_ == title) return;
  title_ = title;
  if (tree_.Observer != nullptr) tree_.Observer->NodeChanged(*this);
}

void TreeNode::SetImage(int image) {
  if (image_ == image) return;
  image_ = static_cast<std::int16_t>(image);
  if (tree_.Observer != nullptr) tree_.Observer->NodeChanged(*this);
}

void TreeNode::SetExpandedImage(int image) {
  if (expandedImage_ == image) return;
  expandedImage_ = static_cast<std::int16_t>(image);
  if (tree_.Observer != nullptr) tree_.Observer->NodeChanged(*this);
}

void TreeNode::SetExpanded(bool expanded) {
  if (expanded_ == expanded) return;
  expanded_ = expanded;
  if (tree_.Observer != nullptr) tree_.Observer->NodeExpandedChanged(*this);
}

void TreeNode::EnsureVisible() {
  for (TreeNode* above = parent_; above != nullptr; above = above->parent_) above->SetExpanded(true);
  if (tree_.Observer != nullptr) tree_.Observer->NodeMadeVisible(*this);
}

TreeNode& TableTree::AddEx(TreeNode* relative, int relationship, std::string_view key, std::string_view text,
                           int image, int expandedImage, int selectedImage) {
  if (relationship != kNewRoot && (relationship != kChild || relative == nullptr)) {
    throw RuntimeError(failure::kInvalidArgument);
  }
  if (relationship == kNewRoot && root_ != nullptr) Remove(*root_);
  TreeNode* parent = relationship == kChild ? relative : nullptr;
  std::unique_ptr<TreeNode> node(new TreeNode(*this, parent, key, text, image, expandedImage, selectedImage));
  TreeNode& added = *node;
  if (!index_.insert(&added).second) RaiseAbout(failure::kKeyAlreadyThere, key);
  (parent != nullptr ? parent->children_.emplace_back() : root_) = std::move(node);
  if (Observer != nullptr) Observer->NodeAdded(added);
  return added;
}

TreeNode* TableTree::FindNode(std::string_view key) {
  const auto found = index_.find(key);
  return found == index_.end() ? nullptr : *found;
}

TreeNode& TableTree::Nodes(std::string_view key) {
  TreeNode* node = FindNode(key);
  if (node == nullptr) RaiseAbout(failure::kInvalidArgument, key);
  return *node;
}

void TableTree::RemoveNode(std::string_view key) {
  Remove(Nodes(key));
}

void TableTree::RemoveNode(int root) {
  if (root == 0 && root_ != nullptr) Remove(*root_);
}

void TableTree::Forget(TreeNode& node) {
  for (const auto& child : node.children_) Forget(*child);
  if (selected_ == &node) Select(nullptr);
  index_.erase(&node);
}

void TableTree::Remove(TreeNode& node) {
  if (Observer != nullptr) Observer->NodeRemoving(node);
  Forget(node);
  if (node.parent_ == nullptr) {
    root_.reset();
    return;
  }
  auto& siblings = node.parent_->children_;
  siblings.erase(std::find_if(siblings.begin(), siblings.end(),
                              [&](const auto& child) { return child.get() == &node; }));
}

void TableTree::Select(TreeNode* node) {
  if (selected_ == node) return;
  selected_ = node;
  if (Observer != nullptr) Observer->SelectionChanged();
}

const TableTree::Column& TableTree::ColumnAt(int position) const {
  if (position < 1 || position > ColumnCount()) throw RuntimeError(failure::kIndexOutOfRange);
  return columns_[static_cast<std::size_t>(position) - 1];
}

void TableTree::AddColumn(std::string_view name) {
  columns_.push_back({std::string(name), {}});
  if (Observer != nullptr) Observer->ColumnsChanged();
}

void TableTree::RemoveColumn(int position) {
  ColumnAt(position);
  columns_.erase(columns_.begin() + (position - 1));
  if (Observer != nullptr) Observer->ColumnsChanged();
}

void TableTree::SetColumnWidth(std::string_view name, std::string_view width) {
  const auto column = std::find_if(columns_.begin(), columns_.end(),
                                   [&](const Column& each) { return EqualIgnoringCase(each.name, name); });
  if (column == columns_.end()) RaiseAbout(failure::kInvalidArgument, name);
  column->width = width;
  if (Observer != nullptr) Observer->ColumnsChanged();
}

}  // namespace qb
