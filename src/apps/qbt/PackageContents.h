#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/qbt/PackageSource.h"
#include "model/CPhioEntry.h"
#include "model/CState.h"

namespace qb {

/// The value of one key as bytes of the file, and where it stands. Line 0: the file does not have the key.
struct KeyValue {
  std::string_view bytes;
  std::uint32_t line = 0;

  bool IsThere() const { return line != 0; }
  bool IsEmpty() const { return bytes.empty(); }
};

/// A key that stands twice in its section; the first one counts.
struct DoubledKey {
  PackageEntry entry;
  std::uint32_t firstLine = 0;
};

struct ListedFile {
  KeyValue name;
  KeyValue format;
  KeyValue shortName;
};

/// What the file says of one language version of a document, by the words of its keys.
struct ListedVersion {
  KeyValue guid;
  KeyValue versionClass;
  KeyValue role;
  KeyValue path;
  KeyValue state;
  KeyValue format;
  KeyValue description;
  KeyValue fileCount;
  KeyValue properties;
  KeyValue links;
  std::map<std::int32_t, ListedFile> files;  ///< by number, those above the count too

  std::int32_t FileCount() const;
};

/// What the file says of one document.
struct ListedDocument {
  std::int32_t number = 0;
  std::uint32_t line = 0;  ///< of its section; 0 without one
  KeyValue guid;
  KeyValue documentClass;
  KeyValue technicalName;
  KeyValue process;
  KeyValue progress;
  KeyValue master;
  KeyValue subdocument;
  KeyValue slide;
  KeyValue versionCount;
  std::map<std::int32_t, ListedVersion> versions;  ///< by number, those above the count too
  std::vector<DoubledKey> doubled;

  std::int32_t VersionCount() const;
  /// The first version that counts with this role; null if there is none.
  const ListedVersion* Version(std::string_view role) const;
  /// The translation, failing that the source; null without either.
  const ListedVersion* Shown() const;
};

/// The documents of a package file, in their order. What stands in the file and is no part of a document is
/// not here.
class PackageContents {
 public:
  explicit PackageContents(const PackageSource& source);

  const PackageSource& Source() const { return source_; }
  const std::vector<ListedDocument>& Documents() const { return documents_; }
  /// Null if there is no document of this number.
  const ListedDocument* Document(std::int32_t number) const;

  /// The state that a document has once the package is opened, open marks kept.
  CState State(const ListedDocument& document) const;
  /// The version as the program has it: files in their order, properties read. Null for an unknown role.
  std::shared_ptr<CPhioEntry> Version(const ListedVersion& version) const;
  /// Title of the version in a role; empty without one.
  std::string Title(const ListedDocument& document, std::string_view role) const;
  /// The format word of the first version that has one, the translation asked first.
  std::string_view Format(const ListedDocument& document) const;

 private:
  void ReadDocument(const PackageSource::Section& section, ListedDocument& document) const;
  std::shared_ptr<CProperties> Properties(const ListedVersion& version) const;

  const PackageSource& source_;
  std::vector<ListedDocument> documents_;
};

/// The number that a count states as the program reads it; 0 for one that is missing, negative or too large.
std::int32_t CountIn(std::string_view bytes);

}  // namespace qb
