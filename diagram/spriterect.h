// SPDX-License-Identifier: MIT
/// Where a device stands on the surface: at the place of its record, in the size of its picture.
#pragma once

#include "document/modDeclares.h"

#include <QRect>

#include <cstdint>

namespace vnb {

/// Pixels of the surface. Places come from files and reach the ends of 32 bits, so sums are taken
/// in 64; a QRect would overflow.
struct SpriteRect {
  std::int32_t Left;
  std::int32_t Top;
  std::int32_t Width;
  std::int32_t Height;

  /// Edges count to the left and above, not to the right and below.
  bool contains(QPoint point) const {
    return point.x() >= Left && point.x() < std::int64_t{Left} + Width && point.y() >= Top &&
           point.y() < std::int64_t{Top} + Height;
  }
  bool overlaps(const QRect &area) const {
    return Left <= area.right() && std::int64_t{Left} + Width > area.left() &&
           Top <= area.bottom() && std::int64_t{Top} + Height > area.top();
  }
  /// The part that lies in `area`, empty if none does.
  QRect within(const QRect &area) const {
    return overlaps(area) ? QRect(Left, Top, Width, Height) & area : QRect();
  }
  QPoint topLeft() const { return {Left, Top}; }
  QSize size() const { return {Width, Height}; }
};

} // namespace vnb
