#pragma once

#include <cstddef>
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

/// The longest line that is written, in bytes. The program takes twice as much; whoever writes more than that
/// is out of his mind, and is ended with all documents.
constexpr std::size_t kLongestLine = std::size_t{32} << 20U;

/// Writes the object as one line to the standard output, at once. Whether somebody reads it does not matter
/// here. Raises `Failure` "office" if the line would be too long; nothing is written then.
void WriteLine(const nlohmann::json& object);

}  // namespace qb::office
