#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "apps/qbt/PackageCheck.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// The number of a section that is spelled as one; 0 for another.
std::int64_t SectionNumber(std::string_view name) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  return error == std::errc() && end == name.data() + name.size() ? number : 0;
}

void CheckKind(const PackageSource& source, Findings& findings) {
  const PackageSource::Section* section = source.Find("TRANS");
  const PackageEntry* type = source.Find(section, "TRANSTYPE");
  const std::string word = type == nullptr ? std::string() : UpperCase(source.Text(type->value));
  if (word == "GEN" || word == "GEN_TWB") return;
  const std::uint32_t line = type != nullptr ? type->line : section != nullptr ? section->line : 0;
  findings.Error("package-kind", {line, 0},
                 word.empty() ? "TRANSTYPE is missing, so this is no package of the workbench"
                              : fmt::format("TRANSTYPE {} is no package of the workbench", word));
}

void CheckLanguages(const PackageSource& source, Findings& findings) {
  const PackageSource::Section* section = source.Find("GLOBAL");
  for (const char* key : {"TITLE", "SRCLANGUAGE", "DSTLANGUAGE"}) {
    const PackageEntry* entry = source.Find(section, key);
    if (entry != nullptr && !entry->value.empty()) continue;
    const std::uint32_t line = entry != nullptr ? entry->line : section != nullptr ? section->line : 0;
    findings.Warn("global-missing", {line, 0}, fmt::format("{} is missing", key));
  }
}

/// The number of documents that the file states; -1 if it states none.
std::int64_t StatedDocuments(const PackageSource& source, Findings& findings) {
  const PackageSource::Section* section = source.Find("GLOBAL");
  const PackageEntry* entry = source.Find(section, "INFOBJS");
  if (entry == nullptr) {
    findings.Error("count-missing", {section == nullptr ? 0 : section->line, 0},
                   "INFOBJS is missing, so no document is read");
    return -1;
  }
  const std::int64_t stated = SectionNumber(entry->value);
  if (stated <= 0 && entry->value != "0") {
    findings.Error("count-wrong", {entry->line, 0},
                   fmt::format("INFOBJS is no number of documents: \"{}\"", source.Text(entry->value)));
    return -1;
  }
  return stated;
}

}  // namespace

void CheckGlobals(const PackageContents& contents, Findings& findings) {
  const PackageSource& source = contents.Source();
  CheckKind(source, findings);
  CheckLanguages(source, findings);
  const std::int64_t stated = StatedDocuments(source, findings);
  if (stated < 0) return;
  for (const PackageSource::Section& section : source.Sections()) {
    if (SectionNumber(section.name) <= stated) continue;
    findings.Error(
        "document-uncounted", {section.line, 0},
        fmt::format("document [{}] is beyond INFOBJS {}, so it is never read", section.name, stated));
  }
  const std::uint32_t line = source.Find(source.Find("GLOBAL"), "INFOBJS")->line;
  std::int32_t expected = 1;
  for (const ListedDocument& document : contents.Documents()) {
    // One finding for a gap, however wide it is.
    if (document.number > expected) {
      findings.Error("document-missing", {line, 0},
                     document.number == expected + 1
                         ? fmt::format("there is no section [{}]", expected)
                         : fmt::format("there are no sections [{}] to [{}]", expected, document.number - 1));
    }
    expected = document.number + 1;
  }
  if (expected <= stated) {
    findings.Error(
        "document-missing", {line, 0},
        fmt::format("INFOBJS says {} documents, but there are {}", stated, contents.Documents().size()));
  }
}

}  // namespace qb
