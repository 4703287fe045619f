#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "workflow/CommandReport.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/FileChooser.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";
constexpr std::string_view kProcedure = "QbtReplaceAllComponents";
constexpr std::size_t kFewestPieces = 3;  // the directory and two files

constexpr TwoWordings kSameName{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00043|A file with the same name is already part "
    "of the translation package",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00117|A file with the same name is already part "
    "of the localization package"};

void Report(std::string_view text) {
  gMessageHandler->Message(text, 2, true, false);
}

/// Copies a file into the document's folder and puts it on the list in memory. False stops the replacement.
bool Add(CLoioEntry& loio, const std::string& key, const std::string& source, const std::string& target) {
  if (source == target || loio.IsDstFile(target)) {
    MsgBox(kSameName.Text());
    return false;
  }
  if (!MayChange(target)) return false;
  if (!CopyFileOver(source, target)) {
    Report(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00044|Could not copy file: ") +
           source + " -> " + target);
    return false;
  }
  if (!loio.AddDstFile(FileNameOf(target), key)) {
    Report(QBL_LText(
        "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00045|Could not add new component file"));
    return false;
  }
  return true;
}

/// Writes the list with its file number `number`, the first of which becomes the primary one.
void Save(CLoioEntry& loio, std::size_t number, const std::string& target) {
  if (!loio.SavePhioFiles(role::kDstCurr)) {
    MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00047|Could not write to PXF"));
    return;
  }
  loio.ContentEditTransition();
  if (number == 1) loio.MarkDstFileAsPrimary(target);
  loio.SaveTransition();
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00046|Component ") + target, 0, false,
      false);
  Trace(1, kModule, kProcedure, "COMPONENT {}: {}", number, target);
  gPxfFile->UpdateFileSize();
}

/// Fills the list with the files of an answer: their directory and their names, each behind a blank. A blank
/// within one of them breaks it: stays so.
void FillList(CLoioEntry& loio, const std::string& key, std::string_view answer) {
  const std::vector<std::string> pieces = Split(answer, " ");
  if (pieces.size() < kFewestPieces) return;
  const auto directory = ThePlatform().files->Find(pieces[0]);
  if (!directory || (directory->attributes & attribute::kDirectory) == 0) return;
  gMessageHandler->Message(
      QBL_LText(
          "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00042|Replacing all component files: ") +
          key,
      0, false, false);
  Trace(1, kModule, kProcedure, "REPLACING ALL COMPONENTS: {}", key);
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    const std::string target = DstPathOf(loio, pieces[i]);
    if (!Add(loio, key, JoinFile(pieces[0], pieces[i]), target)) return;
    Save(loio, i, target);
  }
}

void ReplaceAllFiles() {
  const std::string key = GetKeyFromSelection();
  if (key.empty()) return;
  const auto loio = DocumentToChange(key);
  if (loio == nullptr) return;
  if (!HasDstPath(*loio,
                  "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00040|Path for object not found")) {
    return;
  }
  if (!SaveFirstState(*loio)) return;
  // Before the choice, so that a cancelled one leaves the document without files: stays so.
  loio->RemoveAllDstFiles();
  RemoveGoneFileNodes(*loio);
  const std::string answer = GetMultimediaFile(
      "*.*", true,
      QBL_LText(
          "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00041|Select all the files you want to "
          "replace"));
  if (!answer.empty()) FillList(*loio, key, answer);
  WarnOfEmptyList(*loio);
}

}  // namespace

void QbtReplaceAllComponents() {
  Attempt(ReplaceAllFiles);
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTREPLACEALLCO002353.T.00048|An error has occurred while replacing "
      "all "
      "component files: #%1: %2";
  ReportCommand(kProcedure, {kError, kError});
}

}  // namespace qb
