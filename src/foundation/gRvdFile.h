#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qb {

/// Replaces `old` by `replacement` in `text` from the front on. After a replacement the search goes on at its
/// position plus the length of `replacement` less that of `old`, plus 1. Returns the number of replacements.
std::size_t ReplaceAll(std::string& text, std::string_view old, std::string_view replacement);

/// Whether a directory search for `path` with the attribute mask finds something: wildcards count, mask 0
/// finds ordinary files only, and an empty path finds any file of the current directory.
bool FileExists(std::string_view path, int attributes);

/// `directory`, `\` unless it ends in a separator, `file`.
std::string JoinFile(std::string_view directory, std::string_view file);

/// The pieces trimmed and joined with one separator; from the third on, the first empty one ends the path.
std::string JoinPath6(std::string_view p1, std::string_view p2, std::string_view p3 = {},
                      std::string_view p4 = {}, std::string_view p5 = {}, std::string_view p6 = {});

/// What stands left of the last `\`; the last character is not looked at. Empty if there is none.
std::string DirectoryOf(std::string_view path);

/// What stands right of the last `\` or `/`; all of a path without one.
std::string FileNameOf(std::string_view path);

/// From the last dot to the end, the last character not looked at and separators not minded. Empty if there
/// is none.
std::string ExtensionOf(std::string_view path);

/// `path` with the text behind the last dot of its file name replaced by `extension`, or `.` and it added.
std::string ChangeExtension(std::string_view path, std::string_view extension);

}  // namespace qb
