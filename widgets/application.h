// SPDX-License-Identifier: MIT
/// The program's event loop: what holds for every handler and every window, Qt's own too.
#pragma once

#include <QApplication>

class QHelpEvent;
class QWindow;

namespace vnb {

/// Qt carries no error from a handler to the event loop: one that the handler hasn't reported would
/// end the program, and the user's work with it. Here it becomes a report like any other. A net
/// below the handlers, and no way for them: Qt's own frames in between are left without cleaning
/// up.
///
/// No text is HTML, which could open any file: tool tips and message boxes show it as it stands. No
/// control's own menu opens while the left button is held. A window that is gone takes no input.
class Application : public QApplication {
public:
  Application(int &argc, char **argv);

  bool notify(QObject *receiver, QEvent *event) override;
  bool eventFilter(QObject *object, QEvent *event) override;

private:
  static bool isGone(const QWindow &window);
  static bool showPlainTip(QWidget &widget, const QHelpEvent &event);
};

} // namespace vnb
