#pragma once

#include <string>

#include "platform/ProfileImage.h"

namespace qb {

/// Changes of a profile file that have not reached the disk, in their order, so that they can be made once
/// more on a file that somebody else has changed meanwhile. Takes little more room than the texts.
class ProfileJournal {
 public:
  /// Adds a change whose texts hold no NUL.
  void Add(const ProfileChange& change);
  bool Empty() const { return records_.empty(); }
  void Clear() { records_.clear(); }
  /// Makes all changes on `image`.
  void Replay(ProfileImage& image) const;

 private:
  std::string records_;
};

}  // namespace qb
