#include "ui/frmSplash.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmSplash::frmSplash() : Form("frmSplash") {
  lblVersion.TextFont = Font{"Arial", 0, 1, true};
}

void frmSplash::QBL_InitLText() {
  lblVersion.Caption = QBL_LText("QB.QBTRANSLAT.FRMSPLASH.000.LBLVERSIONCAPTI001820.C.00001|Version");
}

}  // namespace qb
