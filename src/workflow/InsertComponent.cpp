#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "runtime/RuntimeError.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/FileChooser.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr TwoWordings kSameName{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00029|A file with the same name is already part "
    "of the translation package",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00116|A file with the same name is already part "
    "of the localization package"};

/// Copies the file. False, with the transition taken back, if it could not be copied.
bool CopyInto(CLoioEntry& loio, const std::string& source, const std::string& target) {
  if (CopyFileOver(source, target)) return true;
  MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00031|Could not copy file: ") +
         source + " -> " + target);
  loio.CancelTransition();
  return false;
}

/// Puts the file on the document's list and into the package.
bool List(CLoioEntry& loio, const std::string& key, const std::string& name) {
  if (!loio.AddDstFile(name, key)) {
    MsgBox(QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00032|Could not add new component file"));
    loio.CancelTransition();
    return false;
  }
  if (!loio.SavePhioFiles(role::kDstCurr)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00034|Could not write to PXF"));
    return false;
  }
  loio.SaveTransition();
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00033|Inserting component file: ") +
          key,
      0, false, false);
  Trace(1, "TranslateMod", "QbtInsertComponent", "INSERT COMPONENT: {}", key);
  gPxfFile->UpdateFileSize();
  return true;
}

void Insert(bool& inserted, bool& cancelled, std::string& file) {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return;
  const auto loio = DocumentToChange(key);
  if (loio == nullptr) return;
  const std::string chosen = GetMultimediaFile({}, false, {});
  if (chosen.empty()) {
    cancelled = true;
    return;
  }
  const std::string target = DstPathOf(*loio, FileNameOf(chosen));
  const bool sameFile = chosen == target;
  bool alreadyIn = loio->IsDstFile(target);
  if (sameFile && alreadyIn) {
    gMessageHandler->Message(kSameName.Text(), 2, true, false);
    return;
  }
  if (!MayChange(target)) return;
  if (!loio->ContentEditTransition()) {
    MsgBox(QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00030|Cannot change open status for object"));
    return;
  }
  if (!sameFile) {
    inserted = CopyInto(*loio, chosen, target);
    if (!inserted) alreadyIn = false;  // so that a file that could not be copied is listed: stays so
  }
  // A listed file has new content now; the state stays as the edit left it.
  if (alreadyIn) return;
  inserted = List(*loio, key, FileNameOf(target));
  if (inserted) file = chosen;
}

}  // namespace

bool QbtInsertComponent(bool& cancelled, std::string& file) {
  bool inserted = false;
  Attempt([&] { Insert(inserted, cancelled, file); });
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTINSERTCOMPON001886.T.00035|An error has occurred while inserting a "
      "component file: #%1: %2";
  ReportCommand("QbtInsertComponent", {kError, kError});
  return inserted;
}

}  // namespace qb
