#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace qb {

/// How long things may take and how large they may be.
struct OfficeLimits {
  std::chrono::milliseconds answer{90000};   ///< then the helper counts as dead
  std::chrono::milliseconds end{5000};       ///< for the helper to end when it was asked to
  std::chrono::milliseconds patience{1000};  ///< a wait this long is shown to the user
  std::chrono::milliseconds slice{50};       ///< between two paintings of the window
  std::size_t line = std::size_t{64} << 20U;
  int profiles = 99;  ///< profile folders that are tried
};

struct OfficeOptions {
  std::string helper;    ///< path of the helper, as the program writes paths
  std::string profiles;  ///< native folder in which the profiles lie
  /// Read at each use, so whoever made them may change them.
  std::shared_ptr<const OfficeLimits> limits = std::make_shared<OfficeLimits>();
};

}  // namespace qb
