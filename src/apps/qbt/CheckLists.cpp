#include <fmt/format.h>

#include <unordered_map>

#include "apps/qbt/PackageCheck.h"

namespace qb {
namespace {

/// Goes through the add-sections that versions point at.
class ListCheck {
 public:
  ListCheck(const PackageSource& source, Findings& findings) : source_(source), findings_(findings) {}

  void Properties(const KeyValue& key, std::int32_t document) {
    const PackageSource::Section* section = Use(key, document, "PROPSECTION");
    if (section == nullptr) return;
    const PackageEntry* stated = source_.Find(section, "COUNT");
    const std::int32_t count = stated == nullptr ? 0 : CountIn(stated->value);
    if (stated == nullptr) {
      findings_.Warn("list-count", {section->line, document}, "COUNT of the properties is missing");
    }
    if (count == 0) return;
    const auto properties = ListedProperties(source_, *section);
    for (std::int32_t i = 1; i <= count; ++i) {
      const auto property = properties.find(i);
      if (property != properties.end() && !property->second.name.IsEmpty()) continue;
      const bool isThere = property != properties.end() && property->second.name.IsThere();
      findings_.Error("property-unnamed", {isThere ? property->second.name.line : section->line, document},
                      fmt::format("property {} of {} has no name, so none of them can be loaded", i, count));
      return;
    }
  }

  void Links(const KeyValue& key, std::int32_t document) { Use(key, document, "ADDSECTION"); }

  void ReportUnused() {
    for (const PackageSource::Section& section : source_.Sections()) {
      const bool isList = section.name.size() > 3 && SameName(section.name.substr(0, 3), "ADD") &&
                          section.name.find_first_not_of("0123456789", 3) == std::string_view::npos;
      if (!isList || section.shadowed || users_.contains(&section)) continue;
      findings_.Warn("list-unused", {section.line, 0},
                     fmt::format("no version uses the section [{}]", source_.Text(section.name)));
    }
  }

 private:
  /// The section that the key names; null, which is told, if there is none.
  const PackageSource::Section* Use(const KeyValue& key, std::int32_t document, const char* word) {
    if (key.IsEmpty()) return nullptr;
    const PackageSource::Section* section = source_.Find(key.bytes);
    if (section == nullptr) {
      findings_.Error(
          "list-missing", {key.line, document},
          fmt::format("{} names a section [{}], which is missing", word, source_.Text(key.bytes)));
      return nullptr;
    }
    const auto [user, isNew] = users_.emplace(section, key.line);
    if (!isNew) {
      findings_.Error("list-shared", {key.line, document},
                      fmt::format("the section [{}] belongs to the version of line {} already",
                                  source_.Text(key.bytes), user->second));
    }
    return section;
  }

  const PackageSource& source_;
  Findings& findings_;
  std::unordered_map<const PackageSource::Section*, std::uint32_t> users_;
};

}  // namespace

void CheckLists(const PackageContents& contents, Findings& findings) {
  ListCheck check(contents.Source(), findings);
  for (const ListedDocument& document : contents.Documents()) {
    const std::int32_t count = document.VersionCount();
    for (const auto& [number, version] : document.versions) {
      if (number > count) break;
      check.Properties(version.properties, document.number);
      check.Links(version.links, document.number);
    }
  }
  check.ReportUnused();
}

}  // namespace qb
