#include "ui/frmContextMenu.h"
#include "workflow/CopySelection.h"
#include "workflow/FileCommandTest.h"

namespace qb {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class CopySelectionTest : public FileCommandTest {};

TEST_F(CopySelectionTest, SelectedNode_ItsTextGoesToTheClipboard) {
  OpenSmallPackage();
  for (const auto& [key, text] : {std::pair{"@ROOT", R"(\pkg\Trans.pxf)"}, std::pair{"DOC1", "Styles"},
                                  std::pair{"DOC2_menu.gif", "menu.gif"}}) {
    SelectNode(key);
    QbtCopy();
    ASSERT_FALSE(TheClipboard().entries.empty());
    EXPECT_EQ(TheClipboard().entries.back().text, text);
    EXPECT_EQ(TheClipboard().entries.back().format, Clipboard::kTextFormat);
  }
}

TEST_F(CopySelectionTest, NothingSelected_LeavesTheClipboardAlone) {
  OpenSmallPackage();
  QbtCopy();
  EXPECT_THAT(TheClipboard().entries, IsEmpty());
}

TEST_F(CopySelectionTest, ListIsShown_TheTreesSelectionCounts) {
  OpenSmallPackage();
  SelectNode("DOC1");
  gViewDetailed = true;
  Window().lvInfoObjectList.Select(&Window().lvInfoObjectList.Rows("DOC2"));
  QbtCopy();
  EXPECT_EQ(TheClipboard().entries.back().text, "Styles");
}

TEST_F(CopySelectionTest, NoWindow_MakesNone) {
  TheForms().Clear();
  QbtCopy();
  EXPECT_FALSE(TheForms().HasDefault<frmQBTranslator>());
}

TEST_F(CopySelectionTest, BothMenus_RunTheCommand) {
  OpenSmallPackage();
  SelectNode("DOC1");
  Window().mniCopy.Click();
  Default<frmContextMenu>().mniCopy.Click();
  EXPECT_THAT(TheClipboard().entries, SizeIs(2));
}

}  // namespace
}  // namespace qb
