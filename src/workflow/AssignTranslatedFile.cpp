#include "workflow/AssignTranslatedFile.h"

#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmFileCheckinDialog.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/FileChooser.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";
constexpr std::string_view kProcedure = "QbtAssignTranslatedFile";
constexpr int kOrdinaryFiles = 0;
constexpr int kBarLength = 100;

constexpr TwoWordings kProgressText{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00072|Assigning translated file: ",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00119|Assigning localized file: "};
constexpr TwoWordings kErrorText{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00076|An error has occurred while checkin in "
    "file "
    "as translation: #%1: %2",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00106|An error has occurred while checkin in "
    "file "
    "as localization: #%1: %2"};

/// Where a check-in leads to.
enum class Outcome { kStopped, kCheckedIn };

std::string UpperExtension(std::string_view path) {
  return UpperCase(ExtensionOf(path));
}

void CancelOrSay(CLoioEntry& loio, std::string_view failureKey) {
  if (!loio.CancelTransition()) MsgBox(QBL_LText(failureKey));
}

/// The file to check in, of the format of the document's source. Empty, with the transition taken back, if
/// there is none.
std::string ChooseFile(CLoioEntry& loio) {
  constexpr std::string_view kNotTakenBack =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00070|State change failed";
  const std::string extension = UpperExtension(loio.GetSourceFileName());
  std::string file = GetMultimediaFile(extension, true, {});
  if (file.empty()) {
    CancelOrSay(loio, kNotTakenBack);
  } else if (UpperExtension(file) != extension) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00067|Wrong format"));
    CancelOrSay(loio, "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00068|State change failed");
    file.clear();
  } else if (!FileExists(file, kOrdinaryFiles)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00069|File does not exist"));
    CancelOrSay(loio, kNotTakenBack);
    file.clear();
  }
  return file;
}

/// Says that the file could not be copied. The edit state is not taken back: stays so.
void SayCopyFailure() {
  MessageBoxRequest request;
  request.text =
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00073|Error during check-in of file");
  request.style = box::kExclamation;
  request.title = std::string(kProductName);
  request.helpFile = gHelpFile;
  ThePlatform().messageBoxes->Show(request);
}

/// Puts the file in the place of the document's translation.
Outcome CheckIn(CLoioEntry& loio, const std::string& key, const std::string& file) {
  auto& dialog = Default<frmFileCheckinDialog>();
  TheToolkit().Show(dialog);
  ShowCheckinProgress();
  SetCheckinProgress(0.25);
  const std::string target = JoinFile(gPxfFile->GetPxfPath(), loio.GetTranslationFileName());
  dialog.ctlCurrentFile.Text = target;
  TheToolkit().Repaint(dialog);
  if (!MayChange(target)) {
    loio.CancelTransition();
    return Outcome::kStopped;
  }
  if (!ReplaceFile(file, target)) {
    SayCopyFailure();
    return Outcome::kStopped;
  }
  SetCheckinProgress(0.5);
  if (!loio.SaveTransition()) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00071|State change failed"));
    return Outcome::kStopped;
  }
  loio.MarkDstFileAsPrimary(target);
  loio.SavePLState();
  SetCheckinProgress(0.75);
  gPxfFile->UpdateFileSize();
  SetCheckinProgress(1.0);
  gMessageHandler->Message(kProgressText.Text() + key, 0, false, false);
  Trace(1, kModule, kProcedure, "CHECKIN MM: {}", key);
  TheToolkit().Hide(dialog);
  return Outcome::kCheckedIn;
}

/// Asks, in a wording that is never translated, whether further files follow.
int AskForFurther(const std::string& checkedIn) {
  return MsgBox(checkedIn + "\r\nDo any further files belong to the translation?",
                box::kYesNoCancel | box::kQuestion);
}

/// Adds further files as long as the user wants. False if the user left the chooser without one.
bool InsertFurtherFiles(std::string file) {
  int count = 1;
  int answer =
      AskForFurther(QBL_FormatText("You have successfully checked in file '%1' as primary component.", file));
  while (answer == box::kYes) {
    bool cancelled = false;
    const bool inserted = QbtInsertComponent(cancelled, file);
    if (cancelled) return false;
    if (!inserted) throw RuntimeError(failure::kOwn, std::string(kProcedure), "Insert component failt");
    ++count;
    answer = AskForFurther(QBL_FormatText("You have successfully checked in file '%1' as file #%2.", file,
                                          std::to_string(count)));
  }
  MsgBox(answer == box::kCancel ? "Insertion of further files cancelled."
                                : "Operation completed successfully");
  return true;
}

/// False if the command ends at once, with the timers off.
bool Assign() {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return true;
  const auto loio = DocumentToChange(key);
  if (loio == nullptr) return true;
  if (!loio->ContentEditTransition()) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00066|State change failed"));
    return true;
  }
  const std::string file = ChooseFile(*loio);
  if (file.empty() || CheckIn(*loio, key, file) == Outcome::kStopped) return true;
  return InsertFurtherFiles(file);
}

}  // namespace

void ShowCheckinProgress() {
  auto& dialog = Default<frmFileCheckinDialog>();
  ProgressBar& bar = dialog.ctlProgressBar;
  bar.Max = kBarLength;
  bar.Min = 0;
  bar.Value = bar.Min;
  bar.Visible = true;
  TheToolkit().Repaint(dialog);
}

void SetCheckinProgress(double fraction) {
  auto& dialog = Default<frmFileCheckinDialog>();
  ProgressBar& bar = dialog.ctlProgressBar;
  while (bar.Value < bar.Max * fraction) bar.Value = bar.Value + 1;
  TheToolkit().Repaint(dialog);
}

void QbtAssignTranslatedFile() {
  StopTimers();
  bool ended = true;
  Attempt([&] { ended = Assign(); });
  if (!ended) return;  // the timers stay off until a later command starts them
  ReportCommand(kProcedure, kErrorText);
  TheToolkit().Hide(Default<frmFileCheckinDialog>());
  StartTimers();
}

}  // namespace qb
