// SPDX-License-Identifier: MIT
#include "widgets/application.h"

#include "runtime/report.h"

namespace vnb {

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

} // namespace vnb
