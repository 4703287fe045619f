#include "ui/frmOptions.h"

#include "foundation/modMultiLanguage.h"

namespace qb {

frmOptions::frmOptions() : Form("frmOptions", "ORB Quillbank Translator: Options") {
  tbsOptions.AddTab("General").ToolTipText = std::string("Set general options");
  for (std::size_t i = 1; i < picOptions.size(); ++i) picOptions[i].Visible = false;
  // Stands beside the language on a page that has no tab.
  Label1.Visible = false;
  for (Frame* sample : {&fraSample4, &fraSample3, &fraSample2}) sample->Visible = false;
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  OnScreenCentre = true;
}

void frmOptions::QBL_InitLText() {
  Caption = QBL_LText(
      "QB.QBTRANSLAT.FRMOPTIONS.000.FRMOPTIONSCAPTI001837.C.00001|ORB Quillbank Translator: Options");
  fraUserInterface.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.FRAUSERINTERFAC002405.C.00002|User Interface Settings");
  lblRefreshInterval.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.LBLREFRESHINTER002634.C.00003|Refresh after");
  lblMs.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.LBLMSCAPTION.C.00004|ms");
  lblLanguage.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.LBLLANGUAGECAPT001882.C.00005|Language");
  fraU.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.FRAUCAPTION.C.00006|User");
  lblUserID.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.LBLUSERIDCAPTIO001634.C.00007|User ID");
  fraSample4.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.FRASAMPLE4CAPTI001739.C.00008|Sample 4");
  fraSample3.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.FRASAMPLE3CAPTI001738.C.00009|Sample 3");
  fraSample2.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.FRASAMPLE2CAPTI001737.C.00010|Sample 2");
  cmdApply.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.CMDAPPLYCAPTION001590.C.00011|Apply");
  cmdCancel.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.CMDCANCELCAPTIO001654.C.00012|Cancel");
  cmdOK.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.CMDOKCAPTION.C.00013|OK");
  TabStrip::Tab& general = tbsOptions.Tabs(1);
  general.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.TBSOPTIONSTABS1002411.C.00014|General");
  general.ToolTipText =
      QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.TBSOPTIONSTABS1002829.C.00015|Set general options");
  Label1.Caption = QBL_LText("QB.QBTRANSLAT.FRMOPTIONS.000.LABEL1CAPTION.C.00016|Language");
}

}  // namespace qb
