// The start of an editor through the file associations of the system.

#include "editors/CEditor.h"
#include "foundation/CTrace.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "foundation/modMultiLanguage.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/Conversions.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "CEditor";

}  // namespace

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

bool CEditor::RefusesPath(std::string_view path) {
  const bool quotable = path.find('"') == std::string_view::npos;  // a quote would end a parameter
  if (quotable && gPxfFile->IsInsidePackage(path)) return false;
  MsgBox(QBL_FormatText("The path '%1' leads out of the package. It is not opened.", path));
  return true;
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
    if (!path.empty() && RefusesPath(path)) return kFilesMissing;
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
