#include <fmt/format.h>
#include <gmock/gmock.h>

#include <functional>

#include "foundation/FoundationState.h"
#include "foundation/modMultiLanguage.h"
#include "ui/KeyPart.h"
#include "ui/frmAbout.h"
#include "ui/frmContextMenu.h"
#include "ui/frmQBTranslator.h"
#include "ui/frmSplash.h"

namespace qb {
namespace {

/// A text of the main window, by translation's number and text and, where they differ, localization's.
struct Row {
  std::string keyPart;
  int number;
  const char* text;
  int localNumber;
  const char* localText;
  std::function<std::string(frmQBTranslator&)> shown;
};

Row Both(std::string keyPart, int number, const char* text,
         std::function<std::string(frmQBTranslator&)> shown) {
  return {std::move(keyPart), number, text, number, text, std::move(shown)};
}

std::function<std::string(frmQBTranslator&)> Menu(MenuItem frmQBTranslator::*item) {
  return [item](frmQBTranslator& form) { return (form.*item).Caption.Get(); };
}

std::function<std::string(frmQBTranslator&)> Tip(int button) {
  return [button](frmQBTranslator& form) { return form.Toolbar.Buttons(button).ToolTipText.Get(); };
}

std::vector<Row> BarRows() {
  const auto tip = [](int button) { return KeyPart(fmt::format("Toolbar.Buttons({}).ToolTipText", button)); };
  return {
      Both("FRMQBTRANSLATOR002317", 1, "ORB Quillbank Translator: Explorer",
           [](frmQBTranslator& form) { return form.Caption.Get(); }),
      Both(tip(1), 2, "Open a translation/localization package", Tip(1)),
      {tip(2), 3, "Save the status of the current translation package", 53,
       "Save the status of the current localization package", Tip(2)},
      Both(tip(4), 4, "Translate selected document with associated editor", Tip(4)),
      {tip(5), 5, "Declare a file to be a document's translation", 54,
       "Declare a file to be a document's localization", Tip(5)},
      {tip(7), 6, "Reset a document to the 'in translation' status", 55,
       "Reset a document to the 'to be localized' status", Tip(7)},
      {tip(8), 7, "Set a document to the 'in progress' status", 56,
       "Set a document to the 'in progress' status", Tip(8)},
      {tip(9), 8, "Set a document to the 'completed' status", 57, "Set a document to the 'completed' status",
       Tip(9)},
      Both(tip(11), 9, "Get online help", Tip(11)),
      Both("SBCSTATUSBARPAN002487", 10, "Welcome to Quillbank Explorer",
           [](frmQBTranslator& form) { return form.sbcStatusBar.PanelText.Get(); }),
      Both("LVINFOOBJECTLIS003353", 11, "Format",
           [](frmQBTranslator& form) { return form.lvInfoObjectList.Columns()[0].heading; }),
  };
}

std::vector<Row> MenuRows() {
  using F = frmQBTranslator;
  const auto row = [](const char* path, int number, const char* text, MenuItem F::*item) {
    return Both(KeyPart(std::string(path) + ".Caption"), number, text, Menu(item));
  };
  const auto two = [](const char* path, int number, const char* text, int localNumber, const char* localText,
                      MenuItem F::*item) {
    return Row{KeyPart(std::string(path) + ".Caption"), number, text, localNumber, localText, Menu(item)};
  };
  return {
      row("mnuFile", 12, "&File", &F::mnuFile),
      row("mnuFile.mniOpen", 13, "&Open translation package...", &F::mniOpen),
      row("mnuFile.mniSave", 14, "&Save", &F::mniSave),
      two("mnuFile.mniCheckIn", 15, "&Check in translation package (Upload)", 58,
          "&Check in localization package (Upload)", &F::mniCheckIn),
      row("mnuFile.mniProperties", 16, "Prop&erties...", &F::mniProperties),
      row("mnuFile.mniPrint", 17, "&Print", &F::mniPrint),
      row("mnuFile.mniExit", 18, "E&xit", &F::mniExit),
      row("mnuEdit", 19, "&Edit", &F::mnuEdit),
      row("mnuEdit.mniCopy", 20, "&Copy text", &F::mniCopy),
      row("mnuEdit.mniTranslate", 21, "&Translate Content with Editor", &F::mniTranslate),
      two("mnuEdit.mniAssignTranslatedFile", 22, "Assign Translated &File...", 59,
          "Assign localized &File...", &F::mniAssignTranslatedFile),
      row("mnuEdit.mniTranslateProperties", 23, "Translate Properties", &F::mniTranslateProperties),
      row("mnuEdit.mniTranslateTitle", 24, "Translate Title", &F::mniTranslateTitle),
      row("mnuEdit.mniComponents", 25, "Components...", &F::mniComponents),
      row("mnuEdit.mniComponents.mniMarkAsPrimaryComponent", 26, "Mark as primary component file",
          &F::mniMarkAsPrimaryComponent),
      row("mnuEdit.mniComponents.mniInsertComponent", 27, "Insert component file", &F::mniInsertComponent),
      row("mnuEdit.mniComponents.mniReplaceComponent", 28, "Replace component file", &F::mniReplaceComponent),
      row("mnuEdit.mniComponents.mniReplaceAllComponents", 29, "Replace all component files",
          &F::mniReplaceAllComponents),
      row("mnuEdit.mniComponents.mniDeleteComponent", 30, "Delete component file", &F::mniDeleteComponent),
      row("mnuEdit.mniComponents.mniEditComponent", 31, "Edit component file", &F::mniEditComponent),
      row("mnuEdit.mnuMark", 32, "&Mark Info Object as...", &F::mnuMark),
      two("mnuEdit.mnuMark.mniToBeTranslated", 33, "in translation", 60, "to be localized",
          &F::mniToBeTranslated),
      two("mnuEdit.mnuMark.mniInProgress", 34, "in progress", 61, "in progress", &F::mniInProgress),
      two("mnuEdit.mnuMark.mniCompleted", 35, "completed", 62, "completed", &F::mniCompleted),
      row("mnuView", 36, "&View", &F::mnuView),
      row("mnuView.mniShortView", 37, "&Short view", &F::mniShortView),
      row("mnuView.mniDetailedView", 38, "&Detailed view", &F::mniDetailedView),
      row("mnuView.mniRefresh", 39, "&Refresh", &F::mniRefresh),
      row("mnuTools", 40, "&Tools", &F::mnuTools),
      row("mnuTools.mniOptions", 41, "&Options...", &F::mniOptions),
      row("mnuHelp", 42, "&Help", &F::mnuHelp),
      row("mnuHelp.mniHelp", 43, "&Help on ORB Quillbank Translator", &F::mniHelp),
      row("mnuHelp.mniTechnicalSupport", 44, "Technical &Support", &F::mniTechnicalSupport),
      row("mnuHelp.mniOrbOnTheWWW", 45, "ORB on the World Wide &Web", &F::mniOrbOnTheWWW),
      row("mnuHelp.mniORBQBOnline", 46, "ORB Quillbank online", &F::mniORBQBOnline),
      row("mnuHelp.mniAbout", 47, "&About ORB Quillbank Translator...", &F::mniAbout),
      row("mnuHelp.mniDebug", 48, "Enter &Debugger", &F::mniDebug),
      row("mnuHelp.mniTrace", 49, "&Trace", &F::mniTrace),
  };
}

std::vector<Row> AllRows() {
  std::vector<Row> rows = BarRows();
  for (Row& row : MenuRows()) rows.push_back(std::move(row));
  return rows;
}

std::string FullKey(const Row& row, int number) {
  return fmt::format("QB.QBTRANSLAT.FRMQBTRANSLA.000.{}.C.{:05}", row.keyPart, number);
}

class WordingTest : public ::testing::Test {
 protected:
  WordingTest() { ResetFoundationState(); }
  ~WordingTest() override { ResetFoundationState(); }

  /// Gives every key of the main window a text of its own.
  static void TranslateMainWindow() {
    gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
    for (const Row& row : AllRows()) {
      for (const int number : {row.number, row.localNumber}) {
        gLanguageTexts->emplace(FullKey(row, number), fmt::format("text {}", number));
      }
    }
  }
};

TEST_F(WordingTest, MainWindow_HasFortyNineTexts) {
  EXPECT_EQ(AllRows().size(), 49U);
}

TEST_F(WordingTest, MainWindow_EnglishWording) {
  frmQBTranslator form;
  form.QBL_InitLText();
  for (const Row& row : AllRows()) EXPECT_EQ(row.shown(form), row.text) << row.keyPart;
  form.QBL_InitLText_Localization();
  for (const Row& row : AllRows()) EXPECT_EQ(row.shown(form), row.localText) << row.keyPart;
}

TEST_F(WordingTest, MainWindow_EveryTextIsFoundByItsKey) {
  TranslateMainWindow();
  frmQBTranslator form;
  form.QBL_InitLText();
  for (const Row& row : AllRows())
    EXPECT_EQ(row.shown(form), fmt::format("text {}", row.number)) << row.keyPart;
  form.QBL_InitLText_Localization();
  for (const Row& row : AllRows()) {
    EXPECT_EQ(row.shown(form), fmt::format("text {}", row.localNumber)) << row.keyPart;
  }
}

TEST_F(WordingTest, MainWindow_OtherHeadingsKeepTheirDesign) {
  frmQBTranslator form;
  form.QBL_InitLText();
  const auto& columns = form.lvInfoObjectList.Columns();
  EXPECT_EQ(columns[0].heading, "Format");
  EXPECT_EQ(columns[1].heading, "State");
  EXPECT_EQ(columns[6].heading, "Format");
}

TEST_F(WordingTest, MainWindow_SimpleTextOfTheStatusLineStays) {
  frmQBTranslator form;
  form.QBL_InitLText();
  EXPECT_EQ(form.sbcStatusBar.SimpleText.Get(), "Welcome to ORB Quillbank Translator!");
}

TEST_F(WordingTest, ContextMenu_EntriesAndTheirKeys) {
  struct {
    const char* name;
    const char* caption;
    int number;
    bool visible;
  } const rows[] = {{"mniCopy", "Copy selection", 3, true},
                    {"s1", "-", 0, true},
                    {"mniTranslate", "Translate Content with Editor", 4, true},
                    {"mniAssignTranslatedFile", "Assign Translated File", 5, false},
                    {"mnuDummy66", "-", 0, true},
                    {"mniTranslateTitle", "Translate Title", 6, true},
                    {"mniTranslateProperties", "Translate Properties", 7, false},
                    {"s2", "-", 0, true},
                    {"mniToBeTranslated", "Mark as 'to be translated'", 8, true},
                    {"mniInProgress", "Mark as 'in progress'", 9, true},
                    {"mniCompleted", "Mark as 'completed'", 10, true}};
  frmContextMenu form;
  ASSERT_EQ(form.mnuContextMenu.Entries().size(), std::size(rows));
  EXPECT_TRUE(form.MenuBar().empty());
  gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const MenuItem& item = *form.mnuContextMenu.Entries()[i];
    EXPECT_EQ(item.Name(), rows[i].name);
    EXPECT_EQ(item.Caption.Get(), rows[i].caption);
    EXPECT_EQ(item.Visible.Get(), rows[i].visible) << rows[i].name;
    EXPECT_EQ(item.Shortcut(), "");
    const std::string part = KeyPart(fmt::format("mnuContextMenu.{}.Caption", rows[i].name));
    gLanguageTexts->emplace(fmt::format("QB.QBTRANSLAT.FRMCONTEXTME.000.{}.C.{:05}", part, rows[i].number),
                            fmt::format("text {}", rows[i].number));
  }
  form.QBL_InitLText();
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const std::string shown = form.mnuContextMenu.Entries()[i]->Caption;
    EXPECT_EQ(shown, rows[i].number == 0 ? "-" : fmt::format("text {}", rows[i].number)) << rows[i].name;
  }
  gLanguageTexts.reset();
  form.QBL_InitLText_Localization();
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(form.mnuContextMenu.Entries()[i]->Caption.Get(), rows[i].caption);
  }
}

TEST_F(WordingTest, About_DesignAndWording) {
  frmAbout form;
  EXPECT_EQ(form.lblDescription.Caption.Get(), "Making your translation/localization handling easier");
  EXPECT_EQ(form.lblTitle.Caption.Get(), "Quillbank");
  EXPECT_EQ(form.lblRelease.Caption.Get(), "Version");
  EXPECT_EQ(form.Label2.Caption.Get(), "Translator");
  form.QBL_InitLText();
  EXPECT_EQ(form.cmdOK.Caption.Get(), "OK");
  EXPECT_EQ(form.cmdSysInfo.Caption.Get(), "&System Info...");
  EXPECT_EQ(form.lblDescription.Caption.Get(), "Making your translation handling easier");
}

TEST_F(WordingTest, About_EveryTextIsFoundByItsKey) {
  struct {
    const char* path;
    int number;
    std::function<std::string(frmAbout&)> shown;
  } const rows[] = {
      {"frmAbout.Caption", 1, [](frmAbout& form) { return form.Caption.Get(); }},
      {"cmdOK.Caption", 2, [](frmAbout& form) { return form.cmdOK.Caption.Get(); }},
      {"cmdSysInfo.Caption", 3, [](frmAbout& form) { return form.cmdSysInfo.Caption.Get(); }},
      {"Label2.Caption", 4, [](frmAbout& form) { return form.Label2.Caption.Get(); }},
      {"Label1.Caption", 5, [](frmAbout& form) { return form.Label1.Caption.Get(); }},
      {"lblDescription.Caption", 6, [](frmAbout& form) { return form.lblDescription.Caption.Get(); }},
      {"lblTitle.Caption", 7, [](frmAbout& form) { return form.lblTitle.Caption.Get(); }},
      {"lblRelease.Caption", 8, [](frmAbout& form) { return form.lblRelease.Caption.Get(); }}};
  gLanguageTexts = std::make_unique<std::unordered_map<std::string, std::string>>();
  for (const auto& row : rows) {
    gLanguageTexts->emplace(
        fmt::format("QB.QBTRANSLAT.FRMABOUT.000.{}.C.{:05}", KeyPart(row.path), row.number),
        fmt::format("text {}", row.number));
  }
  frmAbout form;
  form.QBL_InitLText();
  for (const auto& row : rows) EXPECT_EQ(row.shown(form), fmt::format("text {}", row.number)) << row.path;
}

TEST_F(WordingTest, Splash_DesignAndWording) {
  frmSplash form;
  EXPECT_EQ(form.tmrSplash.Interval.Get(), 300);
  EXPECT_EQ(form.lblVersion.TextFont.Get().name, "Arial");
  EXPECT_TRUE(form.lblVersion.TextFont.Get().bold);
  EXPECT_EQ(form.Caption.Get(), "");
  form.QBL_InitLText();
  EXPECT_EQ(form.lblVersion.Caption.Get(), "Version");
}

}  // namespace
}  // namespace qb
