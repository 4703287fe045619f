#include "apps/qbt/Changes.h"

#include <fmt/format.h>

#include <filesystem>
#include <set>
#include <stdexcept>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/Progress.h"
#include "foundation/gRvdFile.h"
#include "model/CLoioEntry.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "ui/Forms.h"
#include "ui/frmTranslateTitle.h"
#include "workflow/AssignTranslatedFile.h"
#include "workflow/ComponentCommands.h"
#include "workflow/DocumentCommands.h"
#include "workflow/DocumentFiles.h"
#include "workflow/Selection.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

constexpr int kButtonBits = 15;
constexpr std::size_t kFewestForAll = 2;

/// A change that is one command without arguments.
Change Plain(void (*command)()) {
  return [command](WorkbenchSession&, const std::vector<std::string>&) {
    command();
    return exitcode::kFine;
  };
}

/// The window's command succeeds with a read-only document, which it leaves as it is. A script has to learn
/// that.
Change Mark(const std::string& state) {
  void (*const command)() = state == "in-progress" ? QbtMarkInProgress
                            : state == "completed" ? QbtMarkCompleted
                                                   : QbtMarkToBeTranslated;
  return [command](WorkbenchSession& session, const std::vector<std::string>&) {
    command();
    const CState& now = *gLoios->Item(GetKeyFromSelection())->state;
    if (session.Boxes().Outcome.IsFine() && ProgressOf(now) == Progress::kReadOnly) {
      MessageBoxRequest refusal;
      refusal.text = "The document is read-only and keeps its state";
      session.Boxes().Show(refusal);
    }
    return exitcode::kFine;
  };
}

int Translate(WorkbenchSession& session, const std::vector<std::string>&) {
  return session.RunEditor(QbtTranslate);
}

Change Title(const std::string& title) {
  return [title](WorkbenchSession& session, const std::vector<std::string>&) {
    session.Kit().PlayModal = [&title](Form& form) {
      auto* dialog = dynamic_cast<frmTranslateTitle*>(&form);
      if (dialog == nullptr) return;
      dialog->ctlTitleTrans.Text = title;
      dialog->btnOkay.Click();
      if (dialog->Visible) dialog->btnCancel.Click();  // it has said what speaks against the title
    };
    QbtTranslateTitle();
    session.Kit().PlayModal = nullptr;
    return exitcode::kFine;
  };
}

/// The files of the command line are the further files that the command asks for.
int Assign(WorkbenchSession& session, const std::vector<std::string>& files) {
  session.FileDialogs().Choices.assign(files.begin(), files.end());
  session.Boxes().SuccessText = "Operation completed successfully";
  session.Boxes().Decide = [&session](const MessageBoxRequest& request) -> std::optional<int> {
    if ((request.style & kButtonBits) != box::kYesNoCancel) return std::nullopt;
    return session.FileDialogs().Choices.empty() ? box::kNo : box::kYes;
  };
  QbtAssignTranslatedFile();
  session.Boxes().Decide = nullptr;
  session.Boxes().SuccessText.clear();
  return exitcode::kFine;
}

int AddComponents(WorkbenchSession& session, const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    session.FileDialogs().Choices = {file};
    bool cancelled = false;
    std::string added;
    QbtInsertComponent(cancelled, added);
    if (!session.Boxes().Outcome.IsFine()) break;
  }
  return exitcode::kFine;
}

std::string Resolved(std::string_view path) {
  return ThePlatform().files->Resolved(path);
}

/// The window's command takes a file that stands in the document's folder already instead of copying the one
/// that was chosen, and then deletes the old file, which may be the very same. Nobody at a terminal means
/// that.
void RefuseTakenName(const CLoioEntry& loio, const std::string& file) {
  const std::string target = DstPathOf(loio, FileNameOf(file));
  if (!ThePlatform().files->Find(target)) return;
  const bool isOld = Resolved(target) == Resolved(DstPathOf(loio, GetComponentFromSelection(false)));
  const bool isListed = loio.GetDstFile(FileNameOf(file)) != nullptr;  // it cannot be on the list twice
  if (!isOld && !isListed && Resolved(target) == Resolved(file)) return;
  throw CommandFailure(
      exitcode::kRefused,
      fmt::format("a file {} stands in the document's folder already; give the new file another name",
                  FileNameOf(file)));
}

int ReplaceComponent(WorkbenchSession& session, const std::vector<std::string>& files) {
  RefuseTakenName(*gLoios->Item(GetKeyFromSelection()), files.front());
  session.FileDialogs().Choices.assign(files.begin(), files.end());
  QbtReplaceComponent();
  return exitcode::kFine;
}

/// The chooser gives several files as their folder and their names, separated by blanks.
std::string AsOneChoice(const std::vector<std::string>& files) {
  std::string choice;
  for (const std::string& file : files) {
    const std::size_t separator = file.rfind('\\');
    if (choice.empty()) choice = file.substr(0, separator);
    choice += ' ' + file.substr(separator + 1);
  }
  return choice;
}

/// The command stops at a file that it cannot take, with the list emptied before.
void RequireUsableFiles(const CLoioEntry& loio, const std::vector<std::string>& files) {
  const auto refuse = [](const std::string& file, std::string_view why) {
    throw CommandFailure(exitcode::kRefused, fmt::format("{} {}", ShownPath(file), why));
  };
  std::set<std::string> names;
  for (const std::string& file : files) {
    if (!names.insert(UpperCase(FileNameOf(file))).second) refuse(file, "is named twice");
    if (Resolved(file) == Resolved(DstPathOf(loio, FileNameOf(file)))) {
      refuse(file, "stands in the document's own folder; copy it elsewhere first");
    }
    if (!Attempt([&file] { ThePlatform().files->Read(file); })) {
      Err.Clear();
      refuse(file, "cannot be read");
    }
  }
}

/// The names of the translation's files, the primary one first.
std::vector<std::string> ListedFiles(const CLoioEntry& loio) {
  std::vector<std::string> names;
  const auto phio = loio.GetPhio(false);
  for (std::size_t i = 1; phio != nullptr && i <= phio->Components.Count(); ++i) {
    names.emplace_back(phio->Components.Item(i)->FileName);
  }
  return names;
}

/// Puts the files back on a list that was left empty, since a package with such a document cannot be opened.
void ListAgain(CLoioEntry& loio, const std::string& key, const std::vector<std::string>& names) {
  for (const std::string& name : names) loio.AddDstFile(name, key);
  loio.MarkDstFileAsPrimary(DstPathOf(loio, names.front()));
  loio.SavePhioFiles(role::kDstCurr);
  gPxfFile->UpdateFileSize();
}

int ReplaceAllComponents(WorkbenchSession& session, const std::vector<std::string>& files) {
  const std::string key = GetKeyFromSelection();
  const std::shared_ptr<CLoioEntry> loio = gLoios->Item(key);
  RequireUsableFiles(*loio, files);
  const std::vector<std::string> before = ListedFiles(*loio);
  session.FileDialogs().Choices = {AsOneChoice(files)};
  QbtReplaceAllComponents();
  if (!ListedFiles(*loio).empty() || before.empty()) return exitcode::kFine;
  ListAgain(*loio, key, before);
  throw CommandFailure(exitcode::kRefused, "no file was replaced; the document keeps the files that it had");
}

/// The command empties the list before it looks at what was chosen, so what it could not take must not get
/// there.
void RequireFilesForAll(const std::vector<std::string>& files) {
  if (files.size() < kFewestForAll) {
    throw CommandFailure(exitcode::kUsage, "all files of a translation are replaced by two files or more");
  }
  const auto folderOf = [](const std::string& file) {
    const std::string kept = KeptPath(NativePath(file));
    return kept.substr(0, kept.rfind('\\'));
  };
  for (const std::string& file : files) {
    if (KeptPath(NativePath(file)).find(' ') != std::string::npos) {
      throw CommandFailure(exitcode::kUsage,
                           fmt::format("{} has a blank in its path, which this command cannot "
                                       "take",
                                       ShownPath(KeptPath(NativePath(file)))));
    }
    if (folderOf(file) != folderOf(files.front())) {
      throw CommandFailure(exitcode::kUsage, "the files must stand in one folder");
    }
  }
}

}  // namespace

Change ChangeOf(const CommandLine& line) {
  switch (line.command) {
    case Command::kMark:
      return Mark(line.state);
    case Command::kTranslate:
      return Translate;
    case Command::kTitle:
      return Title(line.title);
    case Command::kAssign:
      return Assign;
    case Command::kComponentAdd:
      return AddComponents;
    case Command::kComponentReplace:
      return ReplaceComponent;
    case Command::kComponentReplaceAll:
      RequireFilesForAll(line.files);
      return ReplaceAllComponents;
    case Command::kComponentPrimary:
      return Plain(QbtMarkComponentAsPrimary);
    case Command::kComponentDelete:
      return Plain(QbtDeleteComponent);
    default:
      throw std::logic_error("this command changes nothing");
  }
}

}  // namespace qb
