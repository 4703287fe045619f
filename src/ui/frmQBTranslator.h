#pragma once

#include <array>

#include "ui/Form.h"
#include "ui/controls/ListView.h"
#include "ui/controls/MenuItem.h"
#include "ui/controls/SimpleControls.h"
#include "ui/controls/TableTree.h"
#include "ui/controls/Toolbar.h"

namespace qb {

/// The program's one main window: menus, tool bar, the package's documents as a tree or a list, status line.
class frmQBTranslator : public Form {
 public:
  frmQBTranslator();

  void QBL_InitLText() override;
  void QBL_InitLText_Localization() override;

  static constexpr int kRecentFiles = 4;

  /// The recent files of the File menu; `number` counts from 1, raises 9 beyond the last.
  MenuItem& mniFileRecent(int number);

  ImageList ImageList2{*this,
                       "ImageList2",
                       {"ICON_TOBETRANSLATED", "ICON_INPROGRESS", "ICON_COMPLETED", "ICON_OPEN", "ICON_QBT",
                        "ICON_SAVE", "ICON_ASSIGN_TRANSLATION", "ICON_TRANSLATE", "ICON_HELP",
                        "ICON_READONLY", "ICON_PRIM", "ICON_OPENED", "ICON_INVISIBLE"}};
  TableTree TransPackTree{*this, "TransPackTree"};
  StatusBar sbcStatusBar{*this, "sbcStatusBar"};
  ListView lvInfoObjectList;
  qb::Toolbar Toolbar{*this, "Toolbar"};
  Timer tmrTimer2{*this, "tmrTimer2", 66};
  Timer tmrTimer1{*this, "tmrTimer1", 0};
  ImageList ImageList3{*this,
                       "ImageList3",
                       {"ICON_TOBETRANSLATED", "ICON_INPROGRESS", "ICON_COMPLETED", "ICON_OPEN", "ICON_SAVE",
                        "ICON_ASSIGN_TRANSLATION", "ICON_TRANSLATE", "ICON_HELP", "ICON_READONLY",
                        "ICON_PRIM", "ICON_OPENED", "ICON_HTML"}};

  MenuItem mnuFile{*this, "mnuFile", "&File"};
  MenuItem mniOpen{mnuFile, "mniOpen", "&Open translation package...", "Ctrl+O"};
  MenuItem mniSave{mnuFile, "mniSave", "&Save", "Ctrl+S"};
  MenuItem mniCheckIn{mnuFile, "mniCheckIn", "&Check in translation package (Upload)", "Ctrl+U"};
  MenuItem b0{mnuFile, "b0", MenuItem::kSeparator};
  MenuItem mniProperties{mnuFile, "mniProperties", "Prop&erties..."};
  MenuItem b1{mnuFile, "b1", MenuItem::kSeparator};
  MenuItem mniPrint{mnuFile, "mniPrint", "&Print", "Ctrl+P"};
  MenuItem b2{mnuFile, "b2", MenuItem::kSeparator};
  MenuItem mniExit{mnuFile, "mniExit", "E&xit", "Ctrl+Q"};
  MenuItem mniSepRec{mnuFile, "mniSepRec", MenuItem::kSeparator};
  std::array<MenuItem, kRecentFiles> recentFiles{{{mnuFile, "mniFileRecent(1)", "&1 "},
                                                  {mnuFile, "mniFileRecent(2)", "&2 "},
                                                  {mnuFile, "mniFileRecent(3)", "&3 "},
                                                  {mnuFile, "mniFileRecent(4)", "&4 "}}};
  MenuItem mnuEdit{*this, "mnuEdit", "&Edit"};
  MenuItem mniCopy{mnuEdit, "mniCopy", "&Copy text", "Ctrl+C"};
  MenuItem b7{mnuEdit, "b7", MenuItem::kSeparator};
  MenuItem mniTranslate{mnuEdit, "mniTranslate", "&Translate Content with Editor", "Ctrl+T"};
  MenuItem mniAssignTranslatedFile{mnuEdit, "mniAssignTranslatedFile", "Assign Translated &File...",
                                   "Ctrl+F"};
  MenuItem mniTranslateProperties{mnuEdit, "mniTranslateProperties", "Translate Properties"};
  MenuItem mniTranslateTitle{mnuEdit, "mniTranslateTitle", "Translate Title"};
  MenuItem b66{mnuEdit, "b66", MenuItem::kSeparator};
  MenuItem mniComponents{mnuEdit, "mniComponents", "Components..."};
  MenuItem mniMarkAsPrimaryComponent{mniComponents, "mniMarkAsPrimaryComponent",
                                     "Mark as primary component file"};
  MenuItem mniInsertComponent{mniComponents, "mniInsertComponent", "Insert component file"};
  MenuItem mniReplaceComponent{mniComponents, "mniReplaceComponent", "Replace component file"};
  MenuItem mniReplaceAllComponents{mniComponents, "mniReplaceAllComponents", "Replace all component files"};
  MenuItem mniDeleteComponent{mniComponents, "mniDeleteComponent", "Delete component file"};
  MenuItem mniEditComponent{mniComponents, "mniEditComponent", "Edit component file"};
  MenuItem b6{mnuEdit, "b6", MenuItem::kSeparator};
  MenuItem mnuMark{mnuEdit, "mnuMark", "&Mark Info Object as..."};
  MenuItem mniToBeTranslated{mnuMark, "mniToBeTranslated", "to be translated", "F2"};
  MenuItem mniInProgress{mnuMark, "mniInProgress", "in progress", "F3"};
  MenuItem mniCompleted{mnuMark, "mniCompleted", "completed", "F4"};
  MenuItem mnuView{*this, "mnuView", "&View"};
  MenuItem mniShortView{mnuView, "mniShortView", "&Short view"};
  MenuItem mniDetailedView{mnuView, "mniDetailedView", "&Detailed view"};
  MenuItem b71{mnuView, "b71", MenuItem::kSeparator};
  MenuItem mniRefresh{mnuView, "mniRefresh", "&Refresh", "F5"};
  MenuItem mnuTools{*this, "mnuTools", "&Tools"};
  MenuItem mniOptions{mnuTools, "mniOptions", "&Options..."};
  MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
  MenuItem mniHelp{mnuHelp, "mniHelp", "&Help on ORB Quillbank Translator", "F1"};
  MenuItem b3{mnuHelp, "b3", MenuItem::kSeparator};
  MenuItem mniTechnicalSupport{mnuHelp, "mniTechnicalSupport", "Technical &Support"};
  MenuItem mniOrbOnTheWWW{mnuHelp, "mniOrbOnTheWWW", "ORB on the World Wide &Web"};
  MenuItem mniORBQBOnline{mnuHelp, "mniORBQBOnline", "ORB Quillbank online"};
  MenuItem b4{mnuHelp, "b4", MenuItem::kSeparator};
  MenuItem mniAbout{mnuHelp, "mniAbout", "&About ORB Quillbank Translator..."};
  MenuItem b5{mnuHelp, "b5", MenuItem::kSeparator};
  MenuItem mniDebug{mnuHelp, "mniDebug", "Enter &Debugger"};
  MenuItem mniTrace{mnuHelp, "mniTrace", "&Trace"};
};

}  // namespace qb
