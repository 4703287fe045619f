#pragma once

#include <string>
#include <vector>

#include "apps/qbt/PackageContents.h"

namespace qb {

/// What a user calls a document: its technical name, or its GUID without one.
std::string NameOf(const PackageContents& contents, const ListedDocument& document);

/// The document that a word names: by GUID, technical name (regardless of case) or number, asked in this
/// order;
/// "#3" is a number only. Raises CommandFailure if there is none, or if the word names more than one.
const ListedDocument& FindDocument(const PackageContents& contents, const std::string& word);

/// The documents that the words name, in their order, each once.
std::vector<const ListedDocument*> FindDocuments(const PackageContents& contents,
                                                 const std::vector<std::string>& words);

}  // namespace qb
