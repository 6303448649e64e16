// SPDX-License-Identifier: MIT
#include "diagram/line.h"

#include "runtime/error.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vnb {
namespace {

/// The part of a line that is left after cuts, as a range of its parameter: 0 at the first end, 1
/// at the second.
class Cut {
public:
  /// Keeps what lies between `low` and `high` on one axis, where the line starts at `start` and
  /// goes `delta` far. False if nothing is left.
  bool keep(double start, double delta, double low, double high) {
    if (delta == 0)
      return start >= low && start <= high;
    const double a = (low - start) / delta;
    const double b = (high - start) / delta;
    m_first = std::max(m_first, std::min(a, b));
    m_last = std::min(m_last, std::max(a, b));
    return m_first <= m_last;
  }

  double first() const { return m_first; }
  double last() const { return m_last; }

private:
  double m_first = 0;
  double m_last = 1;
};

/// Painters take coordinates of this size, and nothing beyond it is ever seen.
constexpr double nearEnough = 16384;

bool isNear(const QLineF &line) {
  return std::max({std::abs(line.x1()), std::abs(line.y1()), std::abs(line.x2()),
                   std::abs(line.y2())}) <= nearEnough;
}

/// The part of `line` that lies in `area`, nothing if none does.
std::optional<QLineF> cutTo(const QLineF &line, const QRect &area) {
  if (QRectF(area).contains(line.p1()) && QRectF(area).contains(line.p2()))
    return line;
  Cut cut;
  if (!cut.keep(line.x1(), line.dx(), area.left(), area.right()) ||
      !cut.keep(line.y1(), line.dy(), area.top(), area.bottom()))
    return std::nullopt;
  return QLineF(line.pointAt(cut.first()), line.pointAt(cut.last()));
}

/// What a painted line can touch.
QRectF boundsOf(const QLineF &line) {
  return QRectF(line.p1(), line.p2())
      .normalized()
      .adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth);
}

} // namespace

QRect Line::within(const QRect &area) const {
  return (boundsOf({X1, Y1, X2, Y2}) & QRectF(area)).toAlignedRect();
}

QRegion Line::cover(const QRect &area) const {
  constexpr double piece = 64; // pixels: thin enough for a line at any angle, and few
  const std::optional<QLineF> part =
      cutTo({X1, Y1, X2, Y2}, area.adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth));
  if (!part)
    return {};
  const int pieces =
      1 + static_cast<int>(std::min(std::abs(part->dx()), std::abs(part->dy())) / piece);
  QRegion result;
  for (int i = 0; i < pieces; ++i)
    result += boundsOf({part->pointAt(double(i) / pieces), part->pointAt(double(i + 1) / pieces)})
                  .toAlignedRect() &
              area;
  return result;
}

bool Line::mayTouch(const QRect &area) const {
  return std::max(X1, X2) >= static_cast<float>(area.left() - lineWidth) &&
         std::min(X1, X2) <= static_cast<float>(area.right() + lineWidth) &&
         std::max(Y1, Y2) >= static_cast<float>(area.top() - lineWidth) &&
         std::min(Y1, Y2) <= static_cast<float>(area.bottom() + lineWidth);
}

double Line::lengthWithin(const QRect &area) const {
  const std::optional<QLineF> part = mayTouch(area) ? cutTo({X1, Y1, X2, Y2}, area) : std::nullopt;
  return part ? part->length() : 0;
}

std::optional<QLineF> Line::clipped(const QRect &area) const {
  // Most lines of a large network are far from the area.
  if (!mayTouch(area))
    return std::nullopt;
  const QLineF line(X1, Y1, X2, Y2);
  // Cut to bounds that don't depend on the area: a line must not shift where a part is repainted.
  constexpr int end = static_cast<int>(nearEnough);
  return isNear(line) ? line : cutTo(line, {QPoint(-end, -end), QPoint(end, end)});
}

std::optional<QRectF> sharpArea(const QLineF &line, const ScreenPixels &pixels) {
  const auto [left, right] = std::minmax({line.x1(), line.x2()});
  const auto [top, bottom] = std::minmax({line.y1(), line.y2()});
  if (top == bottom)
    return pixels.level(left, right, top - lineWidth / 2., lineWidth);
  if (left == right)
    return pixels.upright(top, bottom, left - lineWidth / 2., lineWidth);
  return std::nullopt;
}

float toSingle(double value) {
  if (!(std::abs(value) <= std::numeric_limits<float>::max()))
    throw RuntimeError(Fault::Overflow);
  return static_cast<float>(value);
}

} // namespace vnb
