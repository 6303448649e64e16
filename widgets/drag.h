// SPDX-License-Identifier: MIT
/// Manual drags: an outline follows the pointer from a press to the release, across windows.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>

#include <functional>
#include <memory>

class QMouseEvent;

namespace vnb {

/// What is dragged.
struct DragSource {
  QWidget *widget = nullptr; // that got the press
  QSize size;                // of the outline, in pixels
  QPoint grab;               // of the pointer within it
  /// Gets the drop: the control under the pointer, the source itself included, and the place in it.
  /// The drag is over by then, so a box may be shown or another drag begun.
  std::function<void(QWidget &target, QPoint at)> drop;
};

/// The one drag that can be on. From begin() to the release of the left button it takes every
/// press, move and release of the pointer, so that none reaches the source; the wheel goes on to
/// scroll. It ends without a drop by Escape, when the button turns out to be up, when a box is
/// opened over the source, and when the source is hidden or gone.
class Drag : public QObject {
public:
  /// Lives as long as the application object.
  static Drag &instance();

  /// To be called in the handler of the press, and ends any drag before it. `global`: the pointer's
  /// place on the screen.
  void begin(DragSource source, QPoint global);
  bool isActive() const { return m_active; }
  /// Ends a drag without a drop; nothing happens where none is on.
  void cancel();

  bool eventFilter(QObject *object, QEvent *event) override;

private:
  bool mouseEvent(QObject *object, const QMouseEvent &event);
  void finish(const QMouseEvent &event);
  void moveOutline(QPoint global);

  bool m_active = false;
  DragSource m_source;
  QPointer<QWidget> m_widget;
  std::unique_ptr<QWidget> m_outline;
};

} // namespace vnb
