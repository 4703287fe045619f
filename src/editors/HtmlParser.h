#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/TaggedValue.h"

namespace qb {

/// Finds title and links in an HTML file. A number is a member's position in its interface.
class IHtmlParser {
 public:
  virtual ~IHtmlParser() = default;
  /// The title that the last `Parse` found; empty if it found none or failed.
  virtual std::string Title() = 0;  // 0
  /// Reads a file. `links` becomes the link texts in the file's order, `code` 0 on success. The two arguments
  /// between are 0 and -1 in every call.
  virtual void Parse(std::string_view fileName, std::vector<TaggedValue>& links, std::int32_t first,
                     std::int32_t second, std::int32_t& code) = 0;  // 3
};

}  // namespace qb
