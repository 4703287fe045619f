#include "runtime/CaseMapping.h"

#include <array>

namespace qb {
namespace {

/// A run of lower-case letters whose upper-case letters stand `distance` below them, `step` characters apart.
struct CaseRun {
  char32_t firstLower;
  char32_t lastLower;
  int distance;
  int step;
};

// Where two small letters have the same capital, the usual one of them stands first.
constexpr std::array kRuns{
    CaseRun{0x0061, 0x007A, 32, 1},   CaseRun{0x00E0, 0x00F6, 32, 1}, CaseRun{0x00F8, 0x00FE, 32, 1},
    CaseRun{0x00FF, 0x00FF, -121, 1}, CaseRun{0x0101, 0x012F, 1, 2},  CaseRun{0x0133, 0x0137, 1, 2},
    CaseRun{0x013A, 0x0148, 1, 2},    CaseRun{0x014B, 0x0177, 1, 2},  CaseRun{0x017A, 0x017E, 1, 2},
    CaseRun{0x0192, 0x0192, 1, 1},    CaseRun{0x01A1, 0x01A1, 1, 1},  CaseRun{0x01B0, 0x01B0, 1, 1},
    CaseRun{0x01CE, 0x01DC, 1, 2},    CaseRun{0x0219, 0x021B, 1, 2},  CaseRun{0x03AC, 0x03AC, 38, 1},
    CaseRun{0x03AD, 0x03AF, 37, 1},   CaseRun{0x03B1, 0x03C1, 32, 1}, CaseRun{0x03C3, 0x03CB, 32, 1},
    CaseRun{0x03C2, 0x03C2, 31, 1},   CaseRun{0x03CC, 0x03CC, 64, 1}, CaseRun{0x03CD, 0x03CE, 63, 1},
    CaseRun{0x0430, 0x044F, 32, 1},   CaseRun{0x0450, 0x045F, 80, 1}, CaseRun{0x0491, 0x0491, 1, 1},
    CaseRun{0x0561, 0x0586, 48, 1},   CaseRun{0x1E01, 0x1E95, 1, 2},  CaseRun{0x1EA1, 0x1EF9, 1, 2},
    CaseRun{0x2170, 0x217F, 16, 1},   CaseRun{0x24D0, 0x24E9, 26, 1}, CaseRun{0xFF41, 0xFF5A, 32, 1},
};

}  // namespace

char32_t UpperCharacter(char32_t character) {
  if (character < 0x80) return character >= 'a' && character <= 'z' ? character - 32 : character;
  for (const CaseRun& run : kRuns) {
    if (character < run.firstLower || character > run.lastLower) continue;
    const bool inStep = (character - run.firstLower) % static_cast<char32_t>(run.step) == 0;
    return inStep ? static_cast<char32_t>(static_cast<int>(character) - run.distance) : character;
  }
  return character;
}

char32_t LowerCharacter(char32_t character) {
  if (character < 0x80) return character >= 'A' && character <= 'Z' ? character + 32 : character;
  for (const CaseRun& run : kRuns) {
    const auto lower = static_cast<char32_t>(static_cast<int>(character) + run.distance);
    if (lower >= run.firstLower && lower <= run.lastLower && UpperCharacter(lower) == character) return lower;
  }
  return character;
}

}  // namespace qb
