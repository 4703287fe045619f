#include "foundation/Product.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

void Mark() {
  const auto chosen = SelectedComponentToChange(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPONEN002572.T.00036|Component file not found (",
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPONEN002572.T.00037|Path for object not found");
  if (!chosen) return;
  const auto& loio = chosen->loio;
  const std::string full = DstPathOf(*loio, chosen->file->FileName);
  if (full.empty()) return;
  // All three run, whatever became of the one before.
  const bool marked = loio->MarkDstFileAsPrimary(full);
  const bool opened = loio->ContentEditTransition();
  const bool saved = loio->SaveTransition();
  if (!(marked && opened && saved)) return;
  gPxfFile->UpdateFileSize();
  gMessageHandler->Message(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPONEN002572.T.00038|Marking "
                                     "as primary component file: ") +
                               chosen->key,
                           0, false, false);
  Trace(1, "TranslateMod", "QbtMarkComponentAsPrimary", "SET PRIM: {}", chosen->key);
}

}  // namespace

void QbtMarkComponentAsPrimary() {
  Attempt(Mark);
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTMARKCOMPONEN002572.T.00039|An error has occurred while marking a "
      "component file a primary: #%1: %2";
  ReportCommand("QbtMarkComponentAsPrimary", {kError, kError});
}

}  // namespace qb
