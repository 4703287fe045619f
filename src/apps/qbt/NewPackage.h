#pragma once

#include <string>
#include <vector>

#include "apps/qbt/SourceFolder.h"
#include "platform/TextCodec.h"

namespace qb {

/// What a new package is made from. Texts are UTF-8.
struct NewPackage {
  std::string title;
  std::string sourceLanguage;
  std::string targetLanguage;
  bool localization = false;
  std::vector<SourceDocument> documents;
};

/// The folders that hold translations, sources and material of earlier versions.
inline constexpr const char* kTranslations = "dst";
inline constexpr const char* kSources = "src";

/// The bytes of the package file, in the code page of the target language: every key that a package from the
/// repository has, all documents to be translated. Raises CommandFailure for a text that the file cannot
/// hold.
std::string PackageText(const NewPackage& package);

}  // namespace qb
