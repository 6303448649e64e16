// SPDX-License-Identifier: MIT
/// The layout surface: the square on which the network is drawn.
#pragma once

#include "diagram/line.h"
#include "diagram/sprite.h"
#include "diagram/spriterect.h"
#include "diagram/surfaceevents.h"
#include "runtime/controlarray.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace vnb {

/// `picLayout`: 2500 by 2500 pixels, one widget that paints plain arrays. Painted from the bottom
/// up: background with the grid, lines, the rubber band, sprites; among sprites a higher number
/// lies above a lower one.
class Surface : public QWidget {
public:
  static constexpr int size = 2500;

  explicit Surface(QWidget *parent);

  /// Gets what the pointer does; isn't owned, and must stand while events come. May be null.
  SurfaceEvents *events = nullptr;

  /// Element i shows Systems(i), of which it holds no copy; element 0 stands from the start.
  ControlArray<Sprite> picSystem;
  /// Element i shows Links(i); element 0 is the template and never shown.
  ControlArray<Line> lneLink;
  /// The rubber band; its pen inverts: each pixel becomes the inverse of pen xor screen.
  Line lneXOR;

  /// Sets the background, which wipes the grid.
  void setBackColor(Colour colour);
  /// Wipes the grid.
  void Cls();
  bool hasGrid() const { return m_grid.distance != 0; }
  /// From now on the grid is there, GridRes apart in GridColor as they are now. `yield` is called
  /// for each step. Draws nothing at a distance of 0 or below.
  void DrawGrid(const std::function<void()> &yield = {});

  /// Where sprite `i` is. Raises 6 beyond 16 bits and 340 if there is none.
  SpriteRect spriteRect(std::int32_t i) const;

  /// Number of the topmost sprite at `point`, in pixels of the surface; -1 if there is none.
  std::int32_t spriteAt(QPoint point) const;

  /// Repaint what sprite `i` or a line covers. To be called before and after a change. The first
  /// raises what spriteRect does.
  void touch(std::int32_t i) { touch(spriteRect(i).within(rect())); }
  void touch(const Line &line) { touch(line.within(rect())); }

  /// Paints `area` of the surface, also onto a picture and whether it shows or not.
  void paint(QPainter &painter, const QRect &area) const;

  /// Takes the press that an event was told of as ended: its release goes elsewhere.
  void releasePointer() { m_pressed.reset(); }

protected:
  /// Shows a sprite's tool tip.
  bool event(QEvent *event) override;
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;

private:
  /// The grid: distance and colour, from which a paint event fills its part.
  struct Grid {
    std::int32_t distance = 0; // 0 for a wiped layer
    Colour colour = 0;
  };

  static constexpr std::int32_t bareSurface = -1;

  /// The highest number with both a sprite and a record: amid an operation one may be missing.
  std::int32_t lastDevice() const;
  void press(const QMouseEvent &event);
  /// `point` of the surface in pixels of a sprite.
  QPoint within(std::int32_t sprite, QPoint point) const;
  void touch(const QRect &area);
  void paintGrid(QPainter &painter, const QRect &area) const;
  void paintLines(QPainter &painter, const QRect &area) const;
  void paintSprites(QPainter &painter, const QRect &area) const;

  Colour m_backColor = 0;
  Grid m_grid;
  int m_touches = 0;                     // since the last repaint
  std::optional<std::int32_t> m_pressed; // a sprite or bareSurface, while a button is held
  std::int32_t m_lastPressed = bareSurface;
};

} // namespace vnb
