#pragma once

#include "platform/win32/ComHeaders.h"

namespace qb {

/// Whether a call was turned away because the other program was busy, as one is that shows a dialog. It has
/// not been made and may be made again.
inline bool WasTurnedAway(HRESULT result) {
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER;
}

/// Makes a call, and again for three seconds while it is turned away. Returns its last result.
template <class Call>
HRESULT CallPatiently(Call&& call) {
  constexpr int kAttempts = 30;
  constexpr DWORD kPause = 100;  // milliseconds
  HRESULT result = call();
  for (int attempt = 1; attempt < kAttempts && WasTurnedAway(result); ++attempt) {
    Sleep(kPause);
    result = call();
  }
  return result;
}

}  // namespace qb
