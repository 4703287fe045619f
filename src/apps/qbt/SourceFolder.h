#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qb {

/// A document found in a folder: files of one subfolder, the primary one first.
struct SourceDocument {
  std::filesystem::path folder;    ///< from the folder of the sources on; empty for itself
  std::vector<std::string> files;  ///< names without a directory
};

/// The documents in a folder and all below it, in the order of their paths. A file of a format that can be
/// translated is a document of its own. Any other file belongs to the document beside it whose name it begins
/// with, else to the first one beside it; where there is none, it is a document of its own. Hidden files and
/// folders, and links, are passed over and named in `passedOver`. Raises CommandFailure if the folder cannot
/// be read.
std::vector<SourceDocument> FindSourceDocuments(const std::filesystem::path& folder,
                                                std::vector<std::filesystem::path>& passedOver);

/// The format word and the edit process of a file, by its extension.
struct DocumentKind {
  std::string format;
  std::string process;
};
DocumentKind KindOf(const std::filesystem::path& file);

}  // namespace qb
