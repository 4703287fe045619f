#include "apps/qbt/Progress.h"

#include <string>

namespace qb {
namespace {
constexpr std::array<std::string_view, kAllProgress.size()> kWords{"to-be-translated", "in-progress", "open",
                                                                   "completed", "read-only"};
}  // namespace

bool IsMarkedOpen(const CState& state) {
  // The state's own question leaves one open title out.
  return state.ExternalizeState().find("OPEN") != std::string::npos;
}

Progress ProgressOf(const CState& state) {
  const bool neverChanges = state.isCompleted() && state.isUnchanged();  // READONLY alone is both
  if (state.isReadOnly() || neverChanges) return Progress::kReadOnly;
  if (state.isCompleted()) return Progress::kCompleted;
  if (IsMarkedOpen(state)) return Progress::kOpen;
  return state.isChanged() ? Progress::kInProgress : Progress::kToBeTranslated;
}

std::string_view Word(Progress progress) {
  return kWords[static_cast<std::size_t>(progress)];
}

std::optional<Progress> ProgressNamed(std::string_view word) {
  for (const Progress progress : kAllProgress) {
    if (Word(progress) == word) return progress;
  }
  return std::nullopt;
}

}  // namespace qb
