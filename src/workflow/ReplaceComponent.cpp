#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/FileChooser.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr int kOrdinaryFiles = 0;

/// Brings the chosen file into the document's folder, unless one of its name stands beside the old file.
bool BringIn(CLoioEntry& loio, const std::string& chosen, const std::string& oldFull) {
  const std::string name = FileNameOf(chosen);
  if (FileExists(DirectoryOf(oldFull) + "\\" + name, kOrdinaryFiles)) return true;
  const std::string target = DstPathOf(loio, name);
  if (!MayChange(target)) return false;
  if (CopyFileOver(chosen, target)) return true;
  MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00052|Could not copy file: ") +
         chosen);
  loio.CancelTransition();
  return false;
}

/// Takes the old file away from disk and list. Each step runs whatever became of the one before it. A new
/// file of the same name is the one that goes here: stays so.
void TakeOldAway(CLoioEntry& loio, const std::string& oldFull, const std::string& component) {
  const bool deleted = Attempt([&] { DeleteEvenIfReadOnly(oldFull); });
  const bool removed = Attempt([&] { loio.RemoveDstFile(component); });
  Err.Clear();
  if (deleted && removed) return;
  MsgBox(QBL_LText(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00053|Old file could not be deleted"));
}

void Save(CLoioEntry& loio, const std::string& key) {
  if (!loio.SavePhioFiles(role::kDstCurr)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00055|Could not write to PXF"));
    return;
  }
  loio.ContentEditTransition();
  loio.SaveTransition();
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00054|Replacing component file: ") +
          key,
      0, false, false);
  Trace(1, "TranslateMod", "QbtReplaceComponent", "REPLACE COMPONENT: {}", key);
  gPxfFile->UpdateFileSize();
}

void Replace() {
  const auto old = SelectedComponentToChange(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00049|Component file not found (",
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00050|Path for object not found");
  if (!old) return;
  const auto& [key, component, loio, file] = *old;
  const std::string oldExtension = ExtensionOf(file->FileName);
  const std::string oldFull = DstPathOf(*loio, file->FileName);
  const std::string chosen = GetMultimediaFile(oldExtension, true, {});
  if (chosen.empty()) return;
  if (!MayChange(oldFull) || !SaveFirstState(*loio)) return;
  if (file->FileFormat == kPrimaryFormat && ExtensionOf(chosen) != oldExtension) {
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00051|File extensions must not "
                  "differ"));
    return;
  }
  if (!BringIn(*loio, chosen, oldFull)) return;
  TakeOldAway(*loio, oldFull, component);
  const std::string newName = FileNameOf(chosen);
  loio->AddDstFile(newName, key);
  Save(*loio, key);
  SelectInTree(key + "_" + newName);
}

}  // namespace

void QbtReplaceComponent() {
  Attempt(Replace);
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACECOMPO001957.T.00056|An error has occurred attempting to "
      "replace a component file: #%1: %2";
  ReportCommand("QbtReplaceComponent", {kError, kError});
}

}  // namespace qb
