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

#include <cstdlib>

namespace vnb {

void WindowPlace::setLeft(std::int32_t lLeft) {
  m_left = pixels(lLeft);
}
void WindowPlace::setTop(std::int32_t lTop) {
  m_top = pixels(lTop);
}

/// `now`, or the stored edge if that is where the window was put: below a scale of 1 a pixel of the
/// screen is more than one of the window, and rounding would carry it on from start to start.
int WindowPlace::edge(const std::optional<int> &stored, int now) const {
  const double scale = m_window.devicePixelRatioF();
  const int rounding = scale < 1 ? static_cast<int>(1 / scale) : 0;
  return stored && std::abs(*stored - now) <= rounding ? *stored : now;
}
double WindowPlace::Left() const {
  return twips(edge(m_left, m_window.x()));
}
double WindowPlace::Top() const {
  return twips(edge(m_top, m_window.y()));
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
  // The other edge is where the window system puts it.
  const bool oneEdge = m_left.has_value() != m_top.has_value();
  // Below a scale of 1 the place is taken for that of the contents while there is no frame.
  const bool frameless = m_left && m_top && m_window.devicePixelRatioF() < 1;
  if (!oneEdge && !frameless)
    return;
  const QDeadlineTimer patience(500);
  while (!m_window.windowHandle()->isExposed() && !patience.hasExpired())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  moveOnScreen({m_left.value_or(m_window.x()), m_top.value_or(m_window.y())});
}

} // namespace vnb
