#include "editors/EditorQuestions.h"
#include "foundation/Product.h"
#include "foundation/gRvdError.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmQBTranslator.h"
#include "workflow/CommandReport.h"
#include "workflow/Settings.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";

/// The unconditional teardown. Does not return unless a step fails.
void int_Quit() {
  const bool done = Attempt([] {
    // The package goes first, so that the test after it never fires and no size is written at the end: stays
    // so.
    gPxfFile.reset();
    if (gPxfFile != nullptr) gPxfFile->UpdateFileSize();
    QbtSetRegistrySettings();
    if (gMultiTerm != nullptr) gMultiTerm->Quit();
    gMultiTerm.reset();
    if (gTwb != nullptr) gTwb->Quit();
    gTwb.reset();
    gMessageHandler.reset();
    TheToolkit().Unload(Default<frmQBTranslator>(), Form::kUnloadByCode);
    gTwb.reset();
    gLoios.reset();
    gEditorSlots.reset();
    gPxfFile.reset();
    gMessageHandler.reset();
    if (gEditorQuestions.endOffice) gEditorQuestions.endOffice();
    gTrace.reset();
    TheToolkit().EndProcess();
  });
  if (done) return;
  TracePendingError(kModule, "int_Quit");
  gRvdError(kModule, "int_Quit");
}

bool UserWantsToQuit() {
  const std::string question = QBL_LText(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTQUIT.T.00091|Do you really want to quit Quillbank Translator?");
  return MsgBox(question, box::kYesNo) == box::kYes;
}

void Quit(bool force) {
  if (gPxfFile == nullptr) force = true;
  const auto slots = gEditorSlots;
  if (slots == nullptr || slots->CheckSlots()) {
    int_Quit();
    return;
  }
  if (!force && !UserWantsToQuit()) return;
  slots->CloseAllSlots(true);
  int_Quit();
}

}  // namespace

void QbtQuit(bool force) {
  if (StoppedByVisioWindows()) return;
  if (gQuitting) return;  // the unload event that the teardown itself raises
  gQuitting = true;
  const bool done = Attempt([force] { Quit(force); });
  gQuitting = false;  // the program goes on, and may be asked again
  if (done) return;
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTQUIT.T.00093|An error has occurred during "
      "program termination: #%1: %2";
  ReportCommand("QbtQuit", {kError, kError});
}

}  // namespace qb
