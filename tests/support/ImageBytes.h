#pragma once

#include <string>

#include "platform/ProfileImage.h"

namespace qb {

/// The whole content of the image.
inline std::string BytesOf(const ProfileImage& image) {
  std::string bytes;
  for (const std::string_view piece : image.Content()) bytes.append(piece);
  return bytes;
}

}  // namespace qb
