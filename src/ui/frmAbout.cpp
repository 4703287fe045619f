#include "ui/frmAbout.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmAbout::frmAbout() : Form("frmAbout", "About") {
  cmdOK.Default = true;
  cmdOK.Cancel = true;
}

void frmAbout::QBL_InitLText() {
  Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.FRMABOUTCAPTION001596.C.00001|About");
  cmdOK.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.CMDOKCAPTION.C.00002|OK");
  cmdSysInfo.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.CMDSYSINFOCAPTI001787.C.00003|&System Info...");
  Label2.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.LABEL2CAPTION.C.00004|Translator");
  Label1.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.LABEL1CAPTION.C.00005|Copyright ORB AG. All rights reserved.");
  lblDescription.Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMABOUT.000.LBLDESCRIPTIONC002234.C.00006|Making your translation handling easier");
  lblTitle.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.LBLTITLECAPTION001592.C.00007|Quillbank");
  lblRelease.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.LBLRELEASECAPTI001783.C.00008|Version");
}

}  // namespace qb
