// SPDX-License-Identifier: MIT
#include "widgets/drag.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace vnb {
namespace {

/// A hollow rectangle over all windows, which the pointer passes through.
class Outline : public QWidget {
public:
  explicit Outline(QSize size)
      : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                             Qt::BypassWindowManagerHint) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    resize(size);
    // A mask, since only a compositor could make it see-through.
    setMask(QRegion(rect()) - rect().adjusted(1, 1, -1, -1));
  }

protected:
  // Dashes of black and white show on any ground.
  void paintEvent(QPaintEvent * /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.setPen(QPen(Qt::white, 1, Qt::DashLine));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

bool isWayland() {
  return QGuiApplication::platformName().startsWith(u"wayland");
}

/// The control at a release. Wayland tells no places on the screen: there only the window that was
/// pressed is known, and a release outside it is no drop.
QWidget *controlAt(const QWidget &source, const QMouseEvent &event) {
  if (!isWayland())
    return QApplication::widgetAt(event.globalPosition().toPoint());
  QWidget *window = source.window();
  const QPoint at = event.scenePosition().toPoint();
  if (!window->rect().contains(at))
    return nullptr;
  QWidget *child = window->childAt(at);
  return child != nullptr ? child : window;
}

QPoint placeIn(const QWidget &target, const QMouseEvent &event) {
  if (isWayland())
    return target.mapFrom(target.window(), event.scenePosition().toPoint());
  return target.mapFromGlobal(event.globalPosition().toPoint());
}

} // namespace

Drag &Drag::instance() {
  static QPointer<Drag> drag;
  if (!drag) {
    drag = new Drag;
    drag->setParent(qApp);
  }
  return *drag;
}

void Drag::begin(DragSource source, QPoint global) {
  cancel();
  m_source = std::move(source);
  m_widget = m_source.widget;
  m_active = true;
  connect(m_widget, &QObject::destroyed, this, &Drag::cancel);
  m_outline = std::make_unique<Outline>(m_source.size);
  moveOutline(global);
  // There no program can place a window, so an outline wouldn't follow.
  if (!isWayland())
    m_outline->show();
  qApp->installEventFilter(this);
}

void Drag::cancel() {
  if (!std::exchange(m_active, false))
    return;
  qApp->removeEventFilter(this);
  if (m_widget)
    m_widget->disconnect(this);
  m_outline.reset();
  m_source = {};
}

void Drag::moveOutline(QPoint global) {
  m_outline->move(global - m_source.grab);
}

bool Drag::eventFilter(QObject *object, QEvent *event) {
  switch (event->type()) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseMove:
    return mouseEvent(object, *static_cast<QMouseEvent *>(event));
  case QEvent::KeyPress:
    if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
      cancel();
      return true;
    }
    return false;
  case QEvent::WindowBlocked:
  case QEvent::Hide:
  case QEvent::Close:
    if (object == m_widget || object == m_widget->window())
      cancel();
    return false;
  default:
    return false;
  }
}

bool Drag::mouseEvent(QObject *object, const QMouseEvent &event) {
  // The same event is seen at the window and at the control; the control's counts.
  if (!object->isWidgetType())
    return false;
  // Other buttons neither drop nor end it; a move without the left one tells of a lost release.
  if (event.type() == QEvent::MouseButtonRelease && event.button() == Qt::LeftButton)
    finish(event);
  else if (event.type() == QEvent::MouseMove && (event.buttons() & Qt::LeftButton) == 0)
    cancel();
  else if (event.type() == QEvent::MouseMove)
    moveOutline(event.globalPosition().toPoint());
  return true;
}

void Drag::finish(const QMouseEvent &event) {
  // Copies, as the drag is over before the drop is told.
  const DragSource source = m_source;
  const QPointer<QWidget> widget = m_widget;
  cancel();
  if (!widget)
    return;
  if (QWidget *target = controlAt(*widget, event))
    source.drop(*target, placeIn(*target, event));
}

} // namespace vnb
