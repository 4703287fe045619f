#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "workflow/Selection.h"

namespace qb {
namespace {

using ::testing::Contains;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";

class SelectionTest : public WorkflowTest {
 protected:
  SelectionTest() {
    Write(kPackage, SmallPackage());
    Start(kPackage);
  }
};

TEST_F(SelectionTest, Root_SelectsNothing) {
  SelectNode("@ROOT");
  EXPECT_EQ(GetSelectionRawKey(), "@ROOT");
  EXPECT_EQ(GetKeyFromSelection(), "");
  EXPECT_EQ(GetComponentFromSelection(false), "");
  EXPECT_EQ(GetComponentFromSelection(true), "");
}

TEST_F(SelectionTest, NothingSelected_GivesEmptyTexts) {
  EXPECT_EQ(GetSelectionRawKey(), "");
  EXPECT_EQ(GetKeyFromSelection(), "");
  EXPECT_EQ(GetComponentFromSelection(false), "");
}

TEST_F(SelectionTest, Document_IsItsOwnComponentUnlessBlank) {
  SelectNode("DOC1");
  EXPECT_EQ(GetKeyFromSelection(), "DOC1");
  EXPECT_EQ(GetComponentFromSelection(false), "DOC1");
  EXPECT_EQ(GetComponentFromSelection(true), "");
}

TEST_F(SelectionTest, File_GivesItsDocumentAndItsName) {
  SelectNode("DOC2_menu.gif");
  EXPECT_EQ(GetKeyFromSelection(), "DOC2");
  EXPECT_EQ(GetComponentFromSelection(true), "menu.gif");
}

TEST_F(SelectionTest, FileNameWithSeparator_StaysWhole) {
  TableTree& tree = Window().TransPackTree;
  tree.Select(&tree.AddEx(&tree.Nodes("DOC1"), TableTree::kChild, "DOC1_a_b.css", "a_b.css", 12, 12, 0));
  EXPECT_EQ(GetKeyFromSelection(), "DOC1");
  EXPECT_EQ(GetComponentFromSelection(false), "a_b.css");
}

TEST_F(SelectionTest, DetailedView_TakesTheListsSelection) {
  SelectNode("DOC1");
  gViewDetailed = true;
  EXPECT_EQ(GetSelectionRawKey(), "");
  Window().lvInfoObjectList.Select(&Window().lvInfoObjectList.Rows("DOC2"));
  EXPECT_EQ(GetKeyFromSelection(), "DOC2");
}

TEST_F(SelectionTest, GetKeyFromSelection_Traces) {
  SelectNode("DOC2_menu.js");
  GetKeyFromSelection();
  EXPECT_THAT(TraceLines(), Contains("TranslateMod.GetKeyFromSelection: Selection is DOC2"));
}

}  // namespace
}  // namespace qb
