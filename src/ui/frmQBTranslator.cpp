#include "ui/frmQBTranslator.h"

#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr int kColumnWidth = 2540;  // twips

std::vector<ListView::Column> Columns() {
  return {{"strTechnicalName", "Technical Name", kColumnWidth},
          {"strState", "State", kColumnWidth},
          {"strStatus", "Status", kColumnWidth},
          {"strLastChange", "Last Change", kColumnWidth},
          {"strCreator", "Created By", kColumnWidth},
          {"strFileName", "File Name", kColumnWidth},
          {"strFormat", "Format", kColumnWidth}};
}

struct ButtonDesign {
  const char* key;
  const char* image;  ///< empty: separator
};

constexpr ButtonDesign kButtons[] = {
    {"btnOpen", "ICON_OPEN"},
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
    {"btnHTML_ED", "ICON_HTML"},
};

}  // namespace

frmQBTranslator::frmQBTranslator()
    : Form("frmQBTranslator", "ORB Quillbank Translator: Explorer"),
      lvInfoObjectList(*this, "lvInfoObjectList", Columns()) {
  AddToMenuBar({&mnuFile, &mnuEdit, &mnuView, &mnuTools, &mnuHelp});
  for (const ButtonDesign& button : kButtons) Toolbar.AddButton(button.key, button.image);
  sbcStatusBar.SimpleText = "Welcome to ORB Quillbank Translator!";
  for (const char* column : {"Level", "Image", "Text"}) TransPackTree.AddColumn(column);
  for (MenuItem* hidden :
       {&mniSave, &mniCheckIn, &mniProperties, &b1, &mniPrint, &b2, &mniSepRec, &mniTranslateProperties,
        &mniEditComponent, &mniDetailedView, &mniTechnicalSupport, &mniORBQBOnline}) {
    hidden->Visible = false;
  }
  for (MenuItem& recent : recentFiles) recent.Visible = false;
  mniORBQBOnline.Enabled = false;
  Toolbar.Buttons(Toolbar.ButtonCount()).Enabled = false;  // has no command
  lvInfoObjectList.Visible = false;
}

MenuItem& frmQBTranslator::mniFileRecent(int number) {
  if (number < 1 || number > kRecentFiles) throw RuntimeError(failure::kIndexOutOfRange);
  return recentFiles[static_cast<std::size_t>(number) - 1];
}

}  // namespace qb
