#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "model/CState.h"

namespace qb {

/// How far a document is, in the words of the commands.
enum class Progress { kToBeTranslated, kInProgress, kOpen, kCompleted, kReadOnly };

inline constexpr std::array kAllProgress{Progress::kToBeTranslated, Progress::kInProgress, Progress::kOpen,
                                         Progress::kCompleted, Progress::kReadOnly};

Progress ProgressOf(const CState& state);

/// "to-be-translated", "in-progress", "open", "completed", "read-only".
std::string_view Word(Progress progress);
/// Nothing for another word.
std::optional<Progress> ProgressNamed(std::string_view word);

/// Whether content or title is marked as being out in an editor.
bool IsMarkedOpen(const CState& state);

}  // namespace qb
