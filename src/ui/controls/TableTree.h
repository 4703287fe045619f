#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/KeyIndex.h"
#include "runtime/SharedText.h"
#include "ui/controls/Control.h"

namespace qb {

class TableTree;

/// One row of a table tree. Images are positions in the tree's image list.
class TreeNode {
 public:
  const SharedText& Key() const { return key_; }
  TreeNode* Parent() const { return parent_; }
  const std::vector<std::unique_ptr<TreeNode>>& Children() const { return children_; }

  const SharedText& Text() const { return text_; }
  void SetText(std::string_view text);
  /// The text of the column "Title".
  const SharedText& Title() const { return title_; }
  void SetTitle(std::string_view title);
  int Image() const { return image_; }
  void SetImage(int image);
  /// Shown while the node is expanded; -1 shows `Image`.
  int ExpandedImage() const { return expandedImage_; }
  void SetExpandedImage(int image);
  int SelectedImage() const { return selectedImage_; }
  bool Expanded() const { return expanded_; }
  void SetExpanded(bool expanded);
  /// Expands the nodes above it and scrolls it into sight.
  void EnsureVisible();

 private:
  friend class TableTree;
  TreeNode(TableTree& tree, TreeNode* parent, std::string_view key, std::string_view text, int image,
           int expandedImage, int selectedImage);

  TableTree& tree_;
  TreeNode* parent_;
  SharedText key_;
  SharedText text_;
  SharedText title_;
  std::vector<std::unique_ptr<TreeNode>> children_;
  std::int16_t image_;
  std::int16_t expandedImage_;
  std::int16_t selectedImage_;
  bool expanded_ = false;
};

/// Told of every change of a tree, at once. The renderer collects what it is told until its next turn.
class TableTreeObserver {
 public:
  virtual ~TableTreeObserver() = default;
  virtual void NodeAdded(TreeNode& node) = 0;
  /// The node and all below it are about to go.
  virtual void NodeRemoving(TreeNode& node) = 0;
  virtual void NodeChanged(TreeNode& node) = 0;
  virtual void NodeExpandedChanged(TreeNode& node) = 0;
  virtual void NodeMadeVisible(TreeNode& node) = 0;
  virtual void SelectionChanged() = 0;
  virtual void ColumnsChanged() = 0;
};

/// A hierarchy with named columns beside it. Keys of nodes are found exactly as spelled.
class TableTree : public VisibleControl {
 public:
  struct Column {
    std::string name;
    std::string width;  ///< decimal number of pixels
  };

  /// Relationships of `AddEx`.
  static constexpr int kNewRoot = 5;
  static constexpr int kChild = 6;

  using VisibleControl::VisibleControl;

  /// Adds a node. `kNewRoot` puts it in place of the whole tree before it, `relative` being null; `kChild`
  /// puts it behind the children of `relative`. Raises 457 for a key that is there already, 5 for another
  /// relationship.
  TreeNode& AddEx(TreeNode* relative, int relationship, std::string_view key, std::string_view text,
                  int image, int expandedImage, int selectedImage);

  /// Raises 5 for an unknown key, naming it.
  TreeNode& Nodes(std::string_view key);
  /// Null if there is none.
  TreeNode* FindNode(std::string_view key);
  TreeNode* Root() const { return root_.get(); }
  std::size_t NodeCount() const { return index_.size(); }

  /// Removes the node with all below it. Raises 5 for an unknown key.
  void RemoveNode(std::string_view key);
  /// The control numbers its roots from 0 and takes away the one of this number; any other number is passed
  /// over.
  void RemoveNode(int root);

  TreeNode* SelectedItem() const { return selected_; }
  /// Null selects nothing.
  void Select(TreeNode* node);

  /// Column positions count from 1; names are found regardless of case. Unknown ones raise 9 and 5.
  int ColumnCount() const { return static_cast<int>(columns_.size()); }
  const Column& ColumnAt(int position) const;
  void AddColumn(std::string_view name);
  void RemoveColumn(int position);
  void SetColumnWidth(std::string_view name, std::string_view width);

  /// Width of the tree's own column, a decimal number of pixels.
  Property<std::string> TreeColumnWidth{*this, {}};

  std::function<void()> DblClick;
  std::function<void(int)> KeyPress;  ///< character code; 13 is Return
  std::function<void(int)> MouseUp;   ///< button: 1 left, 2 right

  TableTreeObserver* Observer = nullptr;

 private:
  friend class TreeNode;
  void Forget(TreeNode& node);
  void Remove(TreeNode& node);

  std::unique_ptr<TreeNode> root_;
  KeyIndex<TreeNode> index_;
  TreeNode* selected_ = nullptr;
  std::vector<Column> columns_;
};

}  // namespace qb
