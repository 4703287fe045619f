// The life of an editing session after its start: polls, saves, closes.

#include "editors/CEditor.h"
#include "editors/EditorState.h"
#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CEditor";

bool IsNewer(std::string_view path) {
  return IsLaterThanSession(gPxfFile->GetFileModification(path));
}

}  // namespace

void CEditor::RaiseOnClose() {
  if (OnClose) OnClose();
}

bool CEditor::TranslationHasChanged(const CLoioEntry& loio, bool lookForCompanion) const {
  // The bare name, without the package's directory: so it is for the text editor, and for a close by the
  // program.
  if (!lookForCompanion) return IsNewer(loio.GetTranslationFileName());
  const std::string full = JoinFile(gPxfFile->GetPxfPath(), loio.GetTranslationFileName());
  const std::string companion = full + ".ttx";
  if (FileExists(companion, 0) && IsNewer(companion)) return true;
  return IsNewer(full);
}

void CEditor::EndSession(bool changed) {
  ending_ = true;
  if (changed) {
    bContentChanged_ = true;
    DoSave();
  } else {
    gLoios->Item(strLOIOGUID_)->CloseTransition();
  }
  RaiseOnClose();
  bIsOpen_ = false;
}

bool CEditor::IsOpen() {
  const TracedProcedure traced(kModule, "IsOpen");
  if (!bIsOpen_) return false;
  if (ending_) return true;
  const auto loio = gLoios->Item(strLOIOGUID_);
  if (loio->hasDocumentBridge()) {
    if (objBridge_ == nullptr || grpDst_ == nullptr) EndSession(false);
  } else if (loio->hasHTMLEditor()) {
    EndSession(false);
  } else if (!IsProcessRunning(hEditorProcess_)) {
    EndSession(TranslationHasChanged(*loio, !loio->hasNotePad()));
  }
  return bIsOpen_;
}

void CEditor::DoSave() {
  const TracedProcedure traced(kModule, "DoSave");
  const auto loio = gLoios->Item(strLOIOGUID_);
  if (!ExtractHyperlinksAndTitle()) {
    loio->SaveTransition();
    bContentChanged_ = false;
    return;
  }
  if (!loio->SaveTitle(strTitle_)) {
    gMessageHandler->Message(
        QBL_LText("QB.QBTRANSLAT.CEDITOR.000.DOCDST_ONPOSTLO002205.T.00010|Could not write "
                  "title to PXF file"),
        1, false, false);
  }
  if (!gPxfFile->WriteHyperlinks(loio->LoioNo(), Existing(loio->GetPhio(false)).PhioNo(),
                                 colHyperlinks_.get())) {
    gMessageHandler->Message(
        QBL_LText("QB.QBTRANSLAT.CEDITOR.000.DOCDST_ONPOSTLO002205.T.00011|Could not write "
                  "hyperlinks to PXF file"),
        1, false, false);
  }
  loio->SaveTransition();
  bContentChanged_ = true;
}

void CEditor::CloseProcessSession(const CLoioEntry& loio, std::string_view closeEditorText, bool& stillRuns) {
  bIsOpen_ = IsProcessRunning(hEditorProcess_);
  if (bIsOpen_) {
    MsgBox(closeEditorText);
    bIsOpen_ = IsProcessRunning(hEditorProcess_);
  }
  stillRuns = bIsOpen_;
  if (stillRuns || !TranslationHasChanged(loio, false)) return;
  bContentChanged_ = true;
  DoSave();
}

bool CEditor::CloseBridgeSession(bool single) {
  bool closed = true;
  // The groups are held here, since the events of their close empty the fields.
  if (const auto group = grpDst_; group != nullptr) {
    if (!Attempt([&] { group->Close(); })) closed = false;
    grpDst_.reset();
    objBridge_.reset();
  }
  if (const auto group = grpSrc_; single && group != nullptr) {
    if (!Attempt([&] { group->Close(); })) closed = false;
    grpSrc_.reset();
    objSecondBridge_.reset();
  }
  grpSrc_.reset();
  Err.Clear();
  return closed;
}

bool CEditor::CloseEditor() {
  const TracedProcedure traced(kModule, "CloseEditor");
  if (gLoios == nullptr) return true;
  const auto loio = gLoios->Item(strLOIOGUID_);
  if (!bIsOpen_) return true;
  bool stillRuns = false;
  // From here on errors are ignored: each step runs whatever became of the one before it.
  if (loio->hasDocumentBridge() && !IsVisio11Running()) {
    if (!CloseBridgeSession(loio->hasSingleDocEditor())) return false;
  } else if (!loio->hasHTMLEditor()) {
    Attempt([&] {
      CloseProcessSession(
          *loio,
          loio->hasNotePad() ? QBL_LText("QB.QBTRANSLAT.CEDITOR.000.CLOSEEDITOR.T.00008|Please close editor")
                             : QBL_LText("QB.QBTRANSLAT.CEDITOR.000.CLOSEEDITOR.T.00009|Please close editor"),
          stillRuns);
    });
  }
  if (stillRuns) return false;
  if (!bIsOpen_) {
    Attempt([&] { loio->state->CloseTransition(); });
    Attempt([&] { RaiseOnClose(); });
  }
  Err.Clear();
  bIsOpen_ = false;
  return true;
}

}  // namespace qb
