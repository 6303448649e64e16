// SPDX-License-Identifier: MIT
/// Sprites: the pictures that stand for devices on the surface.
#pragma once

#include "appearance/globals.h"
#include "document/systemtype.h"

#include <QPixmap>
#include <QRect>

#include <cstdint>

namespace vnb {

/// What is drawn over a sprite's picture: a frame, and a number at its centre. Wiped by assigning
/// an empty one.
struct SpriteLayer {
  Colour colour = 0;
  std::uint8_t frameWidth = 0; // pixels, 0 for no frame
  bool dotted = false;
  std::int32_t number = -1; // -1 for none
};

/// One device on the surface, as a plain value: a hundred thousand of them may be copied, searched
/// and painted in a frame's time. Positions and sizes are pixels of the surface.
struct Sprite {
  static constexpr std::int16_t blankWidth = 48;
  static constexpr std::int16_t blankHeight = 32;

  QPixmap Picture;
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t lType = SystemType::Router; // what the tool tip names
  std::int16_t Width = blankWidth;
  std::int16_t Height = blankHeight;
  bool Visible = true;
  SpriteLayer layer;

  /// Takes the picture's size too; without a picture a sprite is 48 by 32.
  void setPicture(const QPixmap &picture);
  QString ToolTipText() const { return NameFromType(lType, true); }

  bool contains(QPoint point) const;
  bool overlaps(const QRect &area) const;
  /// The part of the sprite that lies in `area`, empty if none does.
  QRect within(const QRect &area) const;
};

} // namespace vnb
