#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qb {

enum class Severity { kError, kWarning };

/// One thing that is wrong with a package.
struct Finding {
  Severity severity = Severity::kError;
  std::string_view code;      ///< a word for scripts that stays the same from release to release
  std::uint32_t line = 0;     ///< in the package file, from 1; 0: no line in particular
  std::int32_t document = 0;  ///< number of the document; 0: none in particular
  std::string message;
};

/// Where in the package something was found.
struct FindingPlace {
  std::uint32_t line = 0;
  std::int32_t document = 0;
};

class Findings {
 public:
  /// An error is what hinders the program, or would be lost or wrong when the package goes back.
  void Error(std::string_view code, FindingPlace place, std::string message) {
    list_.push_back({Severity::kError, code, place.line, place.document, std::move(message)});
  }
  /// A warning is what may be meant so.
  void Warn(std::string_view code, FindingPlace place, std::string message) {
    list_.push_back({Severity::kWarning, code, place.line, place.document, std::move(message)});
  }

  const std::vector<Finding>& List() const { return list_; }
  std::size_t Count(Severity severity) const;
  /// Puts them into the order of their lines; those without one come last.
  void Sort();

 private:
  std::vector<Finding> list_;
};

}  // namespace qb
