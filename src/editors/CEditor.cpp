#include "editors/CEditor.h"

#include <array>
#include <utility>

#include "editors/EditorState.h"
#include "foundation/CMessageHandler.h"
#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"
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
  if (!Attempt([this] { OpenDocument(); })) {
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
    bIsOpen_ = false;
    return false;
  }
  if (bIsOpen_ && IsVisio11Running()) gVisioWindows = 2;
  return bIsOpen_;
}

void CEditor::OpenDocument() {
  const auto loio = Loio(strLOIOGUID_);
  std::string translation = JoinFile(gPxfFile->GetPxfPath(), loio->GetTranslationFileName());
  std::string source = JoinFile(gPxfFile->GetPxfPath(), loio->GetSourceFileName());
  TraceIfMissing(translation, "TRANSLATION FILE DOES NOT EXIST: ");
  TraceIfMissing(source, "ORIGINAL FILE DOES NOT EXIST: ");
  if (loio->hasDocumentBridge()) {
    throw RuntimeError(
        failure::kOwn, std::string(kModule),
        QBL_LText("QB.QBTRANSLAT.CEDITOR.000.OPENFORTRANSLAT001864.T.00001|Your installation may have "
                  "been corrupted.") +
            "\r\n(Internal error: could not create Document Bridge)");
  }
  if (loio->hasHTMLEditor()) return;  // nothing is started for these, and so they do not open
  bIsOpen_ = Launch(source, translation, hEditorProcess_, loio->hasNotePad());
}

bool CEditor::Launch(std::string& source, std::string& translation, ProcessHandle& hProcess,
                     bool useTextEditor) {
  const TracedProcedure traced(kModule, "Launch");
  if (useTextEditor) {
    if (LaunchApplication("", "", translation, hProcess, "Open") == kStarted) return true;
    MsgBox(QBL_LText("QB.QBTRANSLAT.CEDITOR.000.LAUNCH.T.00004|Could not launch default text editor"));
    return false;
  }
  ChangeXMLToTTX(translation);
  if (LaunchApplication("", source, translation, hProcess, "Translate") == kStarted) return true;
  if (LaunchApplication("", "", translation, hProcess, "Edit") == kStarted) return true;
  if (LaunchApplication("", "", translation, hProcess, "Open") == kStarted) return true;
  MsgBox(QBL_LText(
      "QB.QBTRANSLAT.CEDITOR.000.LAUNCH.T.00005|Could not launch editor. Please make sure the editor for "
      "this type of document is properly installed."));
  return false;
}

void CEditor::ChangeXMLToTTX(std::string& path) {
  const std::string companion = path + ".ttx";
  if (!path.empty() && FileExists(companion, 0)) path = companion;
  Trace(2, kModule, "ChangeXMLToTTX", "<-  open: '{}'", companion);
}

std::int32_t CEditor::LaunchApplication(std::string_view strEditor, std::string_view strSourceFileName,
                                        std::string_view strTranslationFileName, ProcessHandle& hProcess,
                                        std::string_view Verb) {
  const TracedProcedure traced(kModule, "LaunchApplication");
  Trace(2, "", "LaunchApplication", "strEditor:{}/strSourceFileName:{}/strTranslationFileName:{}Verb:{}",
        strEditor, strSourceFileName, strTranslationFileName, Verb);
  if (!FileExists(strSourceFileName, 0) || !FileExists(strTranslationFileName, 0)) {
    MsgBox(QBL_LText(
        "QB.QBTRANSLAT.CEDITOR.000.LAUNCHAPPLICATI001743.T.00007|Source document or translation document "
        "does not exist"));
    return kFilesMissing;
  }
  for (const std::string_view path : {strSourceFileName, strTranslationFileName}) {
    const bool quotable = path.find('"') == std::string_view::npos;  // a quote would end the parameter
    if (path.empty() || (quotable && gPxfFile->IsInsidePackage(path))) continue;
    MsgBox(QBL_FormatText("The path '%1' leads out of the package. It is not opened.", path));
    return kFilesMissing;
  }
  const bool ownEditor = !strEditor.empty();
  const std::string_view file = ownEditor ? strEditor : strTranslationFileName;
  ShellRequest request{std::string(Verb), FileNameOf(file), {}, DirectoryOf(file)};
  if (ownEditor) {
    request.parameters = strTranslationFileName;
  } else if (Verb == "Translate") {
    request.parameters = '"' + std::string(strSourceFileName) + '"';
  }
  ProcessHandle started = 0;
  const bool executed = ThePlatform().shell->Execute(request, started);
  Trace(2, "", "LaunchApplication", "ShellExecuteEx returned {}", executed ? 1 : 0);
  if (executed) hProcess = started;
  Trace(2, "", "LaunchApplication", "Editor process PID={}", hProcess);
  return executed ? kStarted : kFailed;
}

bool CEditor::IsProcessRunning(ProcessHandle hProcess) {
  Trace(2, kModule, "IsProcessRunning", "->");
  std::uint32_t code = 0;
  const bool runs = ThePlatform().shell->GetExitCode(hProcess, code) && code == Shell::kStillActive;
  Trace(2, kModule, "IsProcessRunning", "<-   '{}'", BooleanText(runs));
  return runs;
}

}  // namespace qb
