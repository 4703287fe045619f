#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qb {

/// The longest leading decimal number of `text`, rounded half to even; 0 if there is none.
/// Raises 6 (overflow) if it does not fit.
std::int32_t LenientNumber(std::string_view text);

/// The number that the whole of `text` states, blanks around it aside, rounded half to even.
/// Raises 13 (type mismatch) if it states none, 6 (overflow) if it does not fit.
std::int32_t StrictNumber(std::string_view text);

/// "True" or "False".
std::string BooleanText(bool value);

}  // namespace qb
