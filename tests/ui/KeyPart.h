#pragma once

#include <fmt/format.h>

#include <cctype>
#include <numeric>
#include <string>
#include <string_view>

namespace qb {

/// A control's path as keys spell it: a short one without its punctuation, a longer one cut and with the sum
/// of its characters.
inline std::string KeyPart(std::string_view path) {
  std::string letters;
  for (const char character : path) {
    if (std::isalnum(static_cast<unsigned char>(character)) != 0) {
      letters.push_back(static_cast<char>(std::toupper(static_cast<unsigned char>(character))));
    }
  }
  if (path.size() <= 15) return letters;
  return fmt::format("{}{:06}", letters.substr(0, 15), std::accumulate(path.begin(), path.end(), 0));
}

}  // namespace qb
