#include "workflow/DocumentFiles.h"

#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "ui/Forms.h"
#include "ui/frmQBTranslator.h"
#include "workflow/HelpMod.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"
#include "workflow/TwoWordings.h"

namespace qb {
namespace {

constexpr TwoWordings kReadOnly{
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00064|Cannot translate readonly documents",
    "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00118|Cannot localize readonly documents"};

bool IsDirectory(std::string_view path) {
  const auto found = ThePlatform().files->Find(path);
  return found && (found->attributes & attribute::kDirectory) != 0;
}

bool IsFolderInsidePackage(std::string_view folder) {
  FileSystem& files = *ThePlatform().files;
  return files.Resolved(JoinFile(folder, {})) == files.Resolved(JoinFile(gPxfFile->GetPxfPath(), {})) ||
         gPxfFile->IsInsidePackage(folder);
}

}  // namespace

std::shared_ptr<CLoioEntry> DocumentToChange(std::string_view key) {
  auto loio = gLoios->Item(key);
  gEditorSlots->CheckSlots();
  if (loio->state->isReadOnly()) {
    MsgBox(kReadOnly.Text());
    return nullptr;
  }
  if (loio->state->IsOpen()) {
    MsgBox(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTASSIGNTRANSL002349.T.00065|Document is already open"));
    return nullptr;
  }
  return loio;
}

std::shared_ptr<CPhioFile> ComponentOf(const CLoioEntry& loio, std::string_view component,
                                       std::string_view notFoundKey) {
  auto file = loio.GetDstFile(component);
  if (file == nullptr) MsgBox(QBL_LText(notFoundKey).append(component).append(")"));
  return file;
}

bool HasDstPath(const CLoioEntry& loio, std::string_view noPathKey) {
  if (!loio.GetDstPath().empty()) return true;
  MsgBox(QBL_LText(noPathKey));
  return false;
}

std::optional<ChosenComponent> SelectedComponentToChange(std::string_view notFoundKey,
                                                         std::string_view noPathKey) {
  ChosenComponent chosen{GetKeyFromSelection(), GetComponentFromSelection(false), nullptr, nullptr};
  if (chosen.key.empty() || chosen.name.empty()) return std::nullopt;
  chosen.loio = DocumentToChange(chosen.key);
  if (chosen.loio == nullptr) return std::nullopt;
  chosen.file = ComponentOf(*chosen.loio, chosen.name, notFoundKey);
  if (chosen.file == nullptr || !HasDstPath(*chosen.loio, noPathKey)) return std::nullopt;
  return chosen;
}

std::string DstPathOf(const CLoioEntry& loio, std::string_view fileName) {
  return JoinPath6(gPxfFile->GetPxfPath(), loio.GetDstPath(), fileName);
}

bool MayChange(std::string_view path) {
  std::string_view why;
  if (!IsFolderInsidePackage(DirectoryOf(path)) || !gPxfFile->IsInsidePackage(path)) {
    why = "The path '%1' leads out of the package. Nothing is changed.";
  } else if (ThePlatform().files->Resolved(path) == ThePlatform().files->Resolved(gPxfFile->strFileName)) {
    why = "The path '%1' is the package file itself. Nothing is changed.";
  } else {
    return true;
  }
  MsgBox(QBL_FormatText(std::string(why), path));
  return false;
}

bool SaveFirstState(const CLoioEntry& loio) {
  const std::string folder = DstPathOf(loio);
  const std::string backup = JoinFile(folder, "BAK");
  if (!MayChange(backup)) return false;
  if (IsDirectory(backup)) return true;
  ThePlatform().files->MakeDirectory(backup);
  if (CopyDirectoryFiles(folder, backup)) return true;
  const PendingError error = Err;
  throw RuntimeError(error.Number, error.Source, error.Description);
}

void DeleteEvenIfReadOnly(std::string_view path) {
  FileSystem& files = *ThePlatform().files;
  Attempt([&] {
    const auto found = files.Find(path);
    if (found && (found->attributes & attribute::kReadOnly) != 0) {
      files.SetAttributes(path, found->attributes - attribute::kReadOnly);
    }
  });
  Err.Clear();
  files.Remove(path);  // tells what is wrong if the attribute could not be taken away
}

bool ReplaceFile(std::string_view source, std::string_view target) {
  // The copy takes the old file's place by itself, and only when it is whole. So the deletion in front of it
  // is only tried out, and no kill leaves the document without a file.
  ThePlatform().files->CheckRemovable(target);
  return CopyFileOver(source, target);
}

void WarnOfEmptyList(const CLoioEntry& loio) {
  const auto phio = loio.GetPhio(false);
  if (phio == nullptr || phio->Components.Count() > 0) return;
  SetStatusText(
      QBL_FormatText("%1 has no component files. Insert one: without, the package cannot be opened again.",
                     loio.TechnicalName()));
}

void SelectInTree(std::string_view key) {
  TableTree& tree = Default<frmQBTranslator>().TransPackTree;
  if (TreeNode* node = tree.FindNode(key)) tree.Select(node);
}

}  // namespace qb
