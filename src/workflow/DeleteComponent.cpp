#include "foundation/Product.h"
#include "platform/Dialogs.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

bool Confirmed() {
  // "delected": stays so.
  return MsgBox(
             QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00060|Are you sure you want "
                       "to delete the delected component file?"),
             box::kYesNo) == box::kYes;
}

/// Deletes the file from the disk. A failure is said and keeps nothing from going on.
void DeleteFromDisk(const std::string& path) {
  if (Attempt([&] { DeleteEvenIfReadOnly(path); })) return;
  MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00061|File could not be deleted"));
  Err.Clear();
}

void Delete() {
  const std::string key = GetKeyFromSelection();
  const std::string component = GetComponentFromSelection(false);
  if (key.empty() || component.empty()) return;
  const auto loio = gLoios->Item(key);
  gEditorSlots->CheckSlots();  // whether the document is read-only or open does not matter here
  const auto file =
      ComponentOf(*loio, component,
                  "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00057|Component file not found (");
  if (file == nullptr) return;
  if (file->FileFormat == kPrimaryFormat) {
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00058|Sorry, you may not delete "
                  "the primary component file"));
    return;
  }
  if (!HasDstPath(*loio,
                  "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00059|Path for object not found")) {
    return;
  }
  const std::string full = DstPathOf(*loio, file->FileName);
  if (!MayChange(full) || !Confirmed()) return;
  DeleteFromDisk(full);
  loio->RemoveDstFile(component);
  loio->ContentEditTransition();
  loio->SaveTransition();
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00062|Deleting component file: ") +
          key,
      0, false, false);
  Trace(1, "TranslateMod", "QbtDeleteComponent", "DELETE COMPONENT: {}", key);
  gPxfFile->UpdateFileSize();
  SelectInTree(key);
  WarnOfEmptyList(*loio);
}

}  // namespace

void QbtDeleteComponent() {
  Attempt(Delete);
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTDELETECOMPON001852.T.00063|An error has occurred trying to delete a "
      "component file: #%1: %2";
  ReportCommand("QbtDeleteComponent", {kError, kError});
}

}  // namespace qb
