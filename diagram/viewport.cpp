// SPDX-License-Identifier: MIT
#include "diagram/viewport.h"

#include "appearance/colours.h"

#include <algorithm>

namespace vnb {
namespace {

constexpr Colour containerColour = 0x404040;

/// Distance that the bar can scroll. Where the viewport is larger than the surface there is none,
/// and the surface still starts at 0.
void setMaximum(QScrollBar &bar, int maximum) {
  bar.setRange(0, std::max(maximum, 0));
}

/// A scroll bar that leaves the wheel to its form.
class Bar : public QScrollBar {
public:
  using QScrollBar::QScrollBar;

protected:
  void wheelEvent(QWheelEvent *event) override { event->ignore(); }
};

/// How far an event moves the surface. Touchpads tell pixels; what X tells as those of a wheel's
/// whole notches is no such measure.
QPoint scrolled(const QWheelEvent &event) {
  constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
  constexpr int step = 100; // pixels for a notch, as a large step of the bars
  const QPoint angle = event.angleDelta();
  const bool notches = !angle.isNull() && angle.x() % notch == 0 && angle.y() % notch == 0 &&
                       event.device()->type() != QInputDevice::DeviceType::TouchPad;
  return event.pixelDelta().isNull() || notches ? angle * step / notch : event.pixelDelta();
}

} // namespace

Viewport::Viewport(QWidget &form)
    : m_picContainer(new QWidget(&form)), m_picLayout(new Surface(m_picContainer)),
      m_hsbScroll(bar(form, Qt::Horizontal, "hsbScroll")),
      m_vsbScroll(bar(form, Qt::Vertical, "vsbScroll")) {
  m_picContainer->setObjectName(QStringLiteral("picContainer"));
  m_picContainer->setAutoFillBackground(true);
  m_picContainer->setPalette(QPalette(toQColor(containerColour)));
  QObject::connect(m_hsbScroll, &QScrollBar::valueChanged, m_picLayout,
                   [this](int value) { m_picLayout->move(-value, m_picLayout->y()); });
  QObject::connect(m_vsbScroll, &QScrollBar::valueChanged, m_picLayout,
                   [this](int value) { m_picLayout->move(m_picLayout->x(), -value); });
}

QScrollBar *Viewport::bar(QWidget &form, Qt::Orientation orientation, const char *name) {
  auto *result = new Bar(orientation, &form);
  result->setObjectName(QString::fromLatin1(name));
  result->setAccessibleName(orientation == Qt::Horizontal
                                ? QStringLiteral("Layout, left to right")
                                : QStringLiteral("Layout, top to bottom"));
  result->setSingleStep(1);
  result->setPageStep(100);
  setMaximum(*result, Surface::size);
  return result;
}

void Viewport::layOut(QSize form, int toolbarHeight) {
  const int height = form.height() - toolbarHeight - barWidth;
  const int width = form.width() - barWidth;
  if (height <= 0 || width <= 0)
    return;
  // The bars beside it, not over it: below anything else, each scroll would paint it all anew.
  m_picContainer->setGeometry(0, toolbarHeight, width, height);
  m_vsbScroll->setGeometry(width, toolbarHeight, barWidth, height);
  setMaximum(*m_vsbScroll, Surface::size - height);
  m_hsbScroll->setGeometry(0, toolbarHeight + height, width, barWidth);
  setMaximum(*m_hsbScroll, Surface::size - width);
}

void Viewport::UpdateColors() {
  m_picLayout->setBackColor(BackgroundColor);
}

void Viewport::wheel(const QWheelEvent &event) {
  QPoint distance = scrolled(event);
  const bool sideways = event.modifiers() == Qt::ShiftModifier ||
                        m_hsbScroll->geometry().contains(event.position().toPoint());
  if (sideways && distance.x() == 0)
    distance = distance.transposed();
  m_hsbScroll->setValue(m_hsbScroll->value() - distance.x());
  m_vsbScroll->setValue(m_vsbScroll->value() - distance.y());
}

} // namespace vnb
