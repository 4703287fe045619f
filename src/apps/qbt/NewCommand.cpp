#include <fmt/format.h>

#include <map>
#include <system_error>
#include <utility>

#include "apps/qbt/Commands.h"
#include "apps/qbt/ExitCode.h"
#include "apps/qbt/NewPackage.h"
#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/SourceFolder.h"
#include "platform/Platform.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPackageName = "Trans.pxf";

[[noreturn]] void RaiseUnwritable(const fs::path& path, const std::string& why) {
  throw CommandFailure(exitcode::kUnreadable, fmt::format("{} cannot be written: {}", path.string(), why));
}

fs::path WithoutLastSeparator(const fs::path& path) {
  const fs::path normal = fs::absolute(path).lexically_normal();
  return normal.has_filename() ? normal : normal.parent_path();
}

fs::path TargetFolder(const CommandLine& line, const fs::path& sources) {
  if (!line.targetFolder.empty()) return WithoutLastSeparator(NativePath(line.targetFolder));
  fs::path target = sources;
  target += NativePath("-" + LowerCase(line.targetLanguage));
  return target;
}

/// The folder is made, or is there and empty: nothing that exists is ever written over.
void MakeTargetFolder(const fs::path& target) {
  std::error_code failed;
  fs::create_directories(target, failed);
  if (failed) RaiseUnwritable(target, failed.message());
  const bool isEmpty = fs::is_empty(target, failed);
  if (failed) RaiseUnwritable(target, failed.message());
  if (!isEmpty) {
    throw CommandFailure(
        exitcode::kRefused,
        fmt::format("{} is not empty: a package is made in a folder of its own", target.string()));
  }
}

/// Copies one file; the copy can be changed whatever the original's mode is.
void CopyFile(const fs::path& from, const fs::path& to) {
  std::error_code failed;
  fs::create_directories(to.parent_path(), failed);
  if (failed) RaiseUnwritable(to.parent_path(), failed.message());
  if (!fs::copy_file(from, to, fs::copy_options::none, failed) || failed)
    RaiseUnwritable(to, failed.message());
  fs::permissions(to, fs::perms::owner_write, fs::perm_options::add, failed);
  if (failed) RaiseUnwritable(to, failed.message());
}

void CopyDocuments(const NewPackage& package, const fs::path& sources, const fs::path& target,
                   Terminal& terminal) {
  for (std::size_t i = 0; i < package.documents.size(); ++i) {
    const SourceDocument& document = package.documents[i];
    terminal.DrawProgress(i, package.documents.size(), document.files.front());
    for (const std::string& file : document.files) {
      for (const char* folder : {kSources, kTranslations}) {
        const fs::path place = document.folder / NativePath(file);
        CopyFile(sources / place, target / folder / place);
      }
    }
  }
  terminal.ClearProgress();
}

/// Names that a Windows machine could not tell apart would be one file there.
void RequireDistinctNames(const std::vector<SourceDocument>& documents) {
  std::map<std::string, fs::path> seen;
  for (const SourceDocument& document : documents) {
    for (const std::string& file : document.files) {
      const fs::path path = document.folder / NativePath(file);
      const auto [known, isNew] = seen.emplace(LowerCase(path.string()), path);
      if (isNew) continue;
      throw CommandFailure(exitcode::kUsage,
                           fmt::format("{} and {} differ in case only, which a package cannot hold",
                                       known->second.string(), path.string()));
    }
  }
}

}  // namespace

int RunNew(const CommandLine& line, Terminal& terminal) {
  const fs::path sources = WithoutLastSeparator(NativePath(line.folder));
  std::error_code failed;
  if (!fs::is_directory(sources, failed)) {
    throw CommandFailure(exitcode::kUnreadable, fmt::format("{} is no folder", sources.string()));
  }
  const fs::path target = TargetFolder(line, sources);
  if (KeptPath(target).starts_with(KeptPath(sources) + '\\')) {
    throw CommandFailure(exitcode::kUsage, fmt::format("{} lies within the sources", target.string()));
  }
  NewPackage package;
  package.title = line.title.empty() ? sources.filename().string() : line.title;
  package.sourceLanguage = UpperCase(line.sourceLanguage);
  package.targetLanguage = UpperCase(line.targetLanguage);
  package.localization = line.localization;
  std::vector<fs::path> passedOver;
  package.documents = FindSourceDocuments(sources, passedOver);
  if (package.documents.empty()) {
    throw CommandFailure(exitcode::kRefused, fmt::format("there are no documents in {}", sources.string()));
  }
  RequireDistinctNames(package.documents);
  for (const fs::path& path : passedOver) terminal.Tell(path.string() + " is passed over");
  const std::string text = PackageText(package);
  MakeTargetFolder(target);
  CopyDocuments(package, sources, target, terminal);
  // The package file comes last: where it stands, everything that it lists does.
  const fs::path file = target / kPackageName;
  if (!Attempt([&] { ThePlatform().files->ReplaceContent(KeptPath(file), {text}); })) {
    RaiseUnwritable(file, std::exchange(Err, {}).Description);
  }
  terminal.Write(fmt::format("{}: {} documents\n", Printable(file.string()), package.documents.size()));
  return exitcode::kFine;
}

}  // namespace qb
