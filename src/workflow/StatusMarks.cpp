#include "foundation/Product.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/DocumentCommands.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr long kHelpContext = 1000;

/// One of the three marks: what is asked, done and said.
struct StatusMark {
  std::string_view procedure;
  std::string_view readOnlyText;
  std::string_view openText;
  bool onlyAsksUnchanged;  ///< asks with the second button as default, and goes on unless the answer is No
  TwoWordings confirmation;
  bool (CLoioEntry::*transition)();
  std::string_view failureText;
  TwoWordings progressText;
  std::string_view traceText;
  TwoWordings errorText;
};

constexpr StatusMark kMarkInProgress{
    "QbtMarkInProgress",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00008|Cannot change progress status of a "
    "read-only object",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00009|Cannot change open status for object",
    true,
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00010|Are you sure to re-define the status of "
     "this object from 'unchanged' to 'in progress'?",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00110|Are you sure to re-define the status of "
     "this object from 'unchanged' to 'in progress'?"},
    &CLoioEntry::ChangedTransition,
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00011|State change failed",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00012|Setting document status to 'in "
     "progress': ",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00107|Setting document status to 'in "
     "progress': "},
    "SET IN_PROGRESS: ",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00013|An error has occurred while setting "
     "document status to 'in progress': #%1: %2",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKINPROGRE001741.T.00105|An error has occurred while setting "
     "document status to 'in progress': #%1: %2"}};

constexpr StatusMark kMarkToBeTranslated{
    "QbtMarkToBeTranslated",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00014|Cannot change progress status of a "
    "read-only object",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00015|Cannot change open status for object",
    false,
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00016|Are you sure to set the status of this "
     "document back to 'in translation'?",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00109|Are you sure to set the status of this "
     "document back to 'to be localiced'?"},
    &CLoioEntry::UnchangedTransition,
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00017|State change failed",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00018|Setting document status to 'in "
     "translation': ",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00108|Setting document status to 'to be "
     "localized': "},
    "SET TO_BE_TRANSLATED: ",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00019|An error has occurred while setting "
     "document status to 'in translation': #%1: %2",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKTOBETRAN002109.T.00111|An error has occurred while setting "
     "document status to 'to be localized': #%1: %2"}};

constexpr StatusMark kMarkCompleted{
    "QbtMarkCompleted",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00020|Cannot change progress status of a "
    "read-only object",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00021|Cannot change open status for object",
    true,
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00022|Are you sure to re-define the status of "
     "this object from 'unchanged' to 'complete'?",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00112|Are you sure to re-define the status of "
     "this object from 'unchanged' to 'complete'?"},
    &CLoioEntry::CompleteTransition,
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00023|State change failed",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00024|Setting status to 'completed': ",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00113|Setting status to 'completed': "},
    "SET COMPLETED: ",
    {"QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00025|An error has occurred while setting "
     "document status to 'completed': #%1: %2",
     "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPLETE001630.T.00114|An error has occurred while setting "
     "document status to 'completed': #%1: %2"}};

bool Confirmed(const StatusMark& mark, const CLoioEntry& loio) {
  if (!mark.onlyAsksUnchanged) return MsgBox(mark.confirmation.Text(), box::kYesNo) == box::kYes;
  if (!loio.state->isUnchanged()) return true;
  MessageBoxRequest request;
  request.text = mark.confirmation.Text();
  request.style = box::kYesNo | box::kQuestion | box::kSecondButtonDefault;
  request.title = std::string(kProductName);
  request.helpFile = gHelpFile;
  request.helpContext = kHelpContext;
  return ThePlatform().messageBoxes->Show(request) != box::kNo;
}

void Apply(const StatusMark& mark) {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return;
  const auto loio = gLoios->Item(key);
  gEditorSlots->CheckSlots();
  if (loio->state->isReadOnly()) {
    MsgBox(QBL_LText(mark.readOnlyText));
    return;
  }
  if (loio->state->IsOpen()) {
    MsgBox(QBL_LText(mark.openText));
    return;
  }
  if (!Confirmed(mark, *loio)) return;
  if (!((*loio).*mark.transition)()) {
    MsgBox(QBL_LText(mark.failureText));
    return;
  }
  gMessageHandler->Message(mark.progressText.Text() + key, 0, false, false);
  Trace(1, "TranslateMod", mark.procedure, "{}{}", mark.traceText, key);
  gPxfFile->UpdateFileSize();
}

void Run(const StatusMark& mark) {
  Attempt([&] { Apply(mark); });
  ReportCommand(mark.procedure, mark.errorText);
}

}  // namespace

void QbtMarkInProgress() {
  Run(kMarkInProgress);
}

void QbtMarkToBeTranslated() {
  Run(kMarkToBeTranslated);
}

void QbtMarkCompleted() {
  Run(kMarkCompleted);
}

}  // namespace qb
