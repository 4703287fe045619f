#include "apps/qbt/ListedDocument.h"

#include <algorithm>
#include <array>

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

namespace qb {
namespace {

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

constexpr std::array kPropertyWords{Word<ListedProperty>{"NAME", &ListedProperty::name},
                                    Word<ListedProperty>{"VALUE", &ListedProperty::value},
                                    Word<ListedProperty>{"INFO", &ListedProperty::info}};

/// Where the value of a key goes; null for a word that is not known.
template <class Owner, std::size_t kCount>
KeyValue Owner::*Member(const std::array<Word<Owner>, kCount>& words, std::string_view word) {
  for (const Word<Owner>& known : words) {
    if (known.word.size() == word.size() && SameName(known.word, word)) return known.value;
  }
  return nullptr;
}

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
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

std::int32_t PlainNumber(std::string_view digits) {
  constexpr std::size_t kMostDigits = 9;  // so that it fits
  constexpr std::int32_t kBase = 10;
  if (digits.empty() || digits.front() == '0' || digits.size() > kMostDigits) return 0;
  std::int32_t number = 0;
  for (const char digit : digits) {
    if (!IsDigit(digit)) return 0;
    number = number * kBase + (digit - '0');
  }
  return number;
}

void ReadListedDocument(const PackageSource& source, const PackageSource::Section& section,
                        ListedDocument& document) {
  document.line = section.line;
  DocumentReader reader(document);
  for (const PackageEntry& entry : source.Entries(section)) reader.Take(entry);
}

std::map<std::int32_t, ListedProperty> ListedProperties(const PackageSource& source,
                                                        const PackageSource::Section& section) {
  std::map<std::int32_t, ListedProperty> properties;
  for (const PackageEntry& entry : source.Entries(section)) {
    const auto notDigit = std::find_if_not(entry.name.begin(), entry.name.end(), IsDigit);
    const auto front = static_cast<std::size_t>(notDigit - entry.name.begin());
    const std::int32_t number = PlainNumber(entry.name.substr(0, front));
    const auto member = Member(kPropertyWords, entry.name.substr(front));
    if (number == 0 || member == nullptr) continue;
    KeyValue& place = properties[number].*member;
    if (!place.IsThere()) place = {entry.value, entry.line};
  }
  return properties;
}

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
  const ListedVersion* translation = Version("DST_CURR");
  return translation != nullptr ? translation : Version("SRC_CURR");
}

}  // namespace qb
