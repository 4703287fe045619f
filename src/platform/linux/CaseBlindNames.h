#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace qb {

/// Finds files by names that may be spelled in another case than in their folders. Listings of folders are
/// kept as long as the folders do not change, so that asking for missing files is cheap.
class CaseBlindNames {
 public:
  /// The absolute native path as the folders spell it; nothing if there is no such file. A name that stands
  /// as asked for comes first.
  std::optional<std::string> Existing(const std::string& native);

  /// Like `Existing`; of what is missing the folder at least is spelled right, and the rest stays as asked
  /// for.
  std::string ForCreation(const std::string& native);

 private:
  struct Listing {
    std::uint64_t device = 0;
    std::uint64_t node = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    bool young = true;                                   // a further change could get the same time
    std::unordered_map<std::string, std::string> names;  // by the upper-case name
  };

  const Listing* Folder(const std::string& native);
  void Read(const std::string& native, Listing& listing);

  std::unordered_map<std::string, Listing> folders_;
  std::size_t namesHeld_ = 0;
};

}  // namespace qb
