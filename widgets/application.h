// SPDX-License-Identifier: MIT
/// The program's event loop, past which no error goes.
#pragma once

#include <QApplication>

namespace vnb {

/// Qt carries no error from a handler to the event loop: one that the handler hasn't reported would
/// end the program, and the user's work with it. Here it becomes a report like any other. A net
/// below the handlers, and no way for them: Qt's own frames in between are left without cleaning
/// up.
class Application : public QApplication {
public:
  using QApplication::QApplication;

  bool notify(QObject *receiver, QEvent *event) override;
};

} // namespace vnb
