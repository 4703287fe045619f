#pragma once

#include <chrono>
#include <string>

namespace qb::office {

struct Places {
  /// The folder of the office's settings, locked by the caller.
  std::string profile;
  /// The office's launcher.
  std::string office = QB_OFFICE_PROGRAM "/soffice";
};

/// Starts the office and works requests from the standard input until the end of one of the two. The result
/// is the program's exit status.
int RunHelper(const Places& places, std::chrono::milliseconds patience);

}  // namespace qb::office
