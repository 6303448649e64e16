// SPDX-License-Identifier: MIT
/// Sprites: the pictures that stand for devices on the surface, with their highlights.
#pragma once

#include "appearance/globals.h"

#include <cstdint>

namespace vnb {

/// What is drawn over a sprite's picture: a frame, and a number at its centre. Wiped by assigning
/// an empty one. Keeps the size of the picture that it was drawn on, whatever replaces that.
struct SpriteLayer {
  Colour colour = 0;
  std::int16_t width = 0; // pixels
  std::int16_t height = 0;
  std::uint8_t frameWidth = 0; // pixels, 0 for no frame
  bool dotted = false;
  std::int32_t number = -1; // -1 for none
};

/// Why a sprite is highlighted. A frame without a reason goes at the next highlight.
enum class SpriteTag : std::uint8_t {
  None,
  Yellow0, // the lock chosen in lock box 0 of the selected device, and so on
  Yellow1,
  Yellow2,
  Yellow3,
  Yellow4,
  GreenDk, // in the valid-subnet list of the selected device
  Green,   // the entry picked in that list
};

/// The reason of lock box `box`, 0 to 4.
constexpr SpriteTag yellowTag(std::int32_t box) {
  return static_cast<SpriteTag>(static_cast<std::int32_t>(SpriteTag::Yellow0) + box);
}
constexpr bool isYellow(SpriteTag tag) {
  return tag >= SpriteTag::Yellow0 && tag <= SpriteTag::Yellow4;
}
constexpr bool isGreen(SpriteTag tag) {
  return tag == SpriteTag::GreenDk || tag == SpriteTag::Green;
}

/// What a record doesn't say of its device: which highlight it has, and why. Kept small, as all of
/// them are gone through at each selection.
struct Sprite {
  SpriteTag Tag = SpriteTag::None;
  SpriteLayer layer;
};

} // namespace vnb
