#include "workflow/WindowEvents.h"

#include "foundation/Product.h"
#include "platform/Platform.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmContextMenu.h"
#include "workflow/DocumentCommands.h"
#include "workflow/HelpMod.h"
#include "workflow/Selection.h"
#include "workflow/Settings.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr int kReturn = 13;
constexpr int kRightButton = 2;

// Twips that the window's borders, title and menu take.
constexpr int kBorderWidth = 100;
constexpr int kBorderHeight = 660;

}  // namespace

void FormLoaded(Form& form) {
  QBL_SetFormFont(form);
  if (gPxfFile != nullptr && gPxfFile->IsLocalizationPackage()) {
    form.QBL_InitLText_Localization();
  } else {
    form.QBL_InitLText();
  }
}

void WindowLoaded(frmQBTranslator& form) {
  FormLoaded(form);
  Default<frmAbout>().lblRelease.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMQBTRANSLA.000.FORM_LOAD.T.00050|Version") + " " + ProductVersion();
  form.tmrTimer1.Interval = gTimerInterval;
}

void AboutLoaded(frmAbout& form) {
  FormLoaded(form);
  form.Caption = QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.FORM_LOAD.T.00009|About ") + std::string(kProductName);
  form.lblRelease.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMABOUT.000.FORM_LOAD.T.00010|Version ") + ProductVersion();
  form.lblTitle.Caption = std::string(kProductName);
}

void SplashLoaded(frmSplash& form) {
  FormLoaded(form);
  // The fixed number is part of the text; the start overwrites the label right afterwards.
  form.lblVersion.Caption =
      QBL_LText("QB.QBTRANSLAT.FRMSPLASH.000.FORM_LOAD.T.00002|Version 0.0.0") + " " + ProductVersion();
}

bool WindowAskedToUnload(int reason) {
  QbtQuit(reason == Form::kUnloadByTaskManager || reason == Form::kUnloadByOwner);
  return true;
}

void WindowResized(frmQBTranslator& form) {
  const int toolbar = form.Toolbar.Place.Get().height;
  const int statusBar = form.sbcStatusBar.Place.Get().height;
  form.TransPackTree.Place = Bounds{0, toolbar, form.Place.width - kBorderWidth,
                                    form.Place.height - toolbar - statusBar - kBorderHeight};
  form.TransPackTree.Visible = true;  // whatever the view: stays so
}

void TreeKeyPressed(int character) {
  const TreeNode* node = Default<frmQBTranslator>().TransPackTree.SelectedItem();
  if (character == kReturn && node != nullptr && node->Key() != "@ROOT") QbtTranslate();
}

void TreeMouseUp(int button) {
  if (button != kRightButton) return;
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return;
  auto& form = Default<frmQBTranslator>();
  const std::string component = GetComponentFromSelection(true);
  const bool readOnly = gLoios->Item(key)->isReadOnly();
  if (component.empty()) {
    if (!readOnly) TheToolkit().PopupMenu(form.mniComponents);
    return;
  }
  auto& context = Default<frmContextMenu>();
  context.mniTranslate.Caption =
      readOnly ? "View Content"
               : QBL_LText(
                     "QB.QBTRANSLAT.FRMQBTRANSLA.000.MNUEDITMNITRANS002802.C.00021|&Translate Content with "
                     "Editor");
  TheToolkit().PopupMenu(context.mnuContextMenu);
}

void ListKeyPressed(int character) {
  if (character == kReturn) QbtTranslate();
}

void ListMouseUp(int button) {
  if (button == kRightButton) TheToolkit().PopupMenu(Default<frmContextMenu>().mnuContextMenu);
}

void StatusBarDoubleClicked() {
  if (!Default<frmQBTranslator>().sbcStatusBar.SimpleText.Get().empty()) QbtShow();
}

void StopInDebugger() {
  ThePlatform().debugger->Stop();
}

void SayNotImplemented() {
  MsgBox(QBL_LText("QB.QBTRANSLAT.FRMCONTEXTME.000.MNITRANSLATEPRO002916.T.00011|Not implemented yet"));
}

void TraceClicked() {
  ToggleTrace();
  Default<frmQBTranslator>().mniTrace.Checked = GetTraceFlag();
  SetStatusText(GetTraceFlag()
                    ? QBL_LText("QB.QBTRANSLAT.FRMQBTRANSLA.000.MNITRACE_CLICK.T.00051|Trace is now on")
                    : QBL_LText("QB.QBTRANSLAT.FRMQBTRANSLA.000.MNITRACE_CLICK.T.00052|Trace is now off"));
}

}  // namespace qb
