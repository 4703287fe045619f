#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "model/CLoioEntry.h"
#include "ui/controls/TableTree.h"

namespace qb {

// The nodes of documents and their files in the main window's tree.

inline constexpr std::string_view kRootKey = "@ROOT";
inline constexpr int kPrimaryImage = 10;
inline constexpr int kFileImage = 12;

/// Key of the node of a document's file.
std::string FileNodeKey(std::string_view loioKey, std::string_view fileName);

/// The main window's tree.
TableTree& PackageTree();

/// Looks for the `.ttx` companions of many files. Each folder is read once, as most hold none at all.
class CompanionSearch {
 public:
  /// Whether a file of this name has a companion in the folder of one of the document's translations.
  bool Finds(const CLoioEntry& loio, std::string_view fileName);

 private:
  bool MayHoldAny(const std::string& folder);

  std::unordered_map<std::string, bool> folders_;  ///< whether they hold a companion of anything
};

}  // namespace qb
