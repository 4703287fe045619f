#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// The bytes behind the lines of a profile file: those that were read, and those of lines that have changed.
class ProfileText {
 public:
  /// Where the bytes of one line stand, its line end included. A removed line has no bytes.
  struct Line {
    std::uint32_t place = 0;
    std::uint32_t length = 0;
    std::uint32_t nameHash = 0;  ///< of the key; 0 for a line that is no key
  };

  ProfileText() = default;
  /// Raises 7 (out of memory) from 2 GiB on.
  explicit ProfileText(std::string bytes);

  std::string_view Original() const { return original_; }
  std::string_view Of(const Line& line) const;

  /// Gives `line` other bytes; the bytes it had may be overwritten. Raises 7 when 2 GiB of changes are
  /// reached.
  void Replace(Line& line, std::string_view bytes);

 private:
  std::string original_;
  std::string added_;
};

}  // namespace qb
