#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/qbt/ListedDocument.h"
#include "apps/qbt/PackageSource.h"
#include "model/CPhioEntry.h"
#include "model/CState.h"

namespace qb {

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
  std::shared_ptr<CProperties> Properties(const ListedVersion& version) const;

  const PackageSource& source_;
  std::vector<ListedDocument> documents_;
};

}  // namespace qb
