// SPDX-License-Identifier: MIT
/// Lines: the links between sprites, and the rubber band.
#pragma once

#include "appearance/globals.h"
#include "widgets/screenpixels.h"

#include <QLineF>
#include <QRegion>

#include <optional>

namespace vnb {

/// A straight line, `lineWidth` pixels wide, in pixels of the surface.
struct Line {
  float X1 = 0;
  float Y1 = 0;
  float X2 = 0;
  float Y2 = 0;
  Colour BorderColor = 0;
  bool Visible = false;

  bool operator==(const Line &) const = default;
  /// The rectangle that the painted line can touch, cut to `area`.
  QRect within(const QRect &area) const;
  /// What the painted line covers of `area`, in few rectangles along it.
  QRegion cover(const QRect &area) const;
  /// Whether the painted line may touch `area`: it doesn't where this is false.
  bool mayTouch(const QRect &area) const;
  /// Length in pixels of the part within `area`.
  double lengthWithin(const QRect &area) const;
  /// The part of the line to paint so that `area` looks right: ends far outside are brought near,
  /// since painters don't take them. Nothing if the line passes `area` by.
  std::optional<QLineF> clipped(const QRect &area) const;
};

inline constexpr int lineWidth = 2;

/// The whole pixels that a level or upright line fills, nothing if it is neither.
std::optional<QRectF> sharpArea(const QLineF &line, const ScreenPixels &pixels);

/// `value` in single precision. Raises 6 if it is too large.
float toSingle(double value);

} // namespace vnb
