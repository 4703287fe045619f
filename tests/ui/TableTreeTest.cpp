#include <gmock/gmock.h>

#include "support/Raises.h"
#include "ui/PlainForm.h"
#include "ui/controls/TableTree.h"

namespace qb {
namespace {

using ::testing::_;
using ::testing::InSequence;
using ::testing::Ref;
using ::testing::StrictMock;

class MockObserver : public TableTreeObserver {
 public:
  MOCK_METHOD(void, NodeAdded, (TreeNode&), (override));
  MOCK_METHOD(void, NodeRemoving, (TreeNode&), (override));
  MOCK_METHOD(void, NodeChanged, (TreeNode&), (override));
  MOCK_METHOD(void, NodeExpandedChanged, (TreeNode&), (override));
  MOCK_METHOD(void, NodeMadeVisible, (TreeNode&), (override));
  MOCK_METHOD(void, SelectionChanged, (), (override));
  MOCK_METHOD(void, ColumnsChanged, (), (override));
};

class TableTreeTest : public ::testing::Test {
 protected:
  TreeNode& AddRoot(std::string_view key = "@ROOT") {
    return tree_.AddEx(nullptr, TableTree::kNewRoot, key, "root", 11, 11, 0);
  }
  TreeNode& AddChild(TreeNode& parent, std::string_view key) {
    return tree_.AddEx(&parent, TableTree::kChild, key, key, 12, 10, -1);
  }

  PlainForm form_;
  TableTree tree_{form_, "tree"};
};

TEST_F(TableTreeTest, AddEx_Child_StandsBehindTheOthers) {
  TreeNode& root = AddRoot();
  TreeNode& first = AddChild(root, "A");
  TreeNode& second = AddChild(root, "B");
  ASSERT_EQ(root.Children().size(), 2U);
  EXPECT_EQ(root.Children()[0].get(), &first);
  EXPECT_EQ(root.Children()[1].get(), &second);
  EXPECT_EQ(first.Parent(), &root);
  EXPECT_EQ(root.Parent(), nullptr);
  EXPECT_EQ(first.Key(), "A");
  EXPECT_EQ(first.Text(), "A");
  EXPECT_EQ(first.Title(), "");
  EXPECT_EQ(first.Image(), 12);
  EXPECT_EQ(first.ExpandedImage(), 10);
  EXPECT_EQ(first.SelectedImage(), -1);
  EXPECT_FALSE(first.Expanded());
  EXPECT_EQ(tree_.NodeCount(), 3U);
}

TEST_F(TableTreeTest, AddEx_KeyInUse_Raises457AndAddsNothing) {
  TreeNode& root = AddRoot();
  AddChild(root, "A");
  EXPECT_THAT([&] { AddChild(root, "A"); }, RaisesNumber(457));
  EXPECT_THAT([&] { AddChild(root, "@ROOT"); }, RaisesNumber(457));
  EXPECT_EQ(tree_.NodeCount(), 2U);
  AddChild(root, "a");  // keys are compared exactly
  EXPECT_EQ(tree_.NodeCount(), 3U);
}

TEST_F(TableTreeTest, AddEx_OtherRelationship_Raises5) {
  TreeNode& root = AddRoot();
  for (const int relationship : {0, 1, 4, 7}) {
    EXPECT_THAT([&] { tree_.AddEx(&root, relationship, "A", "", 0, 0, 0); }, RaisesNumber(5));
  }
  EXPECT_THAT([&] { tree_.AddEx(nullptr, TableTree::kChild, "A", "", 0, 0, 0); }, RaisesNumber(5));
}

TEST_F(TableTreeTest, AddEx_NewRoot_ReplacesTheWholeTree) {
  AddChild(AddChild(AddRoot(), "A"), "A_f");
  tree_.Select(&tree_.Nodes("A_f"));
  TreeNode& root = AddRoot();
  EXPECT_EQ(tree_.Root(), &root);
  EXPECT_EQ(tree_.NodeCount(), 1U);
  EXPECT_EQ(tree_.FindNode("A"), nullptr);
  EXPECT_EQ(tree_.SelectedItem(), nullptr);
}

TEST_F(TableTreeTest, Nodes_UnknownKey_Raises5) {
  AddRoot();
  EXPECT_THAT([&] { tree_.Nodes("A"); }, RaisesNumber(5));
  EXPECT_EQ(tree_.FindNode("A"), nullptr);
}

TEST_F(TableTreeTest, RemoveNode_TakesAllBelowIt) {
  TreeNode& root = AddRoot();
  AddChild(AddChild(root, "A"), "A_f");
  AddChild(root, "B");
  tree_.RemoveNode("A");
  EXPECT_EQ(tree_.NodeCount(), 2U);
  EXPECT_EQ(tree_.FindNode("A_f"), nullptr);
  ASSERT_EQ(root.Children().size(), 1U);
  EXPECT_EQ(root.Children()[0]->Key(), "B");
  EXPECT_THAT([&] { tree_.RemoveNode("A"); }, RaisesNumber(5));
  AddChild(root, "A");  // its key is free again
}

TEST_F(TableTreeTest, RemoveNode_ByNumber_KnowsOnlyTheRootAsZero) {
  AddChild(AddRoot(), "A");
  for (const int number : {1, 2, -1, 99}) tree_.RemoveNode(number);
  EXPECT_EQ(tree_.NodeCount(), 2U);
  tree_.RemoveNode(0);
  EXPECT_EQ(tree_.Root(), nullptr);
  EXPECT_EQ(tree_.NodeCount(), 0U);
  tree_.RemoveNode(0);
}

TEST_F(TableTreeTest, EnsureVisible_ExpandsWhatIsAbove) {
  TreeNode& root = AddRoot();
  TreeNode& document = AddChild(root, "A");
  TreeNode& file = AddChild(document, "A_f");
  file.EnsureVisible();
  EXPECT_TRUE(root.Expanded());
  EXPECT_TRUE(document.Expanded());
  EXPECT_FALSE(file.Expanded());
}

TEST_F(TableTreeTest, Columns_AreFoundRegardlessOfCase) {
  tree_.AddColumn("Level");
  tree_.AddColumn("TechName");
  tree_.SetColumnWidth("Techname", "300");
  EXPECT_EQ(tree_.ColumnCount(), 2);
  EXPECT_EQ(tree_.ColumnAt(2).name, "TechName");
  EXPECT_EQ(tree_.ColumnAt(2).width, "300");
  EXPECT_EQ(tree_.ColumnAt(1).width, "");
  EXPECT_THAT([&] { tree_.SetColumnWidth("Title", "300"); }, RaisesNumber(5));
}

TEST_F(TableTreeTest, Columns_PositionsCountFromOne) {
  tree_.AddColumn("A");
  tree_.AddColumn("B");
  for (const int position : {0, 3, -1}) {
    EXPECT_THAT([&] { tree_.ColumnAt(position); }, RaisesNumber(9));
    EXPECT_THAT([&] { tree_.RemoveColumn(position); }, RaisesNumber(9));
  }
  tree_.RemoveColumn(1);
  EXPECT_EQ(tree_.ColumnAt(1).name, "B");
}

TEST_F(TableTreeTest, Observer_IsToldOfEveryChangeOnce) {
  StrictMock<MockObserver> observer;
  tree_.Observer = &observer;
  InSequence inOrder;
  EXPECT_CALL(observer, NodeAdded(_)).Times(2);
  TreeNode& root = AddRoot();
  TreeNode& node = AddChild(root, "A");
  EXPECT_CALL(observer, NodeChanged(Ref(node))).Times(4);
  node.SetText("text");
  node.SetTitle("title");
  node.SetImage(1);
  node.SetExpandedImage(2);
  node.SetText("text");  // no change, no notice
  node.SetTitle("title");
  node.SetImage(1);
  node.SetExpandedImage(2);
  EXPECT_CALL(observer, NodeExpandedChanged(Ref(node)));
  node.SetExpanded(true);
  node.SetExpanded(true);
  EXPECT_CALL(observer, NodeExpandedChanged(Ref(root)));
  EXPECT_CALL(observer, NodeMadeVisible(Ref(node)));
  node.EnsureVisible();
  EXPECT_CALL(observer, SelectionChanged());
  tree_.Select(&node);
  tree_.Select(&node);
  EXPECT_CALL(observer, NodeRemoving(Ref(node)));
  EXPECT_CALL(observer, SelectionChanged());
  tree_.RemoveNode("A");
  EXPECT_CALL(observer, ColumnsChanged()).Times(3);
  tree_.AddColumn("C");
  tree_.SetColumnWidth("c", "1");
  tree_.RemoveColumn(1);
}

}  // namespace
}  // namespace qb
