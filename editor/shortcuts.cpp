// SPDX-License-Identifier: MIT
#include "editor/shortcuts.h"

#include <QApplication>
#include <QWidget>

#include <array>
#include <string_view>

namespace vnb {
namespace {

/// The key, whatever letters its layout has: where it isn't a Latin one, the letter that the key
/// has in the Latin layout. Key codes are those of X and Wayland.
int keyCode(const QKeyEvent &event) {
  constexpr int lastLatin = 0xFF;
  constexpr int firstOwn = Qt::Key_Escape; // keys without a letter
  const int key = event.key();
  if (key <= lastLatin || key >= firstOwn)
    return key;
  static constexpr std::array<std::pair<quint32, std::string_view>, 3> rows{
      {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};
  for (const auto &[first, letters] : rows)
    if (event.nativeScanCode() >= first && event.nativeScanCode() < first + letters.size())
      return letters[event.nativeScanCode() - first];
  return key;
}

} // namespace

Shortcuts::Shortcuts(QWidget &form, std::function<void(int, Qt::KeyboardModifiers)> KeyUp)
    : QObject(&form), m_form(form), m_KeyUp(std::move(KeyUp)) {
  // On the whole program, as a child with the focus may keep a key from the form.
  qApp->installEventFilter(this);
}

bool Shortcuts::eventFilter(QObject *object, QEvent *event) {
  switch (event->type()) {
  case QEvent::KeyPress:
    if (isForForm(object))
      m_pressed.insert(keyCode(*static_cast<QKeyEvent *>(event)));
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
  if (!m_form.isEnabled())
    return false;
  const QWidget *focus = QApplication::focusWidget();
  const QObject *target = focus != nullptr && focus->window() == &m_form ? focus : &m_form;
  return object == target;
}

void Shortcuts::keyReleased(const QKeyEvent &event) {
  const int KeyCode = keyCode(event);
  if (event.isAutoRepeat() || !m_pressed.remove(KeyCode))
    return;
  m_KeyUp(KeyCode, event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

} // namespace vnb
