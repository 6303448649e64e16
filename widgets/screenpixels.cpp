// SPDX-License-Identifier: MIT
#include "widgets/screenpixels.h"

#include <algorithm>
#include <cmath>

namespace vnb {

ScreenPixels::ScreenPixels(const QPainter &painter)
    : m_scale(painter.deviceTransform().m11()),
      m_origin(painter.deviceTransform().dx(), painter.deviceTransform().dy()) {}

double ScreenPixels::snap(double at, double origin) const {
  return (std::floor(at * m_scale + origin + .5) - origin) / m_scale;
}

double ScreenPixels::thickness(int width) const {
  return std::max(1., std::floor(width * m_scale)) / m_scale;
}

QRectF ScreenPixels::level(double left, double right, double top, int width) const {
  return {left, y(top), right - left, thickness(width)};
}

QRectF ScreenPixels::upright(double top, double bottom, double left, int width) const {
  return {x(left), top, thickness(width), bottom - top};
}

QRectF ScreenPixels::snapped(const QRectF &rect) const {
  return {QPointF(x(rect.left()), y(rect.top())), QPointF(x(rect.right()), y(rect.bottom()))};
}

} // namespace vnb
