#pragma once

namespace qb::office {

/// Comes before the first call of UNO, which could not find its own parts otherwise, and would crash. Raises
/// std::runtime_error if they are not installed.
void PrepareUno();

}  // namespace qb::office
