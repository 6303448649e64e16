// SPDX-License-Identifier: MIT
#include "editor/termination.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace vnb {
namespace {

std::array<int, 2> ends{-1, -1};

/// In a signal handler almost nothing is allowed; a byte wakes the event loop.
extern "C" void wake(int /*signal*/) {
  const char byte = 0;
  [[maybe_unused]] const ssize_t done = ::write(ends[0], &byte, 1);
}

void handleSignals(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP})
    ::sigaction(signal, &action, nullptr);
}

} // namespace

Termination::Termination(std::function<void()> end, const std::function<void()> &save) {
  connect(qApp, &QGuiApplication::commitDataRequest, this, [save] { save(); });
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
    return;
  auto *notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [notifier, end = std::move(end)] {
    notifier->setEnabled(false);
    handleSignals(SIG_DFL); // whoever sends another one won't wait
    end();
  });
  handleSignals(wake);
  // A pipe without a reader and a file too large are errors to tell, not ends.
  for (const int fault : {SIGPIPE, SIGXFSZ})
    std::signal(fault, SIG_IGN);
}

} // namespace vnb
