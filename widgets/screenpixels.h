// SPDX-License-Identifier: MIT
/// Where the pixels of the screen are, for what is painted as thin as a line.
#pragma once

#include <QPainter>
#include <QRectF>

namespace vnb {

/// Rows and columns of screen pixels. What is as thin as a line looks blurred, or now thin and now
/// thick, where the screen's scale puts its edges between two of them. All lengths are pixels of
/// the widget.
class ScreenPixels {
public:
  explicit ScreenPixels(const QPainter &painter);

  /// What a level or upright band fills: whole pixels, as many across its way wherever it lies.
  QRectF level(double left, double right, double top, int width) const;
  QRectF upright(double top, double bottom, double left, int width) const;
  /// `rect` with each edge where the nearest pixel begins.
  QRectF snapped(const QRectF &rect) const;
  /// As many whole pixels as `width` has room for, at least one.
  double thickness(int width) const;

private:
  double x(double at) const { return snap(at, m_origin.x()); }
  double y(double at) const { return snap(at, m_origin.y()); }
  double snap(double at, double origin) const;

  double m_scale;
  QPointF m_origin; // of the widget, in pixels of the screen
};

} // namespace vnb
