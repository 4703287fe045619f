#include <gmock/gmock.h>

#include "runtime/RuntimeError.h"
#include "ui/frmQBTranslator.h"

namespace qb {
namespace {

using ::testing::ElementsAre;
using ::testing::Property;
using ::testing::Throws;

/// One line of the menus, indented by its depth.
struct MenuRow {
  int depth;
  const char* name;
  const char* caption;
  const char* shortcut;
  const char* start;  ///< "H" hidden, "D" disabled
};

constexpr MenuRow kMenus[] = {
    {0, "mnuFile", "&File", "", ""},
    {1, "mniOpen", "&Open translation package...", "Ctrl+O", ""},
    {1, "mniSave", "&Save", "Ctrl+S", "H"},
    {1, "mniCheckIn", "&Check in translation package (Upload)", "Ctrl+U", "H"},
    {1, "b0", "-", "", ""},
    {1, "mniProperties", "Prop&erties...", "", "H"},
    {1, "b1", "-", "", "H"},
    {1, "mniPrint", "&Print", "Ctrl+P", "H"},
    {1, "b2", "-", "", "H"},
    {1, "mniExit", "E&xit", "Ctrl+Q", ""},
    {1, "mniSepRec", "-", "", "H"},
    {1, "mniFileRecent(1)", "&1 ", "", "H"},
    {1, "mniFileRecent(2)", "&2 ", "", "H"},
    {1, "mniFileRecent(3)", "&3 ", "", "H"},
    {1, "mniFileRecent(4)", "&4 ", "", "H"},
    {0, "mnuEdit", "&Edit", "", ""},
    {1, "mniCopy", "&Copy text", "Ctrl+C", ""},
    {1, "b7", "-", "", ""},
    {1, "mniTranslate", "&Translate Content with Editor", "Ctrl+T", ""},
    {1, "mniAssignTranslatedFile", "Assign Translated &File...", "Ctrl+F", ""},
    {1, "mniTranslateProperties", "Translate Properties", "", "H"},
    {1, "mniTranslateTitle", "Translate Title", "", ""},
    {1, "b66", "-", "", ""},
    {1, "mniComponents", "Components...", "", ""},
    {2, "mniMarkAsPrimaryComponent", "Mark as primary component file", "", ""},
    {2, "mniInsertComponent", "Insert component file", "", ""},
    {2, "mniReplaceComponent", "Replace component file", "", ""},
    {2, "mniReplaceAllComponents", "Replace all component files", "", ""},
    {2, "mniDeleteComponent", "Delete component file", "", ""},
    {2, "mniEditComponent", "Edit component file", "", "H"},
    {1, "b6", "-", "", ""},
    {1, "mnuMark", "&Mark Info Object as...", "", ""},
    {2, "mniToBeTranslated", "to be translated", "F2", ""},
    {2, "mniInProgress", "in progress", "F3", ""},
    {2, "mniCompleted", "completed", "F4", ""},
    {0, "mnuView", "&View", "", ""},
    {1, "mniShortView", "&Short view", "", ""},
    {1, "mniDetailedView", "&Detailed view", "", "H"},
    {1, "b71", "-", "", ""},
    {1, "mniRefresh", "&Refresh", "F5", ""},
    {0, "mnuTools", "&Tools", "", ""},
    {1, "mniOptions", "&Options...", "", ""},
    {0, "mnuHelp", "&Help", "", ""},
    {1, "mniHelp", "&Help on ORB Quillbank Translator", "F1", ""},
    {1, "b3", "-", "", ""},
    {1, "mniTechnicalSupport", "Technical &Support", "", "H"},
    {1, "mniOrbOnTheWWW", "ORB on the World Wide &Web", "", ""},
    {1, "mniORBQBOnline", "ORB Quillbank online", "", "HD"},
    {1, "b4", "-", "", ""},
    {1, "mniAbout", "&About ORB Quillbank Translator...", "", ""},
    {1, "b5", "-", "", ""},
    {1, "mniDebug", "Enter &Debugger", "", ""},
    {1, "mniTrace", "&Trace", "", ""},
};

/// The menus in the order in which they are shown.
void Flatten(const std::vector<MenuItem*>& items, int depth,
             std::vector<std::pair<int, const MenuItem*>>& rows) {
  for (const MenuItem* item : items) {
    rows.emplace_back(depth, item);
    Flatten(item->Entries(), depth + 1, rows);
  }
}

class frmQBTranslatorTest : public ::testing::Test {
 protected:
  frmQBTranslator form_;
};

TEST_F(frmQBTranslatorTest, Menus_HaveTheirEntries) {
  std::vector<std::pair<int, const MenuItem*>> rows;
  Flatten(form_.MenuBar(), 0, rows);
  ASSERT_EQ(rows.size(), std::size(kMenus));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& [depth, item] = rows[i];
    const MenuRow& expected = kMenus[i];
    const std::string start = expected.start;
    EXPECT_EQ(item->Name(), expected.name) << i;
    EXPECT_EQ(depth, expected.depth) << expected.name;
    EXPECT_EQ(item->Caption.Get(), expected.caption) << expected.name;
    EXPECT_EQ(item->Shortcut(), expected.shortcut) << expected.name;
    EXPECT_EQ(item->Visible.Get(), start.find('H') == std::string::npos) << expected.name;
    EXPECT_EQ(item->Enabled.Get(), start.find('D') == std::string::npos) << expected.name;
    EXPECT_EQ(item->IsSeparator(), std::string(expected.caption) == "-") << expected.name;
    EXPECT_FALSE(item->Checked.Get()) << expected.name;
  }
}

TEST_F(frmQBTranslatorTest, Toolbar_HasItsButtons) {
  struct {
    const char* key;
    const char* image;
  } const rows[] = {{"btnOpen", "ICON_OPEN"},
                    {"btnSave", "ICON_SAVE"},
                    {"sep0", ""},
                    {"btnTranslate", "ICON_TRANSLATE"},
                    {"btnAssignTranslatedFile", "ICON_ASSIGN_TRANSLATION"},
                    {"sep1", ""},
                    {"btnMarkToBeTranslated", "ICON_TOBETRANSLATED"},
                    {"btnMarkInProgress", "ICON_INPROGRESS"},
                    {"btnMarkCompleted", "ICON_COMPLETED"},
                    {"sep2", ""},
                    {"btnHelp", "ICON_HELP"},
                    {"btnHTML_ED", "ICON_HTML"}};
  ASSERT_EQ(form_.Toolbar.ButtonCount(), static_cast<int>(std::size(rows)));
  const std::vector<std::string>& icons = form_.ImageList3.Keys();
  for (int index = 1; index <= form_.Toolbar.ButtonCount(); ++index) {
    const ToolButton& button = form_.Toolbar.Buttons(index);
    EXPECT_EQ(button.Key(), rows[index - 1].key);
    EXPECT_EQ(button.Image(), rows[index - 1].image);
    EXPECT_EQ(button.IsSeparator(), button.Key().starts_with("sep"));
    EXPECT_EQ(button.ToolTipText.Get(), "");
    EXPECT_EQ(button.Enabled.Get(), index != 12);  // the last one has no command
    if (button.IsSeparator()) continue;
    EXPECT_THAT(icons, ::testing::Contains(button.Image()));
  }
  for (const int index : {0, 13}) {
    EXPECT_THAT([&] { form_.Toolbar.Buttons(index); },
                Throws<RuntimeError>(Property(&RuntimeError::Number, failure::kIndexOutOfRange)));
  }
}

TEST_F(frmQBTranslatorTest, List_HasSevenColumns) {
  struct {
    const char* key;
    const char* heading;
  } const rows[] = {{"strTechnicalName", "Technical Name"},
                    {"strState", "State"},
                    {"strStatus", "Status"},
                    {"strLastChange", "Last Change"},
                    {"strCreator", "Created By"},
                    {"strFileName", "File Name"},
                    {"strFormat", "Format"}};
  const auto& columns = form_.lvInfoObjectList.Columns();
  ASSERT_EQ(columns.size(), std::size(rows));
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(columns[i].key, rows[i].key);
    EXPECT_EQ(columns[i].heading, rows[i].heading);
    EXPECT_EQ(columns[i].width, 2540);
  }
}

TEST_F(frmQBTranslatorTest, Tree_HasItsDesignColumns) {
  ASSERT_EQ(form_.TransPackTree.ColumnCount(), 3);
  EXPECT_EQ(form_.TransPackTree.ColumnAt(1).name, "Level");
  EXPECT_EQ(form_.TransPackTree.ColumnAt(2).name, "Image");
  EXPECT_EQ(form_.TransPackTree.ColumnAt(3).name, "Text");
}

TEST_F(frmQBTranslatorTest, ImageLists_HaveTheirKeysInOrder) {
  EXPECT_THAT(form_.ImageList2.Keys(),
              ElementsAre("ICON_TOBETRANSLATED", "ICON_INPROGRESS", "ICON_COMPLETED", "ICON_OPEN", "ICON_QBT",
                          "ICON_SAVE", "ICON_ASSIGN_TRANSLATION", "ICON_TRANSLATE", "ICON_HELP",
                          "ICON_READONLY", "ICON_PRIM", "ICON_OPENED", "ICON_INVISIBLE"));
  EXPECT_THAT(form_.ImageList3.Keys(),
              ElementsAre("ICON_TOBETRANSLATED", "ICON_INPROGRESS", "ICON_COMPLETED", "ICON_OPEN",
                          "ICON_SAVE", "ICON_ASSIGN_TRANSLATION", "ICON_TRANSLATE", "ICON_HELP",
                          "ICON_READONLY", "ICON_PRIM", "ICON_OPENED", "ICON_HTML"));
}

TEST_F(frmQBTranslatorTest, Design_TextsTimersAndViews) {
  EXPECT_EQ(form_.FormName(), "frmQBTranslator");
  EXPECT_EQ(form_.sbcStatusBar.SimpleText.Get(), "Welcome to ORB Quillbank Translator!");
  EXPECT_EQ(form_.tmrTimer2.Interval.Get(), 66);
  EXPECT_TRUE(form_.TransPackTree.Visible.Get());
  EXPECT_FALSE(form_.lvInfoObjectList.Visible.Get());
}

TEST_F(frmQBTranslatorTest, Controls_FirstOnesStandInTheirOrderOfCreation) {
  std::vector<std::string> names;
  for (const Control* control : form_.Controls()) names.push_back(control->Name());
  names.resize(8);
  EXPECT_THAT(names, ElementsAre("ImageList2", "TransPackTree", "sbcStatusBar", "lvInfoObjectList", "Toolbar",
                                 "tmrTimer2", "tmrTimer1", "ImageList3"));
}

TEST_F(frmQBTranslatorTest, RecentFiles_CountFromOneToFour) {
  EXPECT_EQ(form_.mniFileRecent(1).Name(), "mniFileRecent(1)");
  EXPECT_EQ(form_.mniFileRecent(4).Name(), "mniFileRecent(4)");
  for (const int number : {0, 5}) {
    EXPECT_THAT([&] { form_.mniFileRecent(number); },
                Throws<RuntimeError>(Property(&RuntimeError::Number, failure::kIndexOutOfRange)));
  }
}

}  // namespace
}  // namespace qb
