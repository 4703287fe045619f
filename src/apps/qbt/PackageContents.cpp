#include "apps/qbt/PackageContents.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

constexpr std::array<std::string_view, 4> kRoles{"DST_CURR", "SRC_CURR", "SRC_PREV", "DST_PREV"};

template <class Owner>
struct Word {
  std::string_view word;
  KeyValue Owner::*value;
};

constexpr std::array kDocumentWords{Word<ListedDocument>{"LOIO", &ListedDocument::guid},
                                    Word<ListedDocument>{"CLASS", &ListedDocument::documentClass},
                                    Word<ListedDocument>{"RVD_TECH_NAME", &ListedDocument::technicalName},
                                    Word<ListedDocument>{"PROCESS", &ListedDocument::process},
                                    Word<ListedDocument>{"PROGRESS", &ListedDocument::progress},
                                    Word<ListedDocument>{"MASTER", &ListedDocument::master},
                                    Word<ListedDocument>{"SEQNR1", &ListedDocument::subdocument},
                                    Word<ListedDocument>{"SEQNR2", &ListedDocument::slide},
                                    Word<ListedDocument>{"PHIO_COUNT", &ListedDocument::versionCount}};

constexpr std::array kVersionWords{Word<ListedVersion>{"PHIO", &ListedVersion::guid},
                                   Word<ListedVersion>{"CLASS", &ListedVersion::versionClass},
                                   Word<ListedVersion>{"ROLE", &ListedVersion::role},
                                   Word<ListedVersion>{"PATH", &ListedVersion::path},
                                   Word<ListedVersion>{"STATE", &ListedVersion::state},
                                   Word<ListedVersion>{"DOCUMENT_FORMAT", &ListedVersion::format},
                                   Word<ListedVersion>{"DESCRIPTION", &ListedVersion::description},
                                   Word<ListedVersion>{"FILE_COUNT", &ListedVersion::fileCount},
                                   Word<ListedVersion>{"PROPSECTION", &ListedVersion::properties},
                                   Word<ListedVersion>{"ADDSECTION", &ListedVersion::links}};

constexpr std::array kFileWords{Word<ListedFile>{"FILE_NAME", &ListedFile::name},
                                Word<ListedFile>{"FORMAT", &ListedFile::format},
                                Word<ListedFile>{"SHORT_NAME", &ListedFile::shortName}};

/// Where the value of a key goes; null for a word that is not known.
template <class Owner, std::size_t kCount>
KeyValue Owner::*Member(const std::array<Word<Owner>, kCount>& words, std::string_view word) {
  for (const Word<Owner>& known : words) {
    if (SameName(known.word, word)) return known.value;
  }
  return nullptr;
}

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// The plain number that `digits` spell; 0 for no digits, a zero in front, or too many.
std::int32_t PlainNumber(std::string_view digits) {
  std::int32_t number = 0;
  if (digits.empty() || digits.front() == '0') return 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

/// Takes keys of one section in, each to its place. Keys of a version mostly stand together.
class DocumentReader {
 public:
  explicit DocumentReader(ListedDocument& document) : document_(document) {}

  void Take(const PackageEntry& entry) {
    KeyValue* place = PlaceOf(entry.name);
    if (place == nullptr) return;
    if (place->IsThere()) {
      document_.doubled.push_back({entry, place->line});
      return;
    }
    *place = {entry.value, entry.line};
  }

 private:
  /// A version or file comes to be by its first known key, so that strange keys leave no trace.
  KeyValue* PlaceOf(std::string_view name) {
    const auto notDigit = std::find_if_not(name.begin(), name.end(), IsDigit);
    const auto front = static_cast<std::size_t>(notDigit - name.begin());
    if (front == 0) {
      const auto member = Member(kDocumentWords, name);
      return member == nullptr ? nullptr : &(document_.*member);
    }
    const std::int32_t version = PlainNumber(name.substr(0, front));
    if (version == 0) return nullptr;
    std::size_t end = name.size();
    while (end > front && IsDigit(name[end - 1])) --end;
    const std::string_view word = name.substr(front, end - front);
    if (end == name.size()) {
      const auto member = Member(kVersionWords, word);
      return member == nullptr ? nullptr : &(Version(version).*member);
    }
    const std::int32_t file = PlainNumber(name.substr(end));
    const auto member = Member(kFileWords, word);
    return file == 0 || member == nullptr ? nullptr : &(File(version, file).*member);
  }

  ListedVersion& Version(std::int32_t number) {
    if (version_ == nullptr || number != versionNumber_) {
      version_ = &document_.versions[number];
      versionNumber_ = number;
    }
    return *version_;
  }

  ListedFile& File(std::int32_t version, std::int32_t number) {
    if (file_ == nullptr || number != fileNumber_ || version != fileOwner_) {
      file_ = &Version(version).files[number];
      fileNumber_ = number;
      fileOwner_ = version;
    }
    return *file_;
  }

  ListedDocument& document_;
  ListedVersion* version_ = nullptr;
  std::int32_t versionNumber_ = 0;
  ListedFile* file_ = nullptr;
  std::int32_t fileNumber_ = 0;
  std::int32_t fileOwner_ = 0;
};

}  // namespace

std::int32_t CountIn(std::string_view bytes) {
  const std::int32_t plain = PlainNumber(bytes);
  if (plain != 0) return plain;
  std::int32_t count = 0;
  if (!Attempt([&] { count = LenientNumber(bytes); })) Err.Clear();
  return std::max(count, 0);
}

std::int32_t ListedVersion::FileCount() const {
  return CountIn(fileCount.bytes);
}

std::int32_t ListedDocument::VersionCount() const {
  return CountIn(versionCount.bytes);
}

const ListedVersion* ListedDocument::Version(std::string_view role) const {
  const std::int32_t count = VersionCount();
  for (const auto& [number, version] : versions) {
    if (number <= count && version.role.bytes == role) return &version;
  }
  return nullptr;
}

const ListedVersion* ListedDocument::Shown() const {
  const ListedVersion* translation = Version(kRoles[role::kDstCurr]);
  return translation != nullptr ? translation : Version(kRoles[role::kSrcCurr]);
}

PackageContents::PackageContents(const PackageSource& source) : source_(source) {
  const PackageEntry* stated = source.Find(source.Find("GLOBAL"), "INFOBJS");
  const std::int32_t count = stated == nullptr ? 0 : CountIn(stated->value);
  for (const PackageSource::Section& section : source.Sections()) {
    const std::int32_t number = section.shadowed ? 0 : PlainNumber(section.name);
    if (number == 0 || number > count) continue;
    ListedDocument& document = documents_.emplace_back();
    document.number = number;
    ReadDocument(section, document);
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

void PackageContents::ReadDocument(const PackageSource::Section& section, ListedDocument& document) const {
  document.line = section.line;
  DocumentReader reader(document);
  for (const PackageEntry& entry : source_.Entries(section)) reader.Take(entry);
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
  const PackageEntry* stated = source_.Find(section, "COUNT");
  const std::int32_t count = stated == nullptr ? 0 : CountIn(stated->value);
  const auto value = [&](std::int32_t number, const char* word) {
    const PackageEntry* entry = source_.Find(section, std::to_string(number) + word);
    return entry == nullptr ? std::string() : source_.Text(entry->value);
  };
  for (std::int32_t i = 1; i <= count; ++i) {
    const std::string name = value(i, "NAME");
    if (name.empty()) return nullptr;  // as the program does, which then has no list at all
    properties->Add(name, value(i, "VALUE"), value(i, "INFO"), {});
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
