// SPDX-License-Identifier: MIT
/// Shortcuts of a form: keys that act when they are released, whichever child has the focus.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QSet>

#include <functional>

namespace vnb {

/// Watches the keys of `form`. Letters count by their key, so that they work in layouts without
/// Latin letters, too. A release counts only if its press was seen while the form was
/// active: otherwise the Alt+S that closes a dialog would open a panel. Auto-repeat is ignored, and
/// so is every key while the form is disabled.
class Shortcuts : public QObject {
public:
  /// `KeyUp` gets the key and the state of Shift, Ctrl and Alt at the release.
  Shortcuts(QWidget &form, std::function<void(int, Qt::KeyboardModifiers)> KeyUp);

  /// Only looks on: no event is held back.
  bool eventFilter(QObject *object, QEvent *event) override;

private:
  bool isForForm(QObject *object) const;
  void keyReleased(const QKeyEvent &event);

  QWidget &m_form;
  std::function<void(int, Qt::KeyboardModifiers)> m_KeyUp;
  /// Keys that were pressed here and not released yet. None once another window has the keys.
  QSet<int> m_pressed;
};

} // namespace vnb
