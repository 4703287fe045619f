#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qb::office {

/// The links of a document in its order, those of headers and footers at the end.
struct Links {
  /// Of the whole document, or for a presentation or a drawing empty.
  std::vector<std::string> links;
  /// One list for each slide or page.
  std::vector<std::vector<std::string>> slides;
};

/// Reads the addresses out of a document in the office's flat XML. A link that is written in several pieces,
/// one right after the other, is one. Line breaks in addresses are dropped. Raises `Failure` "office" if it
/// is not such a document.
Links ReadLinks(std::string_view xml);

}  // namespace qb::office
