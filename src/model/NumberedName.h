#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/RuntimeError.h"

namespace qb {

/// The name of a section or key of the package file that is made of numbers and a word: "12", "2PATH",
/// "2FILE_NAME3". A load makes some fifty for each document, so it takes no room of the heap. Raises 6
/// (overflow) for a word of more than 40 bytes, which no key has.
class NumberedName {
 public:
  explicit NumberedName(std::int32_t number, std::string_view word = {}) {
    if (word.size() > kLongestWord) throw RuntimeError(failure::kOverflow);
    Append(number);
    length_ += word.copy(text_.data() + length_, word.size());
  }
  NumberedName(std::int32_t number, std::string_view word, std::int32_t last) : NumberedName(number, word) {
    Append(last);
  }

  operator std::string_view() const { return {text_.data(), length_}; }

 private:
  static constexpr std::size_t kLongestWord = 40;
  static constexpr std::size_t kLongestNumber = 11;

  void Append(std::int32_t number) {
    char* end = text_.data() + text_.size();
    length_ = static_cast<std::size_t>(std::to_chars(text_.data() + length_, end, number).ptr - text_.data());
  }

  std::array<char, kLongestWord + 2 * kLongestNumber> text_;  // up to `length_`
  std::size_t length_ = 0;
};

}  // namespace qb
