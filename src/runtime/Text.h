#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Texts are UTF-8. Every length and position here counts characters (code points), positions starting at 1.

namespace qb {

/// Number of characters. A byte that is no valid UTF-8 counts as one character.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters, or all of a shorter text.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// What stands from character `position` (from 1) on; empty if there is nothing.
std::string_view FromCharacter(std::string_view text, std::size_t position);

/// `text` with blanks added behind it up to `width` characters. A longer text is kept whole.
std::string PadRight(std::string_view text, std::size_t width);

/// Without the blanks (and only blanks) at its front, at its end, at both.
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);
std::string_view Trim(std::string_view text);

/// Case mappings that keep the number of characters.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// Compares without regard to case.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// Replaces the first occurrence of `old`; an empty `old` replaces nothing.
std::string ReplaceFirst(std::string_view text, std::string_view old, std::string_view replacement);

/// The pieces between the separators; one empty piece for an empty text.
std::vector<std::string> Split(std::string_view text, std::string_view separator);

/// Appends one character to a UTF-8 text.
void AppendCharacter(std::string& text, char32_t character);

/// Decodes the character at the front of `text` and moves behind it. A byte that is no valid UTF-8 comes back
/// as U+FFFD. `text` must not be empty.
char32_t TakeCharacter(std::string_view& text);

}  // namespace qb
