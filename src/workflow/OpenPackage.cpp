#include "workflow/OpenPackage.h"

#include <array>
#include <new>

#include "editors/EditorQuestions.h"
#include "foundation/OrbQBCommonFunctionsMod.h"
#include "foundation/Product.h"
#include "foundation/gRvdFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/Toolkit.h"
#include "ui/frmContextMenu.h"
#include "ui/frmQBTranslator.h"
#include "workflow/CommandReport.h"
#include "workflow/RecentFiles.h"
#include "workflow/Settings.h"
#include "workflow/TradosTools.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr std::string_view kModule = "TranslateMod";
constexpr std::string_view kColumnWidth = "300";

/// Makes sure that `file` can be opened and that there is an object to open it. False if the command stops.
bool FindPackage(const std::string& file) {
  if (!FileExists(file, 0)) {
    gMessageHandler->Message(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00087|File does not exist"),
                             1, true, false);
    return false;
  }
  if (gPxfFile == nullptr) gPxfFile.reset(new (std::nothrow) CPxfFile);
  if (gPxfFile != nullptr) return true;
  MsgBox(QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00082|Error opening PXF file"));
  return false;
}

/// Backs a package up and marks it at its first opening. False if it cannot be changed, which is then said.
bool TouchFreshPackage(const std::string& file) {
  if (gPxfFile->IsTouched()) return true;
  Backup(file);
  if (gPxfFile->Touch()) return true;
  gMessageHandler->Message(
      gPxfFile->IsLocalizationPackage()
          ? QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00104|Error updating localization package")
          : QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00083|Error updating translation package"),
      2, true, false);
  return false;
}

/// Leaves the root alone in the tree, and nothing in the list.
void DropDocuments() {
  auto& form = Default<frmQBTranslator>();
  form.lvInfoObjectList.Clear();
  TableTree& tree = form.TransPackTree;
  while (!tree.Root()->Children().empty()) tree.RemoveNode(tree.Root()->Children().back()->Key());
}

void ResetViews(const std::string& file) {
  auto& form = Default<frmQBTranslator>();
  form.lvInfoObjectList.Clear();
  TableTree& tree = form.TransPackTree;
  const int nodes = static_cast<int>(tree.NodeCount());
  for (int i = 1; i <= nodes; ++i) tree.RemoveNode(i);
  DisableCommands();
  tree.TreeColumnWidth = std::string(kColumnWidth);
  for (int i = tree.ColumnCount(); i >= 1; --i) {
    const std::string name = tree.ColumnAt(i).name;
    if (name == "Title" || name == "TechName") tree.RemoveColumn(i);
  }
  tree.AddColumn("TechName");
  tree.SetColumnWidth("Techname", kColumnWidth);  // a small n: names are found regardless of case
  tree.AddColumn("Title");
  tree.SetColumnWidth("Title", kColumnWidth);
  TreeNode& root = tree.AddEx(nullptr, TableTree::kNewRoot, "@ROOT", file, 11, 11, 0);
  root.SetTitle(gPxfFile->GetPxfTitle());
  root.EnsureVisible();
}

std::string Now() {
  const DateTime now = ThePlatform().clock->LocalNow();
  return fmt::format("{:04}{:02}{:02}{:02}{:02}{:02}", now.year, now.month, now.day, now.hour, now.minute,
                     now.second);
}

/// What follows a successful load.
void FinishOpening(const std::string& file) {
  if (!gPxfFile->IsQBTPackage()) {
    gMessageHandler->Message(
        QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00086|Not a Quillbank Translator package."), 1,
        true, false);
    QbtQuit(true);
    TheToolkit().EndProcess();  // even if the quit declined
  }
  if (!ConnectTradosTools()) return;
  gSessionStamp = Now();
  InitAllForms();
  QbtRefresh();
  EnableCommands();
  AddRecentFile(file, false);
  gPxfFile->UpdateFileSize();
  std::unique_ptr<CMessageHandler> handler(new (std::nothrow) CMessageHandler);
  if (handler == nullptr) {
    Trace(2, kModule, "QbtOpen", "PXF-specific message handler could not be installed");
  } else {
    gMessageHandler = std::move(handler);
  }
}

/// Lets an office come up meanwhile, if the package has documents for one.
void PrepareOffice() {
  if (!gEditorQuestions.prepareOffice || gLoios == nullptr) return;
  for (std::size_t i = 1; i <= gLoios->Count(); ++i) {
    if (gLoios->Item(i)->hasDocumentBridge()) return gEditorQuestions.prepareOffice();
  }
}

void Open(std::string_view path) {
  const std::string file = path.empty() ? GetPxfFile() : std::string(path);
  if (file.empty() || !FindPackage(file)) return;
  gPxfFile->Init(file);
  const bool changeable = TouchFreshPackage(file);
  ResetViews(file);
  const bool loaded = gPxfFile->LoadData();
  if (!changeable) TakeRefusedWrite();  // said already
  if (loaded) {
    FinishOpening(file);
    if (!changeable) TakeRefusedWrite();
    PrepareOffice();
  } else {
    DropDocuments();
    gPxfFile.reset();
  }
  auto& form = Default<frmQBTranslator>();
  form.mniTranslate.Enabled = gPxfFile != nullptr;
  TheToolkit().SetFocus(form.TransPackTree);
}

void SwitchCommands(bool on) {
  auto& form = Default<frmQBTranslator>();
  for (MenuItem* item :
       {&form.mniAssignTranslatedFile, &form.mniTranslateProperties, &form.mniTranslateTitle,
        &form.mniCompleted, &form.mniCopy, &form.mniInProgress, &form.mniPrint, &form.mniProperties,
        &form.mniSave, &form.mniToBeTranslated, &form.mniTranslate, &form.mnuMark, &form.mniComponents}) {
    item->Enabled = on;
  }
  for (const int button : {5, 9, 8, 2, 7, 4}) form.Toolbar.Buttons(button).Enabled = on;
  auto& context = Default<frmContextMenu>();
  for (MenuItem* item : {&context.mniAssignTranslatedFile, &context.mniCompleted, &context.mniCopy,
                         &context.mniInProgress, &context.mniToBeTranslated, &context.mniTranslate,
                         &context.mniTranslateProperties, &context.mniTranslateTitle}) {
    item->Enabled = on;
  }
}

}  // namespace

void QbtOpen(std::string_view path) {
  Attempt([path] { Open(path); });
  ReportOpening();
}

void ReportOpening() {
  // The wording names property translation although this opens a package: stays so.
  constexpr std::string_view kError =
      "QB.QBTRANSLAT.TRANSLATEMOD.000.QBTOPEN.T.00088|An error has occurred during "
      "property translation: #%1: %2";
  ReportCommand("QbtOpen", {kError, kError});
}

std::string GetPxfFile() {
  OpenFileArguments arguments;
  arguments.title =
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.GETPXFFILE.T.00080|Open Translation/Localization Package");
  arguments.filter = QBL_LText(
      "QB.QBTRANSLAT.TRANSLATEMOD.000.GETPXFFILE.T.00081|Package Exchange Files (*.pxf)|*.pxf|All Files "
      "(*.*)|*.*");
  arguments.defaultExtension = ".pxf";
  return VBGetOpenFileName(arguments) ? arguments.fileName : std::string();
}

void Backup(std::string_view path) {
  if (Attempt([path] { CopyFileOver(path, ChangeExtension(path, "BAK")); })) return;
  gMessageHandler->Message(
      QBL_LText("QB.QBTRANSLAT.TRANSLATEMOD.000.BACKUP.T.00001|Could not create backup of your PXF file"), 2,
      true, false);
  Err.Clear();
}

void QbtRefresh() {
  const auto slots = gEditorSlots;
  if (slots != nullptr) slots->CheckSlots();
  TheToolkit().Repaint(Default<frmQBTranslator>());
  TellRefusedWrites();
}

void DisableCommands() {
  SwitchCommands(false);
}

void EnableCommands() {
  SwitchCommands(true);
}

}  // namespace qb
