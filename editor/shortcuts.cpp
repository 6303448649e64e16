// SPDX-License-Identifier: MIT
#include "editor/shortcuts.h"

#include <QApplication>
#include <QWidget>

namespace vnb {

Shortcuts::Shortcuts(QWidget &form, std::function<void(int, Qt::KeyboardModifiers)> KeyUp)
    : QObject(&form), m_form(form), m_KeyUp(std::move(KeyUp)) {
  qApp->installEventFilter(this);
}

bool Shortcuts::eventFilter(QObject *object, QEvent *event) {
  switch (event->type()) {
  case QEvent::KeyPress:
    if (isForForm(object))
      m_pressed.insert(static_cast<QKeyEvent *>(event)->key());
    break;
  case QEvent::KeyRelease:
    if (isForForm(object))
      keyReleased(*static_cast<QKeyEvent *>(event));
    break;
  case QEvent::WindowDeactivate:
    if (object == &m_form)
      m_pressed.clear();
    break;
  default:
    break;
  }
  return false;
}

/// A key event is seen several times on its way; at the focused widget exactly once.
bool Shortcuts::isForForm(QObject *object) const {
  const QWidget *focus = QApplication::focusWidget();
  const QObject *target = focus != nullptr && focus->window() == &m_form ? focus : &m_form;
  return object == target;
}

void Shortcuts::keyReleased(const QKeyEvent &event) {
  if (event.isAutoRepeat() || !m_pressed.remove(event.key()))
    return;
  m_KeyUp(event.key(),
          event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

} // namespace vnb
