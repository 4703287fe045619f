#pragma once

namespace qb {

/// Simple one-to-one case mappings for every letter that an ANSI code page can hold: Latin, Greek, Cyrillic,
/// Armenian and the full-width forms. Other characters map to themselves.
char32_t UpperCharacter(char32_t character);
char32_t LowerCharacter(char32_t character);

}  // namespace qb
