#include "editors/CEditor.h"

#include <array>
#include <utility>

#include "editors/EditorState.h"
#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CEditor";

std::shared_ptr<CLoioEntry> Loio(std::string_view key) {
  if (gLoios == nullptr) throw RuntimeError(failure::kObjectNotSet);
  return gLoios->Item(key);
}

void TraceIfMissing(std::string_view path, std::string_view mark) {
  if (!FileExists(path, 0)) Trace(3, kModule, "OpenForTranslation", "{}{}", mark, path);
}

}  // namespace

std::string CEditor::GetMIMEType(std::string_view path) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kTypes{{
      {".TXT", "text/plain"},
      {".HTM", "text/html"},
      {".THTM", "text/html"},
      {".HTML", "text/html"},
      {".PPT", "application/vnd.ms-powerpoint"},
      {".DOC", "application/msword"},
      {".VSD", "vnd.visio"},
  }};
  const std::string extension = UpperCase(ExtensionOf(path));
  for (const auto& [known, type] : kTypes) {
    if (extension == known) return std::string(type);
  }
  return {};
}

bool CEditor::OpenForTranslation(std::string_view strLOIOGUID) {
  const TracedProcedure traced(kModule, "OpenForTranslation");
  strLOIOGUID_ = strLOIOGUID;
  bIsOpen_ = false;
  bContentChanged_ = false;
  gVisioWindows = 0;
  busy_ = true;
  const bool done = Attempt([this] { OpenDocument(); });
  busy_ = false;
  if (!done) {
    const PendingError error = Err;  // asking for a wording clears the pending one
    // One text whatever went wrong: it has no placeholders.
    const std::string text = QBL_FormatText(
        QBL_LText(
            "QB.QBTRANSLAT.CEDITOR.000.LAUNCHAPPLICATI001743.T.00007|Source document or translation document "
            "does not exist"),
        std::to_string(error.Number), error.Description);
    if (gMessageHandler != nullptr) gMessageHandler->Message(text, 2, true, false);
    Trace(3, kModule, "OpenForTranslation", "{}", text);
    Err.Clear();
    ForgetBridge();
    bIsOpen_ = false;
    return false;
  }
  if (bIsOpen_ && IsVisio11Running()) gVisioWindows = 2;
  TakeHeldCloses();
  return bIsOpen_;
}

void CEditor::OpenDocument() {
  const auto loio = Loio(strLOIOGUID_);
  std::string translation = JoinFile(gPxfFile->GetPxfPath(), loio->GetTranslationFileName());
  std::string source = JoinFile(gPxfFile->GetPxfPath(), loio->GetSourceFileName());
  TraceIfMissing(translation, "TRANSLATION FILE DOES NOT EXIST: ");
  TraceIfMissing(source, "ORIGINAL FILE DOES NOT EXIST: ");
  if (loio->hasDocumentBridge()) {
    OpenThroughBridge(*loio, source, translation);
    return;
  }
  if (loio->hasHTMLEditor()) return;  // nothing is started for these, and so they do not open
  bIsOpen_ = Launch(source, translation, hEditorProcess_, loio->hasNotePad());
}

}  // namespace qb
