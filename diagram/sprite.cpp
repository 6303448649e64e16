// SPDX-License-Identifier: MIT
#include "diagram/sprite.h"

#include <algorithm>
#include <limits>

namespace vnb {

void Sprite::setPicture(const QPixmap &picture) {
  Picture = picture;
  if (picture.isNull()) {
    Width = blankWidth;
    Height = blankHeight;
    return;
  }
  constexpr qreal largest = std::numeric_limits<std::int16_t>::max();
  const QSizeF size = picture.deviceIndependentSize();
  Width = static_cast<std::int16_t>(std::min(size.width(), largest));
  Height = static_cast<std::int16_t>(std::min(size.height(), largest));
}

// Positions come from files and reach the ends of 32 bits, so sums are taken in 64.

bool Sprite::contains(QPoint point) const {
  return point.x() >= Left && point.x() < std::int64_t{Left} + Width && point.y() >= Top &&
         point.y() < std::int64_t{Top} + Height;
}

bool Sprite::overlaps(const QRect &area) const {
  return Left <= area.right() && std::int64_t{Left} + Width > area.left() && Top <= area.bottom() &&
         std::int64_t{Top} + Height > area.top();
}

QRect Sprite::within(const QRect &area) const {
  return overlaps(area) ? QRect(Left, Top, Width, Height) & area : QRect();
}

} // namespace vnb
