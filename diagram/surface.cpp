// SPDX-License-Identifier: MIT
#include "diagram/surface.h"

#include "appearance/images.h"
#include "diagram/accessiblesurface.h"
#include "document/displaynames.h"
#include "widgets/form.h"
#include "widgets/style.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <vector>

namespace vnb {
namespace {

/// What a sprite without a picture shows, so that a device of an unknown type can be seen.
constexpr QRgb blankSprite = 0xFF404040;

/// Colour of the rubber band until a theme gives another.
constexpr Colour designBandColour = 0xE48257;

/// Past some number of parts one repaint of all is cheaper than keeping them apart.
constexpr int manyParts = 128;

/// A line to paint, with its colour.
struct ColouredLine {
  QLineF line;
  Colour colour;
};

/// The outline of a line, flat at the ends: nothing pokes out behind the edge of a device. The
/// painter's own strokes depend on where it clips them, by single pixels that would stay behind;
/// areas don't.
std::array<QPointF, 4> outline(const QLineF &line) {
  constexpr double half = lineWidth / 2.0;
  const double length = line.length();
  const QPointF across = length > 0 ? QPointF(-line.dy(), line.dx()) * (half / length) : QPointF();
  return {line.p1() + across, line.p2() + across, line.p2() - across, line.p1() - across};
}

void paintRun(QPainter &painter, const std::vector<QLineF> &lines, const QColor &colour,
              Stroke stroke) {
  if (stroke == Stroke::Exact) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (const QLineF &line : lines)
      painter.drawConvexPolygon(outline(line).data(), 4);
  } else {
    painter.setRenderHint(QPainter::Antialiasing, stroke == Stroke::Smooth);
    painter.setPen(QPen(colour, lineWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
}

/// Paints lines in their order, those of one colour in one go.
void paintAll(QPainter &painter, const std::vector<ColouredLine> &lines, Stroke stroke) {
  const ScreenPixels pixels(painter);
  std::vector<QLineF> run;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const QColor colour = toQColor(lines[i].colour);
    if (const auto sharp = sharpArea(lines[i].line, pixels))
      painter.fillRect(*sharp, colour);
    else
      run.push_back(lines[i].line);
    if (i + 1 < lines.size() && lines[i + 1].colour == lines[i].colour)
      continue;
    paintRun(painter, run, colour, stroke);
    run.clear();
  }
}

/// A fractional scale lets what is painted end within a pixel of the screen.
QRect around(const QRect &area) {
  return area.adjusted(-1, -1, 1, 1);
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
  const QColor colour = toQColor(layer.colour);
  if (!layer.dotted && layer.number < 0 && sprite.contains(area)) {
    paintFrame(painter, area, colour, layer.frameWidth); // thousands may have one
    return;
  }
  painter.save();
  painter.setClipRect(sprite, Qt::IntersectClip);
  if (layer.dotted) {
    painter.setPen(QPen(colour, layer.frameWidth, Qt::DotLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(1, 1, -1, -1));
  } else {
    paintFrame(painter, area, colour, layer.frameWidth);
  }
  if (layer.number >= 0)
    paintNumber(painter, area, QString::number(layer.number), colour);
  painter.restore();
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
  if (colour != m_backColor)
    update();
  m_backColor = colour;
  Cls();
}

void Surface::Cls() {
  setGrid({});
}

void Surface::DrawGrid(const std::function<void()> &yield) {
  if (GridRes <= 0)
    return;
  setGrid(wantedGrid());
  if (yield)
    for (int i = 0; i <= size; i += m_grid.distance)
      yield();
}

void Surface::redrawGrid() {
  setGrid(ShowGrid && GridRes > 0 ? wantedGrid() : Grid());
}

Surface::Grid Surface::wantedGrid() {
  // At any larger distance there are the same two lines.
  return {.distance = std::min<std::int32_t>(GridRes, size + 1), .colour = GridColor};
}

void Surface::setGrid(Grid grid) {
  if (grid == m_grid)
    return;
  m_grid = grid;
  update();
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

void Surface::touch(std::int32_t i) {
  if (const QRect place = spriteRect(i).within(rect()); !place.isEmpty())
    touch(QRegion(around(place)));
}

void Surface::touch(const Line &line) {
  forgetLines();
  if (line.Visible && m_touched <= manyParts)
    touch(line.cover(rect()));
}

void Surface::touchBand() {
  if (lneXOR.Visible)
    touch(lneXOR.cover(rect()));
}

void Surface::touch(const QRegion &area) {
  if (area.isEmpty() || m_touched > manyParts)
    return;
  m_touched += area.rectCount();
  if (m_touched > manyParts)
    QWidget::update();
  else
    QWidget::update(area);
}

void Surface::forgetLines() {
  m_kept = {};
  m_strokeFor = {};
}

void Surface::update() {
  forgetLines();
  QWidget::update();
}

QRect Surface::view() const {
  const QWidget *container = parentWidget();
  return container == nullptr ? rect() : rect() & container->rect().translated(-pos());
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

/// Finds out anew how lines are painted, and whether as before.
bool Surface::sameStroke() {
  const Stroke before = m_stroke;
  m_stroke = strokeInView();
  m_strokeFor = view();
  return m_stroke == before;
}

/// Part by part, each clipped to a rectangle: within any other shape the painter places scaled
/// pictures by another rule, and takes longer.
void Surface::paintEvent(QPaintEvent *event) {
  m_touched = 0;
  if (view() != m_strokeFor && !sameStroke() && !(QRegion(view()) - event->region()).isEmpty())
    update(); // no part keeps the other look
  QPainter painter(this);
  const QRegion &area = event->region();
  const bool linking = lneXOR.Visible;
  if (linking)
    keepBelowBand(painter.deviceTransform());
  else
    m_kept = {};
  const Lines lines = linking ? Lines() : linesIn(area, m_stroke);
  const std::vector<std::int32_t> sprites = spritesIn(area);
  for (const QRect &part : area) {
    painter.setClipRect(part);
    if (linking)
      paintKept(painter);
    else
      paintBelowBand(painter, around(part), lines);
    paintBand(painter, around(part));
    paintSprites(painter, around(part), sprites);
  }
}

void Surface::paint(QPainter &painter, const QRect &area) const {
  paintBelowBand(painter, area, linesIn(area, strokeInView()));
  paintBand(painter, area);
  paintSprites(painter, area, spritesIn(area));
}

void Surface::keepBelowBand(const QTransform &toDevice) {
  const QRect place = toDevice.mapRect(QRectF(view())).toAlignedRect();
  if (!m_kept.picture.isNull() && m_kept.place == place && m_kept.toDevice == toDevice)
    return;
  m_kept = {.picture = QPixmap(place.size()), .toDevice = toDevice, .place = place};
  QPainter keeper(&m_kept.picture);
  keeper.setTransform(toDevice * QTransform::fromTranslate(-place.x(), -place.y()));
  paintBelowBand(keeper, view(), linesIn(view(), m_stroke));
}

/// Copies pixels of the device: the kept picture was painted under the same transformation.
void Surface::paintKept(QPainter &painter) const {
  painter.save();
  painter.setTransform(m_kept.toDevice.inverted(), true);
  painter.drawPixmap(m_kept.place.topLeft(), m_kept.picture);
  painter.restore();
}

Surface::Lines Surface::linesIn(const QRegion &area, Stroke stroke) const {
  const QRect bounds = area.boundingRect();
  Lines result{.stroke = stroke, .lines = {}};
  for (const Line &line : lneLink)
    if (line.Visible && line.mayTouch(bounds) &&
        std::ranges::any_of(area, [&](const QRect &part) { return line.mayTouch(part); }))
      result.lines.push_back(line);
  return result;
}

std::vector<std::int32_t> Surface::spritesIn(const QRegion &area) const {
  const DeviceLooks looks;
  const QRect bounds = around(area.boundingRect());
  std::vector<std::int32_t> sprites;
  for (std::int32_t i = 0; i <= lastDevice(); ++i) {
    const SpriteRect place = rectOf(Systems[static_cast<std::size_t>(i)], looks);
    if (place.overlaps(bounds) &&
        std::ranges::any_of(area, [&](const QRect &part) { return place.overlaps(around(part)); }))
      sprites.push_back(i);
  }
  return sprites;
}

void Surface::paintBelowBand(QPainter &painter, const QRect &area, const Lines &lines) const {
  painter.fillRect(area, toQColor(m_backColor));
  paintGrid(painter, area);
  paintLines(painter, area, lines);
}

void Surface::paintGrid(QPainter &painter, const QRect &area) const {
  if (m_grid.distance == 0)
    return;
  const QColor colour = toQColor(m_grid.colour);
  const auto firstFrom = [this](int start) {
    return (std::max(start, 0) + m_grid.distance - 1) / m_grid.distance * m_grid.distance;
  };
  const ScreenPixels pixels(painter);
  const QRectF part(area);
  // One line more on each side: it may have been moved into the area.
  for (int y = firstFrom(area.top() - 1); y <= area.bottom() + 1; y += m_grid.distance)
    painter.fillRect(pixels.level(part.left(), part.right(), y, 1), colour);
  for (int x = firstFrom(area.left() - 1); x <= area.right() + 1; x += m_grid.distance)
    painter.fillRect(pixels.upright(part.top(), part.bottom(), x, 1), colour);
}

/// All lines in view count, not those of a part: parts of a picture must look like the whole.
Stroke Surface::strokeInView() const {
  // In pixels of length, as many as can be smooth within a quarter of a frame. Each line costs as
  // much again as some length.
  constexpr double few = 200'000;
  constexpr double many = 5 * few;
  constexpr double each = 50;
  const QRect seen = view();
  double sum = 0;
  for (const Line &line : lneLink) {
    if (const double length = line.Visible ? line.lengthWithin(seen) : 0; length > 0)
      sum += length + each;
    if (sum > many)
      return Stroke::Quick;
  }
  return sum > few ? Stroke::Exact : Stroke::Smooth;
}

void Surface::paintLines(QPainter &painter, const QRect &area, const Lines &lines) const {
  std::vector<ColouredLine> parts;
  for (const Line &line : lines.lines)
    if (const auto part = line.clipped(area))
      parts.push_back({*part, line.BorderColor});
  paintAll(painter, parts, lines.stroke);
}

void Surface::paintBand(QPainter &painter, const QRect &area) const {
  if (!lneXOR.Visible)
    return;
  if (const auto part = lneXOR.clipped(area)) {
    painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
    paintAll(painter, {{*part, lneXOR.BorderColor}}, Stroke::Exact);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
}

void Surface::paintSprites(QPainter &painter, const QRect &area,
                           const std::vector<std::int32_t> &sprites) const {
  painter.setFont(font());
  const DeviceLooks looks;
  for (const std::int32_t i : sprites) {
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
