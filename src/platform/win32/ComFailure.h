#pragma once

#include <string>
#include <string_view>

#include "platform/win32/ComHeaders.h"

namespace qb {

/// The number of the failure that a result of an automation call stands for: the language's own where there
/// is one, else the result itself.
long FailureNumber(HRESULT result);

/// The result that stands for a failure's number; the other way round.
HRESULT ResultOf(long failureNumber);

/// What is said of a failure where the object that raised it says nothing; names `subject`.
std::string UsualDescription(long failureNumber, std::string_view subject);

/// Raises a failed result of a call. Source, description and help are those that the called object has left
/// behind for the caller; without any, the description is the usual one and names `subject`.
[[noreturn]] void RaiseComFailure(HRESULT result, std::string_view subject);

/// Raises the result if it is a failure.
inline void CheckCom(HRESULT result, std::string_view subject) {
  if (FAILED(result)) RaiseComFailure(result, subject);
}

}  // namespace qb
