#include "apps/qbt/PackageContents.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qb {
namespace {

constexpr std::array<std::string_view, 4> kRoles{"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"};

}  // namespace

PackageContents::PackageContents(const PackageSource& source) : source_(source) {
  const PackageEntry* stated = source.Find(source.Find("GLOBAL"), "INFOBJS");
  const std::int32_t count = stated == nullptr ? 0 : CountIn(stated->value);
  documents_.reserve(std::min(static_cast<std::size_t>(count), source.Sections().size()));
  for (const PackageSource::Section& section : source.Sections()) {
    const std::int32_t number = section.shadowed ? 0 : PlainNumber(section.name);
    if (number == 0 || number > count) continue;
    ListedDocument& document = documents_.emplace_back();
    document.number = number;
    ReadListedDocument(source, section, document);
  }
  const auto byNumber = [](const ListedDocument& one, const ListedDocument& other) {
    return one.number < other.number;
  };
  if (!std::is_sorted(documents_.begin(), documents_.end(), byNumber)) {
    std::sort(documents_.begin(), documents_.end(), byNumber);
  }
}

const ListedDocument* PackageContents::Document(std::int32_t number) const {
  const auto found = std::lower_bound(
      documents_.begin(), documents_.end(), number,
      [](const ListedDocument& document, std::int32_t wanted) { return document.number < wanted; });
  return found != documents_.end() && found->number == number ? &*found : nullptr;
}

CState PackageContents::State(const ListedDocument& document) const {
  CState state;
  if (!document.progress.IsEmpty()) {
    state.InternalizeState(source_.Text(document.progress.bytes));
  } else if (document.Version(kRoles[role::kDstCurr]) == nullptr) {
    state.SetStateFromDstCurr("READONLY");
  }
  // Opening a package turns a state that was never set into that of a fresh document.
  if (state.myState == 0) state.OpenTransition();
  return state;
}

std::shared_ptr<CProperties> PackageContents::Properties(const ListedVersion& version) const {
  auto properties = std::make_shared<CProperties>();
  const PackageSource::Section* section =
      version.properties.IsEmpty() ? nullptr : source_.Find(version.properties.bytes);
  if (section == nullptr) return properties;
  const PackageEntry* stated = source_.Find(section, "COUNT");
  const std::int32_t count = stated == nullptr ? 0 : CountIn(stated->value);
  const auto listed = ListedProperties(source_, *section);
  for (std::int32_t i = 1; i <= count; ++i) {
    const auto property = listed.find(i);
    // As the program does, which then has no list at all.
    if (property == listed.end() || property->second.name.IsEmpty()) return nullptr;
    const auto& [name, value, info] = property->second;
    properties->Add(source_.Text(name.bytes), source_.Text(value.bytes), source_.Text(info.bytes), {});
  }
  return properties;
}

std::shared_ptr<CPhioEntry> PackageContents::Version(const ListedVersion& version) const {
  auto entry = std::make_shared<CPhioEntry>();
  const auto text = [this](const KeyValue& value) { return source_.Text(value.bytes); };
  if (!entry->Init(0, text(version.role), text(version.guid), text(version.versionClass),
                   text(version.format), text(version.description), text(version.path), text(version.state),
                   nullptr, Properties(version))) {
    return nullptr;
  }
  // The primary files come first, and the first file is primary where none is marked.
  const auto isPrimary = [](const ListedFile& file) { return file.format.bytes == kPrimaryFormat; };
  std::vector<const ListedFile*> files;
  const std::int32_t count = version.FileCount();
  for (const auto& [number, file] : version.files) {
    if (number <= count) files.push_back(&file);
  }
  const auto others = std::stable_partition(files.begin(), files.end(),
                                            [&](const ListedFile* file) { return isPrimary(*file); });
  const bool marked = others != files.begin();
  for (const ListedFile* file : files) {
    const bool primary = isPrimary(*file) || (!marked && file == files.front());
    entry->Add(text(file->name), primary ? kPrimaryFormat : text(file->format), text(file->shortName), {});
  }
  return entry;
}

std::string PackageContents::Title(const ListedDocument& document, std::string_view role) const {
  const ListedVersion* version = document.Version(role);
  if (version == nullptr) return {};
  if (!version->description.IsEmpty()) return source_.Text(version->description.bytes);
  return Version(*version)->GetTitle();
}

std::string_view PackageContents::Format(const ListedDocument& document) const {
  for (const std::string_view role : kRoles) {
    const ListedVersion* version = document.Version(role);
    if (version != nullptr && !version->format.IsEmpty()) return version->format.bytes;
  }
  return {};
}

}  // namespace qb
