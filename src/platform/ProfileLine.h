#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qb {

/// A byte that does not count around names and values. The last one is what old editors end a file with.
inline bool IsProfileBlank(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r') || byte == 0x1A;
}

/// `text` without the blanks at its front and at its end, or at its front only.
inline std::string_view TrimLeadingProfileBlanks(std::string_view text) {
  while (!text.empty() && IsProfileBlank(text.front())) text.remove_prefix(1);
  return text;
}
inline std::string_view TrimProfileBlanks(std::string_view text) {
  text = TrimLeadingProfileBlanks(text);
  while (!text.empty() && IsProfileBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// `text` up to its first NUL.
std::string_view UpToFirstNul(std::string_view text);

/// What one line of a profile file says. The texts are parts of the line.
struct ProfileLine {
  enum class Kind { kBlank, kComment, kSection, kKey };
  Kind kind = Kind::kBlank;
  std::string_view name;  ///< of the section or the key, without blanks around it
  std::optional<std::string_view>
      text;  ///< what stands behind `=`, blanks and quotes included; none without `=`
};

/// Reads one line, its line end included or not.
ProfileLine ParseProfileLine(std::string_view line);

/// The value that `text` behind `=` stands for: without blanks around it, up to a NUL. Quotes are kept.
std::string_view StoredValue(std::string_view text);

/// A stored value without its one pair of enclosing quotes.
std::string_view Unquoted(std::string_view value);

/// `text` such that it reads back as it is: in one more pair of quotes where blanks or quotes at its ends
/// would not count.
std::string ValueThatReadsBack(std::string_view text);

/// A number for the name that is the same for all spellings of its case; never 0. Only ASCII at the front of
/// the name counts, up to 64 bytes, so that no code page need be known and a giant name costs nothing.
std::uint32_t ProfileNameHash(std::string_view name);

}  // namespace qb
