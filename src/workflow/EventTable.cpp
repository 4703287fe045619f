#include "workflow/EventTable.h"

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmAbout.h"
#include "ui/frmAttributeTranslation.h"
#include "ui/frmContextMenu.h"
#include "ui/frmFileCheckinDialog.h"
#include "ui/frmOptions.h"
#include "ui/frmQBTranslator.h"
#include "ui/frmSplash.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/AboutDialog.h"
#include "workflow/AssignTranslatedFile.h"
#include "workflow/AttributeDialog.h"
#include "workflow/ComponentCommands.h"
#include "workflow/CopySelection.h"
#include "workflow/DocumentCommands.h"
#include "workflow/HelpMod.h"
#include "workflow/OpenPackage.h"
#include "workflow/OptionsDialog.h"
#include "workflow/Selection.h"
#include "workflow/Settings.h"
#include "workflow/TitleDialog.h"
#include "workflow/TranslateMod.h"
#include "workflow/WindowEvents.h"

namespace qb {
namespace {

using Command = void (*)();

/// A command as an event runs it: what it does not catch itself is reported, not let through to the toolkit.
template <class... Arguments, class Body>
std::function<void(Arguments...)> Guarded(const Control& control, std::string_view event, Body body) {
  return [procedure = control.Name() + "_" + std::string(event), form = control.Owner().Name(),
          body](Arguments... arguments) {
    if (!Attempt([&] { body(arguments...); })) gRvdError(form, procedure);
  };
}

struct MenuBinding {
  MenuItem* item;
  Command command;
};

void BindMenu(std::initializer_list<MenuBinding> bindings) {
  for (const MenuBinding& binding : bindings)
    binding.item->Click = Guarded(*binding.item, "Click", binding.command);
}

void RunTranslate() {
  QbtTranslate();
}

void RunInsertComponent() {
  bool cancelled = false;
  std::string file;
  QbtInsertComponent(cancelled, file);
}

void BindMainMenu(frmQBTranslator& form) {
  BindMenu({{&form.mniOpen, [] { QbtOpen(""); }},
            {&form.mniCheckIn, QbtCheckIn},
            {&form.mniPrint, QbtPrint},
            {&form.mniExit, [] { QbtQuit(false); }},
            {&form.mniCopy, QbtCopy},
            {&form.mniTranslate, RunTranslate},
            {&form.mniAssignTranslatedFile, QbtAssignTranslatedFile},
            {&form.mniMarkAsPrimaryComponent, QbtMarkComponentAsPrimary},
            {&form.mniInsertComponent, RunInsertComponent},
            {&form.mniReplaceComponent, QbtReplaceComponent},
            {&form.mniReplaceAllComponents, QbtReplaceAllComponents},
            {&form.mniDeleteComponent, QbtDeleteComponent},
            {&form.mniTranslateProperties, QbtTranslateProperties},
            {&form.mniTranslateTitle, QbtTranslateTitle},
            {&form.mniToBeTranslated, QbtMarkToBeTranslated},
            {&form.mniInProgress, QbtMarkInProgress},
            {&form.mniCompleted, QbtMarkCompleted},
            {&form.mniShortView, [] { QbtSetViewDetailed(false); }},
            {&form.mniDetailedView, [] { QbtSetViewDetailed(true); }},
            {&form.mniRefresh, QbtRefresh},
            {&form.mniOptions, ShowOptions},
            {&form.mniHelp, QbtOnlineHelp},
            {&form.mniTechnicalSupport, QbtTechnicalSupport},
            {&form.mniOrbOnTheWWW, QbtOrbOnTheWorldWideWeb},
            {&form.mniAbout, ShowAbout},
            {&form.mniDebug, StopInDebugger},
            {&form.mniTrace, TraceClicked}});
  for (MenuItem& recent : form.recentFiles) {
    recent.Click = Guarded(recent, "Click", [&recent] { QbtOpen(StripMenuAccess(recent.Caption.Get())); });
  }
}

/// Commands of the tool bar by the index of the button, from 1.
void ToolbarClicked(int index) {
  switch (index) {
    case 1:
      QbtOpen("");
      break;
    case 4:
      QbtTranslate();
      break;
    case 5:
      QbtAssignTranslatedFile();
      break;
    case 7:
      QbtMarkToBeTranslated();
      break;
    case 8:
      QbtMarkInProgress();
      break;
    case 9:
      QbtMarkCompleted();
      break;
    case 11:
      QbtOnlineHelp();
      break;
    default:  // the others have no command
      break;
  }
}

void Bind(frmQBTranslator& form) {
  form.Load = [&form] { WindowLoaded(form); };
  form.QueryUnload = WindowAskedToUnload;
  form.Resize = [&form] { WindowResized(form); };
  BindMainMenu(form);
  form.Toolbar.ButtonClick = Guarded<int>(form.Toolbar, "ButtonClick", ToolbarClicked);
  form.TransPackTree.DblClick = Guarded(form.TransPackTree, "DblClick", RunTranslate);
  form.TransPackTree.KeyPress = Guarded<int>(form.TransPackTree, "KeyPress", TreeKeyPressed);
  form.TransPackTree.MouseUp = Guarded<int>(form.TransPackTree, "MouseUp", TreeMouseUp);
  form.lvInfoObjectList.DblClick = Guarded(form.lvInfoObjectList, "DblClick", RunTranslate);
  form.lvInfoObjectList.KeyPress = Guarded<int>(form.lvInfoObjectList, "KeyPress", ListKeyPressed);
  form.lvInfoObjectList.MouseUp = Guarded<int>(form.lvInfoObjectList, "MouseUp", ListMouseUp);
  form.sbcStatusBar.DblClick = Guarded(form.sbcStatusBar, "DblClick", StatusBarDoubleClicked);
  form.tmrTimer1.Tick = Guarded(form.tmrTimer1, "Timer", QbtRefresh);
}

void Bind(frmContextMenu& form) {
  form.Load = [&form] { FormLoaded(form); };
  BindMenu({{&form.mniCopy, QbtCopy},
            {&form.mniTranslate, RunTranslate},
            {&form.mniAssignTranslatedFile, QbtAssignTranslatedFile},
            {&form.mniToBeTranslated, QbtMarkToBeTranslated},
            {&form.mniInProgress, QbtMarkInProgress},
            {&form.mniCompleted, QbtMarkCompleted},
            {&form.mniTranslateTitle, QbtTranslateTitle},
            {&form.mniTranslateProperties, SayNotImplemented}});
}

void Bind(frmSplash& form) {
  form.Load = [&form] { SplashLoaded(form); };
  form.KeyPress = [&form](int) { TheToolkit().Unload(form, Form::kUnloadByCode); };
  form.tmrSplash.Tick = [&form] { TheToolkit().Unload(form, Form::kUnloadByCode); };
}

void Bind(frmAbout& form) {
  form.Load = [&form] { AboutLoaded(form); };
  form.cmdOK.Click = Guarded(form.cmdOK, "Click", [&form] { AboutConfirmed(form); });
  form.cmdSysInfo.Click = Guarded(form.cmdSysInfo, "Click", StartSysInfo);
  form.imgLogo.DragEnded = Guarded<int>(form.imgLogo, "OLECompleteDrag", AboutLogoDropped);
}

void Bind(frmOptions& form) {
  form.Load = [&form] { OptionsLoaded(form); };
  form.KeyDown = Guarded<int, int>(form, "KeyDown",
                                   [&form](int key, int shift) { OptionsKeyPressed(form, key, shift); });
  form.tbsOptions.Click = Guarded(form.tbsOptions, "Click", [&form] { OptionsTabSelected(form); });
  form.cmdApply.Click = Guarded(form.cmdApply, "Click", [&form] { SetOpt(form); });
  form.cmdOK.Click = Guarded(form.cmdOK, "Click", [&form] { OptionsConfirmed(form); });
  form.cmdCancel.Click = Guarded(form.cmdCancel, "Click", [&form] { OptionsCancelled(form); });
}

void Bind(frmTranslateTitle& form) {
  form.Load = [&form] { FormLoaded(form); };
  form.QueryUnload = [&form](int) { return TitleAskedToUnload(form); };
  form.btnOkay.Click = Guarded(form.btnOkay, "Click", [&form] { TitleOkPressed(form); });
  form.btnCancel.Click = Guarded(form.btnCancel, "Click", [&form] { TitleCancelPressed(form); });
}

void Bind(frmAttributeTranslation& form) {
  form.Load = [&form] { AttributesLoaded(form); };
  form.Unload = [&form] { AttributesUnloaded(form); };
  form.btnCopySource.Click = Guarded(form.btnCopySource, "Click", [&form] { AttributeSourceCopied(form); });
  form.btnReusePreviousTranslation.Click =
      Guarded(form.btnReusePreviousTranslation, "Click", [&form] { AttributePreviousReused(form); });
  form.btnDefault.Click = Guarded(form.btnDefault, "Click", [&form] { AttributeDefaultPressed(form); });
  form.btnOK.Click = Guarded(form.btnOK, "Click", [&form] { AttributesConfirmed(form); });
  form.btnCancel.Click = Guarded(form.btnCancel, "Click", [&form] { AttributesCancelled(form); });
}

void Bind(frmFileCheckinDialog& form) {
  form.Load = [&form] { FormLoaded(form); };
}

/// Binds `form` if it is of this kind.
template <class AnyForm>
bool BindIf(Form& form) {
  auto* own = dynamic_cast<AnyForm*>(&form);
  if (own != nullptr) Bind(*own);
  return own != nullptr;
}

}  // namespace

void BindEvents(Form& form) {
  BindIf<frmQBTranslator>(form) || BindIf<frmContextMenu>(form) || BindIf<frmSplash>(form) ||
      BindIf<frmFileCheckinDialog>(form) || BindIf<frmAbout>(form) || BindIf<frmOptions>(form) ||
      BindIf<frmTranslateTitle>(form) || BindIf<frmAttributeTranslation>(form);
}

}  // namespace qb
