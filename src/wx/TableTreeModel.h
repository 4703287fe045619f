#pragma once

#include <wx/bmpbndl.h>
#include <wx/dataview.h>

#include <string>
#include <vector>

#include "ui/controls/TableTree.h"

namespace qb {

/// Answers a data view's questions out of a table tree. An item is a pointer to its node, so nothing is
/// copied.
class TableTreeModel : public wxDataViewModel {
 public:
  /// Column 0 is the hierarchy; behind it those columns of the tree that `ShownColumns` lists.
  static constexpr unsigned kHierarchy = 0;

  TableTreeModel(TableTree& tree, std::vector<wxBitmapBundle> images);

  static wxDataViewItem ItemOf(const TreeNode* node);
  static TreeNode* NodeOf(const wxDataViewItem& item);

  /// The columns of the tree that are drawn beside the hierarchy; the control's own ones are part of that.
  std::vector<TableTree::Column> ShownColumns() const;
  /// Called when columns came or went.
  void ReadColumns();
  /// Hides `node` from now on, since it is about to go; null hides nothing.
  void SetLeaving(const TreeNode* node) { leaving_ = node; }

  void GetValue(wxVariant& value, const wxDataViewItem& item, unsigned column) const override;
  bool SetValue(const wxVariant& value, const wxDataViewItem& item, unsigned column) override;
  wxDataViewItem GetParent(const wxDataViewItem& item) const override;
  bool IsContainer(const wxDataViewItem& item) const override;
  bool HasContainerColumns(const wxDataViewItem& item) const override;
  unsigned GetChildren(const wxDataViewItem& item, wxDataViewItemArray& children) const override;
  unsigned GetColumnCount() const override;
  wxString GetColumnType(unsigned column) const override;

 private:
  enum class Content { kTechnicalName, kTitle, kNothing };

  wxString HierarchyText(const TreeNode& node) const;
  wxString ColumnText(const TreeNode& node, unsigned column) const;
  const wxBitmapBundle& ImageOf(const TreeNode& node) const;

  TableTree& tree_;
  std::vector<wxBitmapBundle> images_;
  wxBitmapBundle noImage_;
  std::vector<Content> contents_;
  const TreeNode* leaving_ = nullptr;
};

}  // namespace qb
