// SPDX-License-Identifier: MIT
#include "widgets/application.h"

#include "runtime/report.h"

#include <QHelpEvent>
#include <QMessageBox>
#include <QTextDocument>
#include <QToolTip>
#include <QWindow>

namespace vnb {

Application::Application(int &argc, char **argv) : QApplication(argc, argv) {
  installEventFilter(this);
}

bool Application::notify(QObject *receiver, QEvent *event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    // Later: a box in the middle of a painting would have it painted again.
    const auto tell = [error = currentError()] {
      reported("Application", "notify", [&] { throw RuntimeError(error); });
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    return true;
  }
}

bool Application::eventFilter(QObject *object, QEvent *event) {
  // What is queued behind its end would still be done: a menu would open again.
  if (object->isWindowType() && event->isInputEvent() && isGone(*static_cast<QWindow *>(object)))
    return true;
  if (event->type() == QEvent::ToolTip && object->isWidgetType())
    return showPlainTip(*static_cast<QWidget *>(object), *static_cast<QHelpEvent *>(event));
  // A menu would take the release that a control waits for: a text would scroll on for ever.
  if (event->type() == QEvent::ContextMenu && (mouseButtons() & Qt::LeftButton) != 0)
    return true;
  // Before it is laid out, when a picture in its text would be read.
  if (event->type() == QEvent::Polish)
    if (auto *box = qobject_cast<QMessageBox *>(object))
      box->setTextFormat(Qt::PlainText);
  return false;
}

/// A list of completions isn't gone with the last of them: it hands each key on to its field.
bool Application::isGone(const QWindow &window) {
  const QWidget *widget = QWidget::find(window.winId());
  return !window.isVisible() && (widget == nullptr || widget->focusProxy() == nullptr);
}

/// Whether it was one that Qt would take for HTML.
bool Application::showPlainTip(QWidget &widget, const QHelpEvent &event) {
  if (!Qt::mightBeRichText(widget.toolTip()))
    return false;
  QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(widget.toolTip()), &widget);
  return true;
}

} // namespace vnb
