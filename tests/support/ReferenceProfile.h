#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ProfileImage.h"

namespace qb {

/// What a profile file has to do, done in the simplest way: a list of lines that every call goes through from
/// its start. Names are ASCII. It is what the engine is compared with.
class ReferenceProfile {
 public:
  explicit ReferenceProfile(std::string_view bytes);

  std::optional<std::string> Value(std::string_view section, std::string_view key) const;
  std::vector<std::string> SectionNames() const;
  void Apply(const ProfileChange& change);
  std::string Bytes() const;

 private:
  struct Range {
    std::size_t header;  ///< line of the header
    std::size_t end;     ///< line behind the section
  };

  std::optional<Range> Section(std::string_view name) const;
  std::optional<std::size_t> Key(const Range& range, std::string_view key) const;
  void Set(std::string_view section, std::string_view key, std::string value);
  void CloseLine(std::size_t line);

  std::string mark_;
  std::vector<std::string> lines_;
  std::string lineEnd_ = "\r\n";
};

}  // namespace qb
