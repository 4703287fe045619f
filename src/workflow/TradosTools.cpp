#include "workflow/TradosTools.h"

#include <string>

#include "editors/CEditor.h"
#include "editors/EditorQuestions.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "runtime/RuntimeError.h"
#include "workflow/OpenPackage.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";

/// The path of a file that the package names, if a tool can be told to open it: it is there, and inside the
/// package. Empty otherwise; only a path that leads out of the package is told of.
std::string FileForTool(const std::string& name) {
  if (name.empty()) return {};
  std::string file = JoinFile(gPxfFile->GetPxfPath(), name);
  if (!FileExists(file, 0) || CEditor::RefusesPath(file)) return {};
  return file;
}

void LoadTerminology() {
  gMultiTerm = std::make_shared<CMultiTerm>();
  const auto multiTerm = gMultiTerm;  // events that run meanwhile may end the link
  if (!multiTerm->Init()) return;
  const std::string file = FileForTool(gPxfFile->GetTerminologyName());
  if (file.empty() || multiTerm->Load(file)) return;
  // Message and trace name the translation memory, which is not known yet: stays so.
  const std::string memory;
  gMessageHandler->Message(QBL_FormatText("Could not load terminology '%1'.", memory), 2, true, false);
  Trace(2, kModule, "QbtOpen", "TERMINOLOGY NOT FOUND: {}", memory);
}

void LoadTranslationMemory() {
  gTwb = std::make_shared<CTradosTwb>();
  const auto workbench = gTwb;
  if (!workbench->Init({})) {
    const std::string cannotLaunch = QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00084|Could not launch TRADOS Translator's Workbench.");
    MsgBox(cannotLaunch + "\r\n" +
           QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00085|Please make sure it is installed when "
                     "working with TRADOS packages."));
    return;
  }
  const std::string file = FileForTool(gPxfFile->GetTranslationMemoryName());
  if (file.empty() || workbench->LoadTM(file)) return;
  gMessageHandler->Message(QBL_FormatText("Could not load translation memory '%1'.", file), 2, true, false);
  Trace(2, kModule, "QbtOpen", "TM NOT FOUND: {}", file);
}

}  // namespace

bool ConnectTradosTools() {
  if (!gEditorQuestions.bringsUpTradosTools || !gPxfFile->IsTradosPackage()) return true;
  const std::string package = gPxfFile->strFileName;
  const auto stillOpen = [&] { return gPxfFile != nullptr && gPxfFile->strFileName == package; };
  Attempt(LoadTerminology);
  ReportOpening();
  if (!stillOpen()) return false;
  Attempt(LoadTranslationMemory);
  ReportOpening();
  return stillOpen();
}

}  // namespace qb
