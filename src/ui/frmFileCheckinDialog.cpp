#include "ui/frmFileCheckinDialog.h"

#include "foundation/modMultiLanguage.h"

namespace qb {
namespace {

void SetControlTexts(frmFileCheckinDialog& form) {
  form.btnCancel.Caption = QBL_LText("QB.QBTRANSLAT.FRMFILECHECK.000.BTNCANCELCAPTIO001670.C.00002|Cancel");
  form.lblText.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMFILECHECK.000.LBLTEXTCAPTION.C.00003|Copying of documents in progress:");
}

}  // namespace

frmFileCheckinDialog::frmFileCheckinDialog()
    : Form("frmFileCheckinDialog", "Quillbank Translator: Checkin File As Translation") {
  ctlCurrentFile.Locked = true;
  btnCancel.Enabled = false;  // a check-in cannot be stopped half way
}

void frmFileCheckinDialog::QBL_InitLText() {
  Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMFILECHECK.000.FRMFILECHECKIND002758.C.00001|Quillbank Translator: Checkin File As "
      "Translation");
  SetControlTexts(*this);
}

void frmFileCheckinDialog::QBL_InitLText_Localization() {
  Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMFILECHECK.000.FRMFILECHECKIND002758.C.00004|Quillbank Translator: Checkin File As "
      "Localized");
  SetControlTexts(*this);
}

}  // namespace qb
