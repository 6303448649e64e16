// SPDX-License-Identifier: MIT
#include "editor/windowplace.h"

#include "appearance/theme.h"
#include "runtime/twips.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace vnb {

void WindowPlace::setLeft(std::int32_t lLeft) {
  m_left = pixels(lLeft);
}
void WindowPlace::setTop(std::int32_t lTop) {
  m_top = pixels(lTop);
}
double WindowPlace::Left() const {
  return twips(m_window.x());
}
double WindowPlace::Top() const {
  return twips(m_window.y());
}

void WindowPlace::LoadTheme(const QString &sFileName) {
  vnb::LoadTheme(sFileName, m_view);
}

/// Moves the frame's corner to a stored place, or brings it back from one where no title bar could
/// be taken hold of.
void WindowPlace::moveOnScreen(QPoint corner) {
  constexpr QSize hold(40, 10);
  const QRect titleBar(corner, QSize(m_window.width(), 2 * hold.height()));
  for (const QScreen *screen : QGuiApplication::screens()) {
    const QRect seen = screen->availableGeometry() & titleBar;
    if (seen.width() >= hold.width() && seen.height() >= hold.height()) {
      m_window.move(corner);
      return;
    }
  }
  m_window.move(m_window.screen()->availableGeometry().topLeft());
}

void WindowPlace::show() {
  // Before it shows, so that it doesn't jump.
  if (m_left && m_top)
    moveOnScreen({*m_left, *m_top});
  m_window.show();
  if (m_left.has_value() == m_top.has_value())
    return;
  // The other edge is where the window system puts it.
  const QDeadlineTimer patience(500);
  while (!m_window.windowHandle()->isExposed() && !patience.hasExpired())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  moveOnScreen({m_left.value_or(m_window.x()), m_top.value_or(m_window.y())});
}

} // namespace vnb
