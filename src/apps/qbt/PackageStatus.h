#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>

#include "apps/qbt/PackageContents.h"
#include "apps/qbt/Progress.h"

namespace qb {

/// Documents, and the files of the versions that are shown for them.
struct Tally {
  std::size_t documents = 0;
  std::size_t files = 0;
};

/// Tallies by progress.
struct ProgressTally {
  std::array<Tally, kAllProgress.size()> by{};

  Tally& operator[](Progress progress) { return by[static_cast<std::size_t>(progress)]; }
  const Tally& operator[](Progress progress) const { return by[static_cast<std::size_t>(progress)]; }
  Tally All() const;
  /// Completed documents in percent of those that can be completed; 100 if there is none.
  double PercentCompleted() const;
};

struct PackageStatus {
  ProgressTally all;
  std::map<std::string, std::size_t> states;     ///< documents by the name of their state
  std::map<std::string, ProgressTally> formats;  ///< by format word; empty for documents without one
};

PackageStatus StatusOf(const PackageContents& contents);

}  // namespace qb
