#include <fmt/format.h>

#include "apps/qbt/PackageArgument.h"
#include "apps/qbt/PackageCheck.h"
#include "apps/qbt/PackageFolder.h"
#include "foundation/gRvdFile.h"
#include "model/CPxfFile.h"
#include "platform/Platform.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::string_view kCompanion = ".ttx";

/// Whether a path does nothing but go down from folder to folder.
bool IsPlain(std::string_view path) {
  return path.find(':') == std::string_view::npos && path.find("..") == std::string_view::npos;
}

class FileCheck {
 public:
  FileCheck(const PackageContents& contents, Findings& findings)
      : contents_(contents),
        source_(contents.Source()),
        findings_(findings),
        folder_(NativePath(ShownPath(DirectoryOf(source_.Path())))) {
    package_.Init(source_.Path());
  }

  void Run() {
    if (!folder_.Failure().empty()) {
      findings_.Error("folder-unreadable", {},
                      fmt::format("the package's folder cannot be read: {}", folder_.Failure()));
      return;
    }
    for (const ListedDocument& document : contents_.Documents()) {
      const std::int32_t count = document.VersionCount();
      for (const auto& [number, version] : document.versions) {
        if (number <= count && !version.path.IsEmpty()) CheckVersion(document, version);
      }
    }
    ReportExtraFiles();
  }

 private:
  void CheckVersion(const ListedDocument& document, const ListedVersion& version) {
    const std::string path = source_.Text(version.path.bytes) + '\\';
    const std::int32_t count = version.FileCount();
    for (const auto& [number, file] : version.files) {
      if (number > count || file.name.IsEmpty()) continue;
      const FindingPlace place{file.name.line, document.number};
      const std::string name = source_.Text(file.name.bytes);
      if (name.find_first_of("\\/") != std::string::npos) {
        findings_.Error("file-name", place, fmt::format("the file name {} holds a folder", ShownPath(name)));
      }
      CheckFile(path + name, place);
    }
  }

  void CheckFile(const std::string& path, FindingPlace place) {
    PackageFolder::File* file = IsPlain(path) ? folder_.Find(path) : nullptr;
    if (file == nullptr || file->isLink) {
      const std::string full = JoinFile(package_.GetPxfPath(), path);
      if (!package_.IsInsidePackage(full)) {
        findings_.Error("path-outside", place, fmt::format("{} leads out of the package", ShownPath(path)));
        return;
      }
      if (file == nullptr) {
        CheckUnusual(path, full, place);
        return;
      }
    }
    CheckSize(path, file->size, place);
    if (file->listedLine != 0) {
      findings_.Error(
          "file-doubled", place,
          fmt::format("the file {} is listed in line {} already", ShownPath(path), file->listedLine));
    }
    file->listedLine = place.line;
  }

  /// A file that the walk did not meet may still be there, behind a link of a folder.
  void CheckUnusual(const std::string& path, const std::string& full, FindingPlace place) {
    const std::optional<FileInfo> info = ThePlatform().files->Find(full);
    if (!info || (info->attributes & attribute::kDirectory) != 0) {
      findings_.Error("file-missing", place, fmt::format("the file {} is missing", ShownPath(path)));
      return;
    }
    CheckSize(path, info->size, place);
  }

  void CheckSize(const std::string& path, std::uintmax_t size, FindingPlace place) {
    if (size == 0) findings_.Warn("file-empty", place, fmt::format("the file {} is empty", ShownPath(path)));
  }

  /// What the program itself puts beside the documents.
  bool IsOwnFile(const std::string& folded) {
    const std::string name = FileNameOf(source_.Path());
    if (folded == PackageFolder::Folded(name) ||
        folded == PackageFolder::Folded(ChangeExtension(name, "BAK")) || folded == "protocol.txt") {
      return true;
    }
    if (folded.starts_with("bak\\") || folded.find("\\bak\\") != std::string::npos) return true;
    if (!folded.ends_with(kCompanion)) return false;
    const PackageFolder::File* document = folder_.Find(folded.substr(0, folded.size() - kCompanion.size()));
    return document != nullptr && document->listedLine != 0;
  }

  void ReportExtraFiles() {
    std::vector<std::string> extra;
    for (const auto& [folded, file] : folder_.Files()) {
      if (file.listedLine == 0 && !IsOwnFile(folded)) extra.push_back(file.path);
    }
    std::sort(extra.begin(), extra.end());
    for (const std::string& path : extra) {
      findings_.Warn("file-extra", {}, fmt::format("no document lists the file {}", ShownPath(path)));
    }
  }

  const PackageContents& contents_;
  const PackageSource& source_;
  Findings& findings_;
  PackageFolder folder_;
  CPxfFile package_;
};

}  // namespace

void CheckFiles(const PackageContents& contents, Findings& findings) {
  FileCheck(contents, findings).Run();
}

}  // namespace qb
