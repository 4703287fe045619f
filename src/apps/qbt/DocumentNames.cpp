#include "apps/qbt/DocumentNames.h"

#include <fmt/format.h>

#include <algorithm>

#include "apps/qbt/ExitCode.h"
#include "apps/qbt/PackageArgument.h"
#include "runtime/Text.h"

namespace qb {
namespace {

/// All documents whose `value` is the word. Raises CommandFailure if there are several.
const ListedDocument* Only(const PackageContents& contents, const std::string& word,
                           KeyValue ListedDocument::*value) {
  const ListedDocument* found = nullptr;
  for (const ListedDocument& document : contents.Documents()) {
    if (!EqualIgnoringCase(contents.Source().Text((document.*value).bytes), word)) continue;
    if (found != nullptr) {
      throw CommandFailure(exitcode::kUsage,
                           fmt::format("{} names documents #{} and #{}: name one by its number", word,
                                       found->number, document.number));
    }
    found = &document;
  }
  return found;
}

}  // namespace

std::string NameOf(const PackageContents& contents, const ListedDocument& document) {
  const std::string name = contents.Source().Text(document.technicalName.bytes);
  return name.empty() ? contents.Source().Text(document.guid.bytes) : name;
}

const ListedDocument& FindDocument(const PackageContents& contents, const std::string& word) {
  if (!word.empty()) {
    if (const ListedDocument* document = Only(contents, word, &ListedDocument::guid)) return *document;
    if (const ListedDocument* document = Only(contents, word, &ListedDocument::technicalName))
      return *document;
    const std::string digits = word.front() == '#' ? word.substr(1) : word;
    for (const ListedDocument& document : contents.Documents()) {
      if (std::to_string(document.number) == digits) return document;
    }
  }
  throw CommandFailure(exitcode::kUsage, fmt::format("there is no document {} in {}", word,
                                                     ShownPath(contents.Source().Path())));
}

std::vector<const ListedDocument*> FindDocuments(const PackageContents& contents,
                                                 const std::vector<std::string>& words) {
  std::vector<const ListedDocument*> documents;
  for (const std::string& word : words) {
    const ListedDocument* document = &FindDocument(contents, word);
    if (std::find(documents.begin(), documents.end(), document) == documents.end())
      documents.push_back(document);
  }
  return documents;
}

}  // namespace qb
