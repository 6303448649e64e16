// SPDX-License-Identifier: MIT
#include "editor/termination.h"

#include "runtime/messagebox.h"

#include <QApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace vnb {
namespace {

std::array<int, 2> ends{-1, -1};

/// In a signal handler almost nothing is allowed; a byte wakes the event loop.
extern "C" void wake(int /*signal*/) {
  const int interrupted = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t done = ::write(ends[0], &byte, 1);
  errno = interrupted;
}

void handleSignals(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  // Nothing but the event loop is to notice.
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    ::sigaction(signal, &action, nullptr);
}

QWidget *dialogOnTop() {
  QWidget *popup = QApplication::activePopupWidget();
  return popup != nullptr ? popup : QApplication::activeModalWidget();
}

/// Whether a handler waits for an answer: its loop runs within the program's.
bool somebodyWaits() {
  return dialogOnTop() != nullptr || QThread::currentThread()->loopLevel() > 1;
}

} // namespace

Termination::Termination(std::function<void()> end, std::function<void()> save)
    : m_end(std::move(end)) {
  qApp->installEventFilter(this);
  connect(qApp, &QGuiApplication::commitDataRequest, this, [save = std::move(save)] {
    // For now: another program may call the session's end off.
    const auto ask = std::exchange(showMessageBox, printMessage);
    save();
    showMessageBox = ask;
  });
  // One end can be written to in a signal handler, and the event loop watches the other. Without
  // them signals do what they do by themselves.
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
    return;
  auto *notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    notifier->setEnabled(false);
    handleSignals(SIG_DFL); // whoever sends another one won't wait
    stop();
  });
  handleSignals(wake);
}

Termination::~Termination() {
  handleSignals(SIG_DFL);
  for (const int end : ends)
    ::close(end);
}

void Termination::stop() {
  constexpr int turn = 10; // milliseconds for the handler to get its answer
  showMessageBox = printMessage;
  if (!somebodyWaits()) {
    m_end();
    return QCoreApplication::exit(); // the main window may have been closed already
  }
  // One a turn: the handler that gets its answer may bring up another.
  if (QWidget *dialog = dialogOnTop())
    dialog->close();
  QTimer::singleShot(turn, this, [this] { stop(); });
}

/// Quit is the session's last word, upon which Qt closes all windows, whoever waits.
bool Termination::eventFilter(QObject * /*object*/, QEvent *event) {
  if (event->type() != QEvent::Quit)
    return false;
  const bool early = somebodyWaits();
  if (early)
    stop();
  else
    showMessageBox = printMessage;
  return early;
}

} // namespace vnb
