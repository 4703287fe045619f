#include <gmock/gmock.h>

#include "support/WorkflowTest.h"
#include "ui/frmAbout.h"
#include "ui/frmContextMenu.h"

namespace qb {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::string_view kPackage = R"(\pkg\Trans.pxf)";
constexpr int kRightButton = 2;

class WindowEventsTest : public WorkflowTest {
 protected:
  WindowEventsTest() {
    Write(kPackage, SmallPackage());
    Start(kPackage);
    Kit().calls.clear();
  }
  void SetState(std::string_view name) { gLoios->Item("DOC1")->state->InternalizeState(name); }
};

TEST_F(WindowEventsTest, RightClick_OnRoot_BringsNoMenu) {
  SelectNode("@ROOT");
  Window().TransPackTree.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Each(Not(HasSubstr("popup"))));
}

TEST_F(WindowEventsTest, RightClick_OnDocument_BringsTheComponentsMenu) {
  SelectNode("DOC1");
  Window().TransPackTree.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Contains("popup mniComponents"));
}

TEST_F(WindowEventsTest, RightClick_OnReadOnlyDocument_BringsNoMenu) {
  SetState("READONLY_OPEN");
  SelectNode("DOC1");
  Window().TransPackTree.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Each(Not(HasSubstr("popup"))));
}

TEST_F(WindowEventsTest, RightClick_OnFile_BringsTheContextMenu) {
  SelectNode("DOC1_styles.css");
  Window().TransPackTree.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Contains("popup mnuContextMenu"));
  EXPECT_EQ(Default<frmContextMenu>().mniTranslate.Caption.Get(), "&Translate Content with Editor");
}

TEST_F(WindowEventsTest, RightClick_OnReadOnlyDocumentsFile_OffersToView) {
  SetState("READONLY_OPEN");
  SelectNode("DOC1_styles.css");
  Window().TransPackTree.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Contains("popup mnuContextMenu"));
  EXPECT_EQ(Default<frmContextMenu>().mniTranslate.Caption.Get(), "View Content");
}

TEST_F(WindowEventsTest, LeftClick_BringsNoMenu) {
  SelectNode("DOC1_styles.css");
  Window().TransPackTree.MouseUp(1);
  Window().lvInfoObjectList.MouseUp(1);
  EXPECT_THAT(Kit().calls, Each(Not(HasSubstr("popup"))));
}

TEST_F(WindowEventsTest, RightClick_InTheList_BringsTheContextMenuInEveryCase) {
  Window().lvInfoObjectList.MouseUp(kRightButton);
  EXPECT_THAT(Kit().calls, Contains("popup mnuContextMenu"));
}

TEST_F(WindowEventsTest, Resize_LaysTheTreeOutByTheRule) {
  Window().Place = Bounds{0, 0, 12000, 9000};
  Window().Toolbar.Place = Bounds{0, 0, 12000, 420};
  Window().sbcStatusBar.Place = Bounds{0, 0, 12000, 300};
  Window().Resize();
  EXPECT_EQ(Window().TransPackTree.Place.Get(), (Bounds{0, 420, 11900, 9000 - 420 - 300 - 660}));
}

TEST_F(WindowEventsTest, Resize_InDetailedView_PutsTheTreeBackOnTop) {
  Window().mniDetailedView.Click();
  EXPECT_FALSE(Window().TransPackTree.Visible);
  EXPECT_TRUE(Window().lvInfoObjectList.Visible);
  const Bounds list = Window().lvInfoObjectList.Place;
  Window().Resize();
  EXPECT_TRUE(Window().TransPackTree.Visible);
  EXPECT_TRUE(Window().lvInfoObjectList.Visible);
  EXPECT_EQ(Window().lvInfoObjectList.Place.Get(), list);
}

TEST_F(WindowEventsTest, ViewSwitch_KeepsItsCheckMarks) {
  Window().mniDetailedView.Click();
  EXPECT_TRUE(Window().mniDetailedView.Checked);
  EXPECT_FALSE(Window().mniShortView.Checked);
  EXPECT_TRUE(gViewDetailed);
  Window().mniShortView.Click();
  EXPECT_FALSE(Window().mniDetailedView.Checked);
  EXPECT_TRUE(Window().mniShortView.Checked);
  EXPECT_FALSE(gViewDetailed);
}

TEST_F(WindowEventsTest, TraceToggle_SwitchesMarkTraceAndStatusText) {
  Window().mniTrace.Click();
  EXPECT_FALSE(Window().mniTrace.Checked);
  EXPECT_FALSE(gTrace->Active);
  EXPECT_EQ(Window().sbcStatusBar.SimpleText.Get(), "Trace is now off");
  Window().mniTrace.Click();
  EXPECT_TRUE(Window().mniTrace.Checked);
  EXPECT_TRUE(gTrace->Active);
  EXPECT_EQ(Window().sbcStatusBar.SimpleText.Get(), "Trace is now on");
}

TEST_F(WindowEventsTest, SaveButton_DoesNothingThoughEnabled) {
  const std::string before = Bytes(kPackage);
  EXPECT_TRUE(Window().Toolbar.Buttons(2).Enabled);
  Window().Toolbar.ButtonClick(2);
  EXPECT_EQ(Bytes(kPackage), before);
  EXPECT_TRUE(Boxes().Texts().empty());
}

TEST_F(WindowEventsTest, Toolbar_ButtonsRunTheirCommands) {
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  Window().Toolbar.ButtonClick(9);
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "COMPLETE");
  Window().Toolbar.ButtonClick(8);
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "MODIFIED");
  Boxes().AnswerNext(box::kYes);
  Window().Toolbar.ButtonClick(7);
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "UNCHANGED");
  Dialogs().CancelNext();
  Window().Toolbar.ButtonClick(1);
  EXPECT_EQ(Dialogs().Shown().size(), 1U);
}

TEST_F(WindowEventsTest, MenuMarks_RunTheirCommandsInBothMenus) {
  SelectNode("DOC1");
  Boxes().AnswerNext(box::kYes);
  Window().mniCompleted.Click();
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "COMPLETE");
  Default<frmContextMenu>().mniInProgress.Click();
  EXPECT_EQ(Entry(kPackage, "1", "PROGRESS"), "MODIFIED");
}

TEST_F(WindowEventsTest, Forms_AreLoadedWithWordingAndFonts) {
  EXPECT_EQ(Window().Caption.Get(), "ORB Quillbank Translator: Explorer");
  EXPECT_EQ(Window().TransPackTree.TextFont.Get().name, "MS Shell Dlg");
  EXPECT_EQ(Window().TransPackTree.TextFont.Get().points, 8.75);
}

TEST_F(WindowEventsTest, AboutForm_AtItsLoad_TellsProgramAndVersion) {
  frmAbout form;
  TheForms().Load(form);
  EXPECT_EQ(form.Caption.Get(), "About ORB Quillbank Translator");
  EXPECT_EQ(form.lblRelease.Caption.Get(), "Version 7.1.3");
  EXPECT_EQ(form.lblTitle.Caption.Get(), "ORB Quillbank Translator");
  TheForms().Unloaded(form);
}

}  // namespace
}  // namespace qb
