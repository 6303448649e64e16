// SPDX-License-Identifier: MIT
#include "diagram/surface.h"

#include "appearance/images.h"
#include "diagram/accessiblesurface.h"
#include "document/displaynames.h"
#include "widgets/form.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <vector>

namespace vnb {
namespace {

/// What a sprite without a picture shows, so that a device of an unknown type can be seen.
constexpr QRgb blankSprite = 0xFF404040;

/// Colour of the rubber band until a theme gives another.
constexpr Colour designBandColour = 0xE48257;

/// A line to paint, with its colour.
struct ColouredLine {
  QLineF line;
  Colour colour;
};

/// Paints lines in their order, those of one colour in one go.
void paintAll(QPainter &painter, const std::vector<ColouredLine> &lines, bool smooth) {
  painter.setRenderHint(QPainter::Antialiasing, smooth);
  std::vector<QLineF> run;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    run.push_back(lines[i].line);
    if (i + 1 < lines.size() && lines[i + 1].colour == lines[i].colour)
      continue;
    painter.setPen(QPen(toQColor(lines[i].colour), lineWidth));
    painter.drawLines(run.data(), static_cast<int>(run.size()));
    run.clear();
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
}

/// A text at the centre, with an edge around it that keeps it readable on any picture.
void paintNumber(QPainter &painter, const QRect &area, const QString &text, const QColor &colour) {
  const QColor edge = qGray(colour.rgb()) < 128 ? Qt::white : Qt::black;
  painter.setPen(edge);
  for (const QPoint offset : {QPoint(-1, -1), QPoint(0, -1), QPoint(1, -1), QPoint(-1, 0),
                              QPoint(1, 0), QPoint(-1, 1), QPoint(0, 1), QPoint(1, 1)})
    painter.drawText(area.translated(offset), Qt::AlignCenter | Qt::TextDontClip, text);
  painter.setPen(colour);
  painter.drawText(area, Qt::AlignCenter | Qt::TextDontClip, text);
}

/// Nothing of the layer lies outside `sprite`, also where it was drawn on a larger picture.
void paintLayer(QPainter &painter, const QRect &sprite, const SpriteLayer &layer) {
  if (layer.frameWidth == 0)
    return;
  const QRect area(sprite.topLeft(), QSize(layer.width, layer.height));
  painter.setClipRect(sprite);
  QPen pen(toQColor(layer.colour), layer.frameWidth, layer.dotted ? Qt::DotLine : Qt::SolidLine);
  pen.setJoinStyle(Qt::MiterJoin);
  painter.setPen(pen);
  painter.drawRect(QRect(area.left() + 1, area.top() + 1, area.width() - 2, area.height() - 2));
  if (layer.number >= 0)
    paintNumber(painter, area, QString::number(layer.number), toQColor(layer.colour));
  painter.setClipping(false);
}

SpriteRect rectOf(const SystemRec &record, const DeviceLooks &looks) {
  const QSize size = looks(record.lType).size;
  return {record.lX, record.lY, size.width(), size.height()};
}

void paintSprite(QPainter &painter, const QRect &area, const QPixmap &picture,
                 const SpriteLayer &layer) {
  if (picture.isNull())
    painter.fillRect(area, QColor::fromRgb(blankSprite));
  else
    painter.drawPixmap(area.topLeft(), picture);
  paintLayer(painter, area, layer);
}

} // namespace

Surface::Surface(QWidget *parent) : QWidget(parent) {
  QFont numberFont = formFont(9.75);
  numberFont.setBold(true);
  setFont(numberFont);
  installSurfaceAccess();
  setObjectName(QStringLiteral("picLayout"));
  setAccessibleName(QStringLiteral("Layout"));
  lneXOR.BorderColor = designBandColour;
  resize(size, size);
  // Opaque, so that scrolling moves pixels instead of painting them anew.
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

void Surface::setBackColor(Colour colour) {
  m_backColor = colour;
  Cls();
}

void Surface::Cls() {
  m_grid = {};
  update();
}

void Surface::DrawGrid(const std::function<void()> &yield) {
  if (GridRes <= 0)
    return;
  // At any larger distance there are the same two lines.
  m_grid = {.distance = std::min<std::int32_t>(GridRes, size + 1), .colour = GridColor};
  update();
  if (yield)
    for (int i = 0; i <= size; i += m_grid.distance)
      yield();
}

std::int32_t Surface::lastDevice() const {
  return std::min(picSystem.UBound(), UBound(Systems));
}

SpriteRect Surface::spriteRect(std::int32_t i) const {
  static_cast<void>(picSystem(i)); // raises what is wrong with the number
  return rectOf(at(Systems, i), DeviceLooks());
}

std::int32_t Surface::spriteAt(QPoint point) const {
  const DeviceLooks looks;
  for (std::int32_t i = lastDevice(); i >= 0; --i)
    if (rectOf(Systems[static_cast<std::size_t>(i)], looks).contains(point))
      return i;
  return -1;
}

void Surface::touch(const QRect &area) {
  // Past some number of areas one repaint of all is cheaper than keeping them apart.
  constexpr int many = 64;
  if (area.isEmpty() || m_touches > many)
    return;
  if (++m_touches > many)
    update();
  else
    update(area);
}

bool Surface::event(QEvent *event) {
  if (event->type() != QEvent::ToolTip)
    return QWidget::event(event);
  const auto *help = static_cast<QHelpEvent *>(event);
  const std::int32_t sprite = spriteAt(help->pos());
  if (sprite == bareSurface)
    QToolTip::hideText();
  else
    QToolTip::showText(help->globalPos(), friendlyName(sprite), this,
                       spriteRect(sprite).within(rect()));
  return true;
}

void Surface::paintEvent(QPaintEvent *event) {
  m_touches = 0;
  QPainter painter(this);
  paint(painter, event->rect());
}

void Surface::paint(QPainter &painter, const QRect &area) const {
  painter.fillRect(area, toQColor(m_backColor));
  paintGrid(painter, area);
  paintLines(painter, area);
  paintSprites(painter, area);
}

void Surface::paintGrid(QPainter &painter, const QRect &area) const {
  if (m_grid.distance == 0)
    return;
  const QColor colour = toQColor(m_grid.colour);
  const auto firstFrom = [this](int start) {
    return (std::max(start, 0) + m_grid.distance - 1) / m_grid.distance * m_grid.distance;
  };
  for (int y = firstFrom(area.top()); y <= area.bottom(); y += m_grid.distance)
    painter.fillRect(area.left(), y, area.width(), 1, colour);
  for (int x = firstFrom(area.left()); x <= area.right(); x += m_grid.distance)
    painter.fillRect(x, area.top(), 1, area.height(), colour);
}

void Surface::paintLines(QPainter &painter, const QRect &area) const {
  std::vector<ColouredLine> lines;
  for (const Line &line : lneLink)
    if (line.Visible)
      if (const auto part = line.clipped(area))
        lines.push_back({*part, line.BorderColor});
  // Smooth edges cost three times as much, and nobody sees them among thousands of lines. All lines
  // count, not those in `area`: parts of a picture must look like the whole.
  constexpr std::int32_t few = 1500;
  paintAll(painter, lines, lneLink.UBound() <= few);
  if (!lneXOR.Visible)
    return;
  if (const auto part = lneXOR.clipped(area)) {
    painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
    paintAll(painter, {{*part, lneXOR.BorderColor}}, false);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
}

void Surface::paintSprites(QPainter &painter, const QRect &area) const {
  painter.setFont(font());
  const DeviceLooks looks;
  const std::int32_t last = lastDevice();
  for (std::int32_t i = 0; i <= last; ++i) {
    const SystemRec &record = Systems[static_cast<std::size_t>(i)];
    const SpriteRect place = rectOf(record, looks);
    if (place.overlaps(area))
      paintSprite(painter, QRect(place.topLeft(), place.size()), looks(record.lType).picture,
                  picSystem(i).layer);
  }
}

QPoint Surface::within(std::int32_t sprite, QPoint point) const {
  return point - spriteRect(sprite).topLeft();
}

void Surface::press(const QMouseEvent &event) {
  const QPoint at = event.position().toPoint();
  const std::int32_t sprite = spriteAt(at);
  m_pressed = sprite;
  m_lastPressed = sprite;
  if (sprite != bareSurface)
    events->picSystem_MouseDown(sprite, event.button(), within(sprite, at),
                                event.globalPosition().toPoint());
}

void Surface::mousePressEvent(QMouseEvent *event) {
  if (events != nullptr)
    press(*event);
}

void Surface::mouseDoubleClickEvent(QMouseEvent *event) {
  if (events == nullptr)
    return;
  const std::int32_t sprite = spriteAt(event->position().toPoint());
  // Two quick clicks on two sprites are two presses.
  if (sprite == bareSurface || sprite != m_lastPressed || event->button() != Qt::LeftButton) {
    press(*event);
    return;
  }
  m_pressed = sprite;
  events->picSystem_DblClick(sprite);
}

void Surface::mouseMoveEvent(QMouseEvent *event) {
  if (events == nullptr)
    return;
  if (event->buttons() == Qt::NoButton)
    m_pressed.reset(); // a box that came up while it was held has got its release
  const QPoint at = event->position().toPoint();
  const std::int32_t sprite = m_pressed.value_or(spriteAt(at));
  if (sprite == bareSurface)
    events->picLayout_MouseMove(at);
  else if (sprite <= lastDevice())
    events->picSystem_MouseMove(sprite, within(sprite, at));
}

void Surface::mouseReleaseEvent(QMouseEvent *event) {
  if (events == nullptr || !m_pressed)
    return;
  const std::int32_t sprite = *m_pressed;
  m_pressed.reset();
  if (sprite != bareSurface) {
    if (sprite <= lastDevice())
      events->picSystem_MouseUp(sprite, event->button(), event->globalPosition().toPoint());
  } else if (visibleRegion().contains(event->position().toPoint())) {
    events->picLayout_Click();
  }
}

} // namespace vnb
