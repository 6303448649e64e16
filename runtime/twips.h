// SPDX-License-Identifier: MIT
/// Twips: the unit of the design positions, independent of any screen.
#pragma once

namespace vnb {

/// Pixels of a length in twips, 15 to the pixel, rounded towards zero.
constexpr int pixels(int twips) {
  return twips / 15;
}

/// Twips of a length in pixels.
constexpr int twips(int pixelLength) {
  return pixelLength * 15;
}

} // namespace vnb
