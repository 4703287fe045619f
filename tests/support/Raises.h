#pragma once

#include <gmock/gmock.h>

#include "runtime/RuntimeError.h"

namespace qb {

/// The number that `work` raises; 0 if it raises nothing.
template <class Work>
long Raised(Work work) {
  try {
    work();
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

/// Matches a call that raises this number.
inline auto RaisesNumber(long number) {
  return ::testing::Throws<RuntimeError>(::testing::Property(&RuntimeError::Number, number));
}

}  // namespace qb
