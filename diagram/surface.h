// SPDX-License-Identifier: MIT
/// The layout surface: the square on which the network is drawn.
#pragma once

#include "diagram/line.h"
#include "diagram/sprite.h"
#include "diagram/spriterect.h"
#include "diagram/surfaceevents.h"
#include "runtime/controlarray.h"

#include <QPixmap>
#include <QTransform>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace vnb {

/// How lines are painted, by how much of them there is to see.
enum class Stroke : std::uint8_t {
  Smooth, // with soft edges
  Exact,  // each pixel whole, and the same whichever part is painted
  Quick,  // so many that hardly a pixel is left between them
};

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
  /// Wipes the grid, and draws it if ShowGrid. Repaints only if that makes a difference.
  void redrawGrid();

  /// Where sprite `i` is. Raises 6 beyond 16 bits and 340 if there is none.
  SpriteRect spriteRect(std::int32_t i) const;

  /// Number of the topmost sprite at `point`, in pixels of the surface; -1 if there is none.
  std::int32_t spriteAt(QPoint point) const;

  /// Repaint what sprite `i`, a link's line or the rubber band covers; nothing for what is hidden.
  /// To be called before and after a change. The first raises what spriteRect does.
  void touch(std::int32_t i);
  void touch(const Line &line);
  void touchBand();
  /// Repaints all. Hides the one that knows nothing of the kept picture.
  void update();

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
    bool operator==(const Grid &) const = default;
  };

  /// What lies below the rubber band, kept while one is drawn: lines take long to paint, and each
  /// move of the pointer moves the band. As large as the view.
  struct Kept {
    QPixmap picture;
    QTransform toDevice; // from pixels of the surface
    QRect place;         // of the device
  };

  /// Those that a part may show, from the bottom up.
  struct Lines {
    Stroke stroke = Stroke::Smooth;
    std::vector<Line> lines;
  };

  static constexpr std::int32_t bareSurface = -1;

  /// The highest number with both a sprite and a record: amid an operation one may be missing.
  std::int32_t lastDevice() const;
  void press(const QMouseEvent &event);
  /// `point` of the surface in pixels of a sprite.
  QPoint within(std::int32_t sprite, QPoint point) const;
  /// The part that the window can show.
  QRect view() const;
  Stroke strokeInView() const;
  bool sameStroke();
  /// What was found out from the lines holds no longer.
  void forgetLines();
  void touch(const QRegion &area);
  static Grid wantedGrid();
  void setGrid(Grid grid);
  Lines linesIn(const QRegion &area, Stroke stroke) const;
  std::vector<std::int32_t> spritesIn(const QRegion &area) const;
  void keepBelowBand(const QTransform &toDevice);
  void paintKept(QPainter &painter) const;
  void paintBelowBand(QPainter &painter, const QRect &area, const Lines &lines) const;
  void paintGrid(QPainter &painter, const QRect &area) const;
  void paintLines(QPainter &painter, const QRect &area, const Lines &lines) const;
  void paintBand(QPainter &painter, const QRect &area) const;
  void paintSprites(QPainter &painter, const QRect &area,
                    const std::vector<std::int32_t> &sprites) const;

  Colour m_backColor = 0;
  Grid m_grid;
  Stroke m_stroke = Stroke::Smooth; // as last painted
  QRect m_strokeFor;                // the view for which it holds, empty if lines have changed
  Kept m_kept;
  int m_touched = 0;                     // parts since the last repaint
  std::optional<std::int32_t> m_pressed; // a sprite or bareSurface, while a button is held
  std::int32_t m_lastPressed = bareSurface;
};

} // namespace vnb
