#pragma once

#include <wx/dataview.h>

#include <functional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "ui/controls/TableTree.h"
#include "wx/TableTreeModel.h"

namespace qb {

/// Draws a table tree in a data view and sends what the user does there to it.
///
/// Nodes that come or go one by one are told to the view at once, since it must never hold a node that is
/// gone; everything else is collected until `ApplyChanges`. A bulk change takes the model away from the view
/// and gives it back in `ApplyChanges`.
class TableTreeWindow : private TableTreeObserver {
 public:
  /// `changed` is called whenever there is something for `ApplyChanges` to do.
  TableTreeWindow(wxWindow& parent, TableTree& tree, std::vector<wxBitmapBundle> images,
                  std::function<void()> changed);
  ~TableTreeWindow() override;
  TableTreeWindow(const TableTreeWindow&) = delete;

  wxDataViewCtrl& Window() { return *view_; }
  void ApplyChanges();

 private:
  void NodeAdded(TreeNode& node) override;
  void NodeRemoving(TreeNode& node) override;
  void NodeChanged(TreeNode& node) override;
  void NodeExpandedChanged(TreeNode& node) override;
  void NodeMadeVisible(TreeNode& node) override;
  void SelectionChanged() override;
  void ColumnsChanged() override;

  void BindEvents();
  void OnKeyDown(wxKeyEvent& event);
  bool MoveWithinHierarchy(int keyCode);
  void OnExpansion(const wxDataViewEvent& event, bool expanded);
  void SelectUnderPointer(const wxDataViewEvent& event);

  void TakeModelAway();
  void GiveModelBack();
  void RebuildColumns();
  void ApplyExpansion(const TreeNode& node);
  void ExpandWhatIsExpanded(const TreeNode& node);
  void ApplySelection();
  void ForgetWithin(const TreeNode& node);

  TableTree& tree_;
  std::function<void()> changed_;
  wxObjectDataPtr<TableTreeModel> model_;
  wxDataViewCtrl* view_;
  bool applying_ = false;  ///< what the view reports now was done by the program
  bool hasModel_ = false;  ///< the view holds the model
  bool columnsChanged_ = true;
  bool selectionChanged_ = false;
  int additions_ = 0;  ///< told to the view since the last `ApplyChanges`
  const TreeNode* firstShown_ = nullptr;
  const TreeNode* toShow_ = nullptr;
  std::unordered_set<const TreeNode*> changedNodes_;
  std::unordered_set<const TreeNode*> expansionChanged_;
};

}  // namespace qb
