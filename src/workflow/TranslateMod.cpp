#include "workflow/TranslateMod.h"

#include "editors/EditorQuestions.h"
#include "foundation/EventLoop.h"
#include "foundation/FoundationState.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmQBTranslator.h"
#include "ui/frmSplash.h"
#include "workflow/EventTable.h"
#include "workflow/HelpMod.h"
#include "workflow/OpenPackage.h"
#include "workflow/Settings.h"

namespace qb {

std::int32_t gSessionNumber = 0;
std::int32_t gTimerInterval = 0;
bool gViewDetailed = false;
bool gTraceOn = false;
bool gMessageHandlerReady = false;
std::string gHelpFile;
std::string gWebBrowser;
std::string gInstallationPath;
std::string gProgramGroup;
std::string gLastFile1;
std::string gLastFile2;
std::string gLastFile3;
std::string gLastFile4;
std::int32_t gRecentCount = 0;
std::string gTraceFile;
bool gQuitting = false;
std::string gPhase;
std::string gTitleDialogResult;

namespace {

constexpr std::string_view kModule = "TranslateMod";

/// Answers what lower rooms ask of higher ones.
void AnswerQuestions() {
  TheForms().Binder = BindEvents;
  gProcessPendingEvents = [] { TheToolkit().ProcessPendingEvents(); };
  gProtocolDirectory.packageExists = [] { return gPxfFile != nullptr; };
  gProtocolDirectory.packageDirectory = [] { return gPxfFile->GetPxfPath(); };
  gModelQuestions.newEditorSlots = [] { gEditorSlots = std::make_shared<CEditorSlots>(); };
  gModelQuestions.quitProgram = QbtQuit;
}

void ShowSplash() {
  auto& splash = Default<frmSplash>();
  splash.lblVersion.Caption = "Version " + ProductVersion();
  TheToolkit().Show(splash);
  while (splash.Visible) TheToolkit().ProcessPendingEvents();
}

void PrepareWindow() {
  auto& form = Default<frmQBTranslator>();
  form.mniDebug.Visible = false;
  form.mniTrace.Checked = gTraceOn;
  gTrace->Active = gTraceOn;
  QbtSetViewDetailed(gViewDetailed);
}

void RunMain(std::string_view commandTail) {
  gTrace = std::make_unique<CTrace>();
  gTrace->Level = 3;
  if (gPxfFile == nullptr) gPxfFile = std::make_shared<CPxfFile>();
  SetBusyCursor();
  ShowSplash();
  QbtGetRegistrySettings();
  PrepareWindow();
  gTrace->OpenLog(gTraceFile);
  Trace(1, kModule, "Main", "ORB Quillbank Translator {} initiated", ProductVersion());
  Trace(2, kModule, "Main", "->");
  QBL_InitLanguage(gInstallationPath, "QuillbankTranslator", ProductVersion(), gInterfaceLanguage);
  InitAllForms();
  ApplySettings(gInterfaceLanguage, gUserID, gTimerInterval);
  DisableCommands();
  gMessageHandler = std::make_unique<CMessageHandler>();
  gMessageHandlerReady = true;
  if (!commandTail.empty()) QbtOpen(commandTail);
  gQuitting = false;
  gPhase = "INIT";
  TheToolkit().Show(Default<frmQBTranslator>());
  SetNormalCursor();
}

}  // namespace

void SetBusyCursor() {
  ThePlatform().mousePointer->Set(MousePointer::kHourglass);
}

void SetNormalCursor() {
  ThePlatform().mousePointer->Set(MousePointer::kDefault);
}

void Main(std::string_view commandTail) {
  AnswerQuestions();
  if (Attempt([&] { RunMain(commandTail); })) return;
  TracePendingError(kModule, "Main");
  gRvdError(kModule, "Main");
}

void ResetProgramState() {
  gMultiTerm.reset();
  gTwb.reset();
  gEditorSlots.reset();
  gLoios.reset();
  gPxfFile.reset();
  ResetFoundationState();
  TheForms().Clear();
  gModelQuestions = {};
  gEditorQuestions = {};
  gVisioWindows = 0;
  gSessionStamp.clear();
  gSessionNumber = gTimerInterval = gRecentCount = 0;
  gViewDetailed = gTraceOn = gMessageHandlerReady = gQuitting = false;
  for (std::string* text :
       {&gUserID, &gHelpFile, &gWebBrowser, &gInstallationPath, &gProgramGroup, &gLastFile1, &gLastFile2,
        &gLastFile3, &gLastFile4, &gTraceFile, &gPhase, &gTitleDialogResult}) {
    text->clear();
  }
  Err.Clear();
}

}  // namespace qb
