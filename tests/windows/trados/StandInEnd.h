#pragma once

#include <windows.h>

/// Ends the process in some minutes whatever else it does, so that none outlives tests that were broken off.
inline void EndAfterAWhile() {
  constexpr DWORD kWhile = 180'000;  // milliseconds
  const auto wait = [](void*) -> DWORD {
    Sleep(kWhile);
    TerminateProcess(GetCurrentProcess(), 1);
    return 0;
  };
  CloseHandle(CreateThread(nullptr, 0, wait, nullptr, 0, nullptr));
}
