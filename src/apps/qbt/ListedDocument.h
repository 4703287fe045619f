#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "apps/qbt/ByNumber.h"
#include "apps/qbt/PackageSource.h"

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

/// One entry of an add-section.
struct ListedProperty {
  KeyValue name;
  KeyValue value;
  KeyValue info;
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
  ByNumber<ListedFile> files;  ///< by number, those above the count too

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
  ByNumber<ListedVersion> versions;  ///< by number, those above the count too
  std::vector<DoubledKey> doubled;

  std::int32_t VersionCount() const;
  /// The first version that counts with this role; null if there is none.
  const ListedVersion* Version(std::string_view role) const;
  /// The translation, failing that the source; null without either.
  const ListedVersion* Shown() const;
};

/// Reads the section of a document.
void ReadListedDocument(const PackageSource& source, const PackageSource::Section& section,
                        ListedDocument& document);

/// The entries of an add-section by their number, those above its count too.
std::map<std::int32_t, ListedProperty> ListedProperties(const PackageSource& source,
                                                        const PackageSource::Section& section);

/// The number that a count states as the program reads it; 0 for one that is missing, negative or too large.
std::int32_t CountIn(std::string_view bytes);

/// The number that `digits` spell without a zero in front; 0 for any other text, and
/// from ten digits on.
std::int32_t PlainNumber(std::string_view digits);

}  // namespace qb
