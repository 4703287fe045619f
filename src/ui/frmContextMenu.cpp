#include "ui/frmContextMenu.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmContextMenu::frmContextMenu() : Form("frmContextMenu", "Context menu") {
  mniAssignTranslatedFile.Visible = false;
  mniTranslateProperties.Visible = false;
}

void frmContextMenu::QBL_InitLText() {
  Caption = QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.FRMCONTEXTMENUC002235.C.00001|Context menu");
  mnuContextMenu.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUC002246.C.00002|Context menu");
  mniCopy.Caption = QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM003027.C.00003|Copy selection");
  mniTranslate.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM003558.C.00004|Translate Content with Editor");
  mniAssignTranslatedFile.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM004655.C.00005|Assign Translated File");
  mniTranslateTitle.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM004072.C.00006|Translate Title");
  mniTranslateProperties.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM004627.C.00007|Translate Properties");
  mniToBeTranslated.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM004020.C.00008|Mark as 'to be translated'");
  mniInProgress.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM003652.C.00009|Mark as 'in progress'");
  mniCompleted.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNUCONTEXTMENUM003541.C.00010|Mark as 'completed'");
}

}  // namespace qb
