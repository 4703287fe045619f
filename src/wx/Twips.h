#pragma once

namespace qb {

/// Twips to a device-independent pixel.
inline constexpr int kTwipsPerPixel = 15;

/// Device-independent pixels of a measure in twips, and back.
constexpr int PixelsOf(int twips) {
  return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel;
}
constexpr int TwipsOf(int pixels) {
  return pixels * kTwipsPerPixel;
}

}  // namespace qb
