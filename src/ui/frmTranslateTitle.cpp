#include "ui/frmTranslateTitle.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmTranslateTitle::frmTranslateTitle() : Form("frmTranslateTitle", "Translate Title") {
  ctlTitleOrig.Locked = true;
  btnOkay.Default = true;
  btnCancel.Cancel = true;
}

void frmTranslateTitle::QBL_InitLText() {
  Caption = QBL_LText("QB.QBTRANSLAT.FRMTRANSLATE.000.FRMTRANSLATETIT002545.C.00001|Translate Title");
  btnCancel.Caption = QBL_LText("QB.QBTRANSLAT.FRMTRANSLATE.000.BTNCANCELCAPTIO001670.C.00002|Cancel");
  btnOkay.Caption = QBL_LText("QB.QBTRANSLAT.FRMTRANSLATE.000.BTNOKAYCAPTION.C.00003|Ok");
  Label1.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMTRANSLATE.000.LABEL1CAPTION.C.00004|Title in the original language:");
  Label2.Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMTRANSLATE.000.LABEL2CAPTION.C.00005|Please enter the translated title for the Info "
      "Object:");
}

}  // namespace qb
