// SPDX-License-Identifier: MIT
/// Forms: the program's windows.
#pragma once

#include <QWidget>

#include <functional>

class QEventLoop;

namespace vnb {

/// The forms' own font, or the desktop's family where that isn't installed; the size is that of the
/// design, whatever the desktop's is.
QFont formFont(qreal pointSize);

/// What all forms but the main window have in common. After construction a form has its design
/// state. None of its controls takes a letter with Alt or Meta for text: such keys are the main
/// window's.
class FormWindow : public QWidget {
public:
  /// `caption` is the title, `client` the size of the client area in twips.
  FormWindow(const char *name, const char *caption, QSize client);

  /// Shows the form above `owner`, which stays usable, and gives it the keys, also when it shows
  /// already. Without a task bar entry.
  void showOwned(QWidget *owner);
  /// Shows the form and returns when it is closed; other windows are inert meanwhile. It stands at
  /// the centre of `owner`, or without one where the window manager puts it.
  void showModal(QWidget *owner);

  /// Brings a form that has just been made to the program's state. The table calls it once.
  virtual void Form_Load() {}
  /// Takes the theme's colours. Only a form that takes part in theming has one of its own.
  virtual void UpdateColors() {}

protected:
  /// Refused while a box or a dialog is up: it may be one of this form's handlers that asks.
  void closeEvent(QCloseEvent *event) override;
  /// Escape closes the form as its close box does; Enter presses the button with the focus.
  void keyPressEvent(QKeyEvent *event) override;

private:
  friend class FormTable;

  /// Ends the form: it takes no input any more, not even what is queued, and goes with the next
  /// turn of the event loop. Whoever waits in showModal goes on.
  void retire();

  std::function<void()> m_retired; // the next one that is addressed is another one
  QEventLoop *m_modalLoop = nullptr;
};

} // namespace vnb
