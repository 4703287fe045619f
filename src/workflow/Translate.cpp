#include "foundation/Product.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/DocumentCommands.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

bool Translate() {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return false;
  if (key == "@ROOT") {  // the selection blanks the root; the test stands all the same
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00002|Cannot translate PXF files"));
    return false;
  }
  const auto loio = gLoios->Item(key);
  gEditorSlots->CheckSlots();
  if (loio->state->isReadOnly()) {
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00003|Cannot translate readonly documents"));
    return false;
  }
  if (loio->state->IsOpen()) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00004|Document is already open"));
    return false;
  }
  if (!loio->ContentEditTransition()) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00006|State change failed"));
    return false;
  }
  if (!gEditorSlots->OpenSlot(key)) {
    loio->CancelTransition();
    return false;
  }
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00005|Translating: ") + key, 0, false, false);
  Trace(1, "TranslateMod", "QbtTranslate", "TRANSLATE: {}", key);
  gPxfFile->UpdateFileSize();
  return true;
}

}  // namespace

bool QbtTranslate() {
  if (StoppedByVisioWindows()) return false;
  const TimersOff timersOff;
  bool opened = false;
  Attempt([&] { opened = Translate(); });
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTTRANSLATE.T.00007|An error has occurred "
      "while editing a document: #%1: %2";
  ReportCommand("QbtTranslate", {kError, kError});
  return opened;
}

}  // namespace qb
