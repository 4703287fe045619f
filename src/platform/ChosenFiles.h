#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qb {

/// The longest name that a file dialog gives, in characters.
inline constexpr std::size_t kLongestChoice = 2047;

/// Several chosen files as one text: their directory, and each name behind a blank.
std::string JoinedNames(std::string_view directory, const std::vector<std::string>& names);

/// Those of several chosen files that cannot be given as one text: all of them if their directory holds a
/// blank, else each whose name does, and those behind the longest text that can be given.
std::vector<std::string> NamesThatCannotBeJoined(std::string_view directory,
                                                 const std::vector<std::string>& names);

/// Names them in a box. `directory` as the user reads it.
void TellNamesThatCannotBeJoined(std::string_view directory, const std::vector<std::string>& names);

}  // namespace qb
