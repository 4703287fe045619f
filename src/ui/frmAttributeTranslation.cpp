#include "ui/frmAttributeTranslation.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmAttributeTranslation::frmAttributeTranslation()
    : Form("frmAttributeTranslation", "Quillbank Translator: Translate Attributes") {
  for (TextBox* shown : {&AttributeName, &SourceValue, &PreviousTranslation}) shown->Locked = true;
  btnCancel.Cancel = true;
}

void frmAttributeTranslation::QBL_InitLText() {
  Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMATTRIBUTE.000.FRMATTRIBUTETRA003204.C.00001|Quillbank Translator: Translate "
      "Attributes");
  btnCopySource.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.BTNCOPYSOURCECA002124.C.00002|Copy Source Language Text");
  btnReusePreviousTranslation.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.BTNREUSEPREVIOU003632.C.00003|Reuse Previous Translation");
  btnCancel.Caption = QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.BTNCANCELCAPTIO001670.C.00004|Cancel");
  btnOK.Caption = QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.BTNOKCAPTION.C.00005|OK");
  lblPreviousTranslation.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.LBLPREVIOUSTRAN003106.C.00006|Previous Translation:");
  lblTargetValue.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.LBLTARGETVALUEC002202.C.00007|Value in Target Language:");
  lblSourceValue.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.LBLSOURCEVALUEC002212.C.00008|Value in Source Language:");
  lblAttributeName.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMATTRIBUTE.000.LBLATTRIBUTENAM002411.C.00009|Attribute Name:");
}

}  // namespace qb
