#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace qb::office {

/// Reads lines from a descriptor without waiting for more than is there.
class LineReader {
 public:
  explicit LineReader(int descriptor) : descriptor_(descriptor) {}

  /// Reads what is there; false at the end of the input.
  bool Read();
  /// The next whole line; nothing if there is none.
  std::optional<std::string> Next();

 private:
  int descriptor_;
  std::string waiting_;
};

/// Writes the object as one line to the standard output, at once. Whether somebody reads it does not matter
/// here.
void WriteLine(const nlohmann::json& object);

}  // namespace qb::office
