#pragma once

#include <string>
#include <string_view>

namespace qb {

/// A file's times as text of 14 digits, "yyyymmddhhnnss".
class CMyFileTime {
 public:
  void SetFile(std::string_view fileName);

  /// Local time of the last write; for a missing file "18991230000000", which no existing file gives.
  std::string GetLastModification() const;

  /// Creation in UTC; for a missing file the moment that a time of all zeros stands for, "16010101000000".
  std::string GetCreation() const;

 private:
  std::string fileName_;
};

}  // namespace qb
