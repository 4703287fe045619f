#include "apps/qbt/SourceFolder.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <system_error>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "runtime/Text.h"

namespace qb {
namespace {

namespace fs = std::filesystem;

struct KnownKind {
  std::string_view extension;
  std::string_view format;
  std::string_view process;
};

/// The processes are those that the workbench has an editor for.
constexpr std::array kKinds{KnownKind{"DOC", "DOC", "DOC_HTML"}, KnownKind{"PPT", "PPT", "PPT_HTML"},
                            KnownKind{"VSD", "VSD", "VSD_HTML"}, KnownKind{"HTML", "HTML", "HTML"},
                            KnownKind{"HTM", "HTM", "HTML"},     KnownKind{"JS", "JS", "JS"},
                            KnownKind{"CSS", "CSS", "CSS"},      KnownKind{"XML", "XML", "PAW_XML"},
                            KnownKind{"THTM", "THTM", "THTM"},   KnownKind{"TXT", "TXT", "THTM"},
                            KnownKind{"DOCX", "DOCX", ""},       KnownKind{"PPTX", "PPTX", ""},
                            KnownKind{"XLSX", "XLSX", ""},       KnownKind{"ODT", "ODT", ""},
                            KnownKind{"ODP", "ODP", ""},         KnownKind{"RTF", "RTF", ""},
                            KnownKind{"MD", "MD", ""},           KnownKind{"JSON", "JSON", ""},
                            KnownKind{"PO", "PO", ""},           KnownKind{"XLF", "XLF", ""}};

const KnownKind* FindKind(const std::string& extension) {
  const auto known = std::find_if(kKinds.begin(), kKinds.end(),
                                  [&](const KnownKind& kind) { return kind.extension == extension; });
  return known == kKinds.end() ? nullptr : &*known;
}

/// In capital letters, without the dot.
std::string ExtensionOf(const fs::path& file) {
  const std::string extension = file.extension().string();
  return extension.empty() ? std::string() : UpperCase(extension.substr(1));
}

bool IsHidden(const fs::path& path) {
  return path.filename().string().starts_with('.');
}

[[noreturn]] void RaiseUnreadable(const fs::path& folder, const std::error_code& why) {
  throw CommandFailure(exitcode::kUnreadable,
                       fmt::format("{} cannot be read: {}", folder.string(), why.message()));
}

/// The ordinary files by their folder, both from `folder` on.
std::map<fs::path, std::vector<std::string>> FilesByFolder(const fs::path& folder,
                                                           std::vector<fs::path>& passedOver) {
  std::map<fs::path, std::vector<std::string>> files;
  std::error_code failed;
  for (fs::recursive_directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    const fs::path relative = entry->path().lexically_relative(folder);
    std::error_code unknown;
    const fs::file_status status = entry->symlink_status(unknown);
    if (unknown) RaiseUnreadable(entry->path(), unknown);
    const bool isFolder = fs::is_directory(status);
    if (IsHidden(relative) || (!isFolder && !fs::is_regular_file(status))) {
      passedOver.push_back(relative);
      if (isFolder) entry.disable_recursion_pending();
    } else if (!isFolder) {
      files[relative.parent_path()].push_back(relative.filename().string());
    }
  }
  if (failed) RaiseUnreadable(folder, failed);
  for (auto& [path, names] : files) std::sort(names.begin(), names.end());
  return files;
}

/// The document that a further file belongs to: the one with the longest name that the file's begins with.
SourceDocument& OwnerOf(const std::string& file, std::vector<SourceDocument>& documents) {
  SourceDocument* owner = &documents.front();
  std::size_t longest = 0;
  for (SourceDocument& document : documents) {
    const std::string stem = NativePath(document.files.front()).stem().string();
    if (stem.size() > longest && file.starts_with(stem)) {
      owner = &document;
      longest = stem.size();
    }
  }
  return *owner;
}

bool IsPage(const SourceDocument& document) {
  const std::string extension = ExtensionOf(NativePath(document.files.front()));
  return extension != "CSS" && extension != "JS";
}

}  // namespace

DocumentKind KindOf(const fs::path& file) {
  const std::string extension = ExtensionOf(file);
  const KnownKind* known = FindKind(extension);
  if (known == nullptr) return {extension, {}};
  return {std::string(known->format), std::string(known->process)};
}

std::vector<SourceDocument> FindSourceDocuments(const fs::path& folder, std::vector<fs::path>& passedOver) {
  std::vector<SourceDocument> all;
  for (const auto& [path, names] : FilesByFolder(folder, passedOver)) {
    std::vector<SourceDocument> documents;
    for (const std::string& name : names) {
      if (FindKind(ExtensionOf(NativePath(name))) != nullptr) documents.push_back({path, {name}});
    }
    // Pages come first, since pictures and the like belong to them rather than to their style sheets.
    std::stable_partition(documents.begin(), documents.end(), IsPage);
    const bool onlyFurther = documents.empty();
    for (const std::string& name : names) {
      if (FindKind(ExtensionOf(NativePath(name))) != nullptr) continue;
      if (onlyFurther) {
        documents.push_back({path, {name}});
      } else {
        OwnerOf(name, documents).files.push_back(name);
      }
    }
    all.insert(all.end(), documents.begin(), documents.end());
  }
  return all;
}

}  // namespace qb
