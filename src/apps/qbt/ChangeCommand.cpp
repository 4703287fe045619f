#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "apps/qbt/Changes.h"
#include "apps/qbt/Commands.h"
#include "apps/qbt/DocumentNames.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/Progress.h"
#include "apps/qbt/WorkbenchSession.h"
#include "workflow/TranslateMod.h"

namespace qb {
namespace {

/// A document that a command is to change.
struct Target {
  std::string key;
  std::string name;
};

/// The files of the command line as kept paths. Raises CommandFailure for one that is not there.
std::vector<std::string> ChosenFiles(const std::vector<std::string>& given) {
  std::vector<std::string> files;
  for (const std::string& file : given) {
    std::error_code failed;
    if (!std::filesystem::is_regular_file(NativePath(file), failed)) {
      throw CommandFailure(exitcode::kUnreadable,
                           file + (failed ? ": " + failed.message() : " is not a file"));
    }
    files.push_back(KeptPath(NativePath(file)));
  }
  return files;
}

/// Finds the documents before the package is opened, so that a wrong name does not even touch it.
std::vector<Target> FindTargets(const CommandLine& line, const std::string& package, Terminal& terminal) {
  const PackageSource source = ReadPackage(package);
  const PackageContents contents(source);
  std::vector<Target> targets;
  for (const ListedDocument* document : FindDocuments(contents, line.documents)) {
    targets.push_back({source.Text(document->guid.bytes), NameOf(contents, *document)});
    if (line.component.empty()) continue;
    const ListedVersion* translation = document->Version("DST_CURR");
    const auto version = translation == nullptr ? nullptr : contents.Version(*translation);
    if (version == nullptr || version->GetFile(line.component) == nullptr) {
      throw CommandFailure(exitcode::kUsage, fmt::format("the translation of {} has no file {}",
                                                         targets.back().name, line.component));
    }
  }
  for (const ListedDocument& document : contents.Documents()) {
    if (!IsMarkedOpen(contents.State(document))) continue;
    terminal.Tell(
        fmt::format("{} is marked as open: it is in an editor of another session, or was left open by "
                    "one that broke off. The mark is taken back now.",
                    NameOf(contents, document)));
  }
  return targets;
}

std::string_view ProgressNow(const std::string& key) {
  return Word(ProgressOf(*gLoios->Item(key)->state));
}

}  // namespace

int RunChange(const CommandLine& line, Terminal& terminal) {
  const Change change = ChangeOf(line);
  const std::vector<std::string> files = ChosenFiles(line.files);
  const std::string package = FindPackage(line.package);
  const std::vector<Target> targets = FindTargets(line, package, terminal);
  WorkbenchSession session(line, terminal, package);
  int exitCode = exitcode::kFine;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const Target& target = targets[i];
    if (targets.size() > 1) terminal.DrawProgress(i, targets.size(), target.name);
    session.Boxes().Outcome = {};
    session.Boxes().Subject = target.name;
    session.Select(target.key, line.component);
    const int changed = change(session, files);
    exitCode = std::max({exitCode, changed, session.Boxes().Outcome.ExitCode()});
    if (changed == exitcode::kInterrupted) break;
    if (changed == exitcode::kFine && session.Boxes().Outcome.IsFine()) {
      terminal.Write(fmt::format("{}: {}\n", Printable(target.name), ProgressNow(target.key)));
    }
  }
  return exitCode;
}

}  // namespace qb
