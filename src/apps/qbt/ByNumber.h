#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace qb {

/// Things by their number, in its order. Meant for few of them, that mostly come in order: a package has ten
/// thousands of such lists. A new number may move the others.
template <class Thing>
class ByNumber {
 public:
  using Entry = std::pair<std::int32_t, Thing>;

  /// The thing of this number, made if it is not there.
  Thing& operator[](std::int32_t number) {
    const auto place =
        std::lower_bound(entries_.begin(), entries_.end(), number,
                         [](const Entry& entry, std::int32_t wanted) { return entry.first < wanted; });
    if (place != entries_.end() && place->first == number) return place->second;
    if (entries_.empty()) {
      entries_.reserve(kUsualCount);
      return entries_.emplace_back(number, Thing()).second;
    }
    return entries_.emplace(place, number, Thing())->second;
  }

  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  static constexpr std::size_t kUsualCount = 2;  // versions of a document, files of a version

  std::vector<Entry> entries_;
};

}  // namespace qb
