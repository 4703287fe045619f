#pragma once

#include <string>
#include <string_view>

namespace qb {

/// The text keys of one text, which may be worded apart for translation and for localization.
struct TwoWordings {
  std::string_view translation;
  std::string_view localization;

  /// The wording for the kind of package that is open.
  std::string Text() const;
};

}  // namespace qb
