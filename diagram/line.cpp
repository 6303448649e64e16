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

} // namespace

QRect Line::within(const QRect &area) const {
  const QRectF bounds = QRectF(QPointF(X1, Y1), QPointF(X2, Y2))
                            .normalized()
                            .adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth);
  return (bounds & QRectF(area)).toAlignedRect();
}

std::optional<QLineF> Line::clipped(const QRect &area) const {
  // Most lines of a large network are far from the area.
  if (std::max(X1, X2) < static_cast<float>(area.left() - lineWidth) ||
      std::min(X1, X2) > static_cast<float>(area.right() + lineWidth) ||
      std::max(Y1, Y2) < static_cast<float>(area.top() - lineWidth) ||
      std::min(Y1, Y2) > static_cast<float>(area.bottom() + lineWidth))
    return std::nullopt;
  const QLineF line(X1, Y1, X2, Y2);
  if (isNear(line))
    return line;
  // Cut to bounds that don't depend on the area: a line must not shift where a part is repainted.
  Cut cut;
  if (!cut.keep(line.x1(), line.dx(), -nearEnough, nearEnough) ||
      !cut.keep(line.y1(), line.dy(), -nearEnough, nearEnough))
    return std::nullopt;
  return QLineF(line.pointAt(cut.first()), line.pointAt(cut.last()));
}

float toSingle(double value) {
  if (!(std::abs(value) <= std::numeric_limits<float>::max()))
    throw RuntimeError(Fault::Overflow);
  return static_cast<float>(value);
}

} // namespace vnb
