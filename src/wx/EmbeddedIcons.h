#pragma once

#include <vector>

namespace qb {

/// A drawing that is part of the program.
struct EmbeddedIcon {
  const char* key;
  const char* svg;
};

extern const std::vector<EmbeddedIcon> kEmbeddedIcons;

}  // namespace qb
