#include <fmt/format.h>

#include <unordered_map>
#include <unordered_set>

#include "apps/qbt/PackageCheck.h"
#include "apps/qbt/Progress.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace qb {
namespace {

constexpr std::array<std::string_view, 4> kRoles{"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"};
constexpr std::array<std::string_view, 5> kVersionStates{"DUMMY", "UNCHANGED", "INCOMPLETE", "MODIFIED",
                                                         "READONLY"};

template <class Words>
bool IsOneOf(std::string_view word, const Words& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsStrictNumber(std::string_view text) {
  const bool isNumber = Attempt([&] { StrictNumber(text); });
  Err.Clear();
  return isNumber;
}

/// Checks one document.
class DocumentCheck {
 public:
  DocumentCheck(const PackageContents& contents, const ListedDocument& document, Findings& findings)
      : source_(contents.Source()),
        document_(document),
        state_(contents.State(document)),
        findings_(findings) {}

  void Run() {
    Require({{"LOIO", &document_.guid},
             {"CLASS", &document_.documentClass},
             {"RVD_TECH_NAME", &document_.technicalName}},
            "document", document_.line);
    if (document_.guid.bytes.find('_') != std::string_view::npos) {
      findings_.Error("guid-underscore", At(document_.guid),
                      "the GUID holds a \"_\", by which the program would cut it");
    }
    CheckState();
    CheckLocation();
    CheckVersions();
  }

 private:
  struct Required {
    const char* key;
    const KeyValue* value;
  };

  FindingPlace At(const KeyValue& value) const { return Near(value, document_.line); }
  FindingPlace Near(const KeyValue& value, std::uint32_t line) const {
    return {value.IsThere() ? value.line : line, document_.number};
  }
  std::string Text(const KeyValue& value) const { return source_.Text(value.bytes); }

  void Require(std::initializer_list<Required> required, std::string_view of, std::uint32_t line) {
    for (const Required& each : required) {
      if (!each.value->IsEmpty()) continue;
      findings_.Error("key-missing", Near(*each.value, line),
                      fmt::format("{} of the {} is missing, so the package does not open", each.key, of));
    }
  }

  void CheckState() {
    const std::string word = Text(document_.progress);
    if (!word.empty()) {
      CState state;
      state.InternalizeState(word);
      if (state.ExternalizeState() != word) {
        findings_.Error("state-unknown", At(document_.progress), fmt::format("unknown PROGRESS {}", word));
      }
    }
    if (IsMarkedOpen(state_)) {
      findings_.Error("document-open", At(document_.progress), "the document is still open in an editor");
    } else if (const Progress progress = ProgressOf(state_);
               progress != Progress::kCompleted && progress != Progress::kReadOnly) {
      findings_.Warn("not-completed", At(document_.progress),
                     fmt::format("the document is not completed but {}", Word(progress)));
    }
  }

  void CheckLocation() {
    const auto place = {&document_.master, &document_.subdocument, &document_.slide};
    const auto there =
        std::count_if(place.begin(), place.end(), [](const KeyValue* v) { return !v->IsEmpty(); });
    if (there == 0 || there == static_cast<std::ptrdiff_t>(place.size())) return;
    findings_.Warn("location-partial", {document_.line, document_.number},
                   "MASTER, SEQNR1 and SEQNR2 count together only, and not all of them are there");
  }

  void CheckVersions() {
    if (!document_.versionCount.IsThere() || !IsStrictNumber(document_.versionCount.bytes)) {
      findings_.Error("count-missing", At(document_.versionCount), "PHIO_COUNT is missing, or no number");
    }
    const std::int32_t count = document_.VersionCount();
    std::int32_t expected = 1;
    for (const auto& [number, version] : document_.versions) {
      if (number > count) {
        findings_.Error(
            "version-uncounted", LineOf(version),
            fmt::format("version {} is beyond PHIO_COUNT {}, so it is never read", number, count));
        continue;
      }
      if (number > expected) ReportMissing(expected, number - 1);
      expected = number + 1;
      CheckVersion(number, version);
    }
    if (expected <= count) ReportMissing(expected, count);
    CheckRoles();
  }

  void ReportMissing(std::int32_t first, std::int32_t last) {
    findings_.Error("version-missing", At(document_.versionCount),
                    fmt::format("PHIO_COUNT says {}, but there is no version {}{}", document_.VersionCount(),
                                first, last > first ? fmt::format(" to {}", last) : ""));
  }

  /// The first line of a version.
  FindingPlace LineOf(const ListedVersion& version) const {
    for (const KeyValue* value : {&version.guid, &version.versionClass, &version.role, &version.path,
                                  &version.state, &version.fileCount}) {
      if (value->IsThere()) return {value->line, document_.number};
    }
    return {document_.line, document_.number};
  }

  void CheckVersion(std::int32_t number, const ListedVersion& version) {
    Require({{"PHIO", &version.guid},
             {"CLASS", &version.versionClass},
             {"ROLE", &version.role},
             {"PATH", &version.path},
             {"STATE", &version.state}},
            fmt::format("version {}", number), LineOf(version).line);
    if (!version.role.IsEmpty() && !IsOneOf(version.role.bytes, kRoles)) {
      findings_.Error("role-unknown", At(version.role),
                      fmt::format("unknown ROLE {}, so the package does not open", Text(version.role)));
    }
    if (!version.state.IsEmpty() && !IsOneOf(version.state.bytes, kVersionStates)) {
      findings_.Error("state-unknown", At(version.state),
                      fmt::format("unknown STATE {}", Text(version.state)));
    } else if (!document_.progress.IsEmpty() && version.role.bytes == kRoles[role::kDstCurr] &&
               version.state.bytes != state_.GetDstCurrState()) {
      findings_.Warn("state-differs", At(version.state),
                     fmt::format("STATE {} does not go with PROGRESS {}", Text(version.state),
                                 Text(document_.progress)));
    }
    CheckFileList(version);
  }

  void CheckFileList(const ListedVersion& version) {
    if (!IsStrictNumber(version.fileCount.bytes)) {
      findings_.Error("count-missing", {LineOf(version).line, document_.number},
                      "FILE_COUNT is missing, or no number, so the package does not open");
      return;
    }
    const std::int32_t count = version.FileCount();
    std::size_t primaries = 0;
    std::int32_t named = 0;
    for (const auto& [number, file] : version.files) {
      if (number > count) {
        findings_.Error("file-uncounted", {FirstLine(file), document_.number},
                        fmt::format("file {} is beyond FILE_COUNT {}, so it is never read", number, count));
        continue;
      }
      if (!file.name.IsEmpty()) ++named;
      if (file.format.bytes == kPrimaryFormat) ++primaries;
      if (file.format.bytes != kPrimaryFormat && SameName(file.format.bytes, kPrimaryFormat)) {
        findings_.Warn(
            "primary-case", At(file.format),
            fmt::format("the format {} does not mark a primary file: it is written PRIM", Text(file.format)));
      }
    }
    if (named < count) {
      findings_.Error("file-unnamed", At(version.fileCount),
                      fmt::format("FILE_COUNT says {}, but {} files have a name", count, named));
    }
    if (count > 0 && primaries != 1) {
      findings_.Warn("primary-count", At(version.fileCount),
                     fmt::format("{} of the files are marked as primary", primaries));
    }
    if (count == 0 && &version == document_.Shown()) {
      findings_.Error("no-files", At(version.fileCount), "there are no files, so the package does not open");
    }
  }

  static std::uint32_t FirstLine(const ListedFile& file) {
    for (const KeyValue* value : {&file.name, &file.format, &file.shortName}) {
      if (value->IsThere()) return value->line;
    }
    return 0;
  }

  void CheckRoles() {
    std::unordered_set<std::string_view> seen;
    for (const auto& [number, version] : document_.versions) {
      if (number > document_.VersionCount() || version.role.IsEmpty()) continue;
      if (!seen.insert(version.role.bytes).second) {
        findings_.Warn("role-doubled", At(version.role),
                       fmt::format("a version in the role {} stands before this one, which is never used",
                                   Text(version.role)));
      }
    }
    if (document_.Shown() == nullptr) {
      findings_.Error("no-version", {document_.line, document_.number},
                      "there is neither a translation nor a source, so the package does not open");
    }
  }

  const PackageSource& source_;
  const ListedDocument& document_;
  CState state_;
  Findings& findings_;
};

/// Finds GUIDs that stand for two things.
class IdentityCheck {
 public:
  IdentityCheck(const PackageSource& source, Findings& findings) : source_(source), findings_(findings) {}

  void Add(const KeyValue& guid, std::int32_t document) {
    if (guid.IsEmpty()) return;
    const auto [known, isNew] = lines_.emplace(UpperCase(source_.Text(guid.bytes)), guid.line);
    if (isNew) return;
    findings_.Error(
        "guid-doubled", {guid.line, document},
        fmt::format("the GUID {} stands in line {} already", source_.Text(guid.bytes), known->second));
  }

 private:
  const PackageSource& source_;
  Findings& findings_;
  std::unordered_map<std::string, std::uint32_t> lines_;
};

}  // namespace

void CheckDocuments(const PackageContents& contents, Findings& findings) {
  IdentityCheck documents(contents.Source(), findings);
  IdentityCheck versions(contents.Source(), findings);
  for (const ListedDocument& document : contents.Documents()) {
    DocumentCheck(contents, document, findings).Run();
    documents.Add(document.guid, document.number);
    for (const auto& [number, version] : document.versions) versions.Add(version.guid, document.number);
  }
}

}  // namespace qb
