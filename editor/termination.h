// SPDX-License-Identifier: MIT
/// An orderly end when the system, not the user, stops the program.
#pragma once

#include <QObject>

#include <functional>

namespace vnb {

/// From its making on, calls `end` and leaves the event loop when the process is told to stop
/// (SIGTERM, SIGINT, SIGHUP, the session's end, QCoreApplication::quit), and calls `save` when the
/// session is about to end. Neither asks anything: what message boxes would show goes to the
/// standard error stream, and a menu, box or dialog that is up is cancelled first, so that nobody
/// waits within a handler while the program ends. One of its kind at a time.
class Termination : public QObject {
public:
  /// `end` is called while no handler waits. `save` may be called more than once, since the end of
  /// a session can be called off.
  Termination(std::function<void()> end, std::function<void()> save);
  ~Termination() override;
  Termination(const Termination &) = delete;
  Termination &operator=(const Termination &) = delete;

  bool eventFilter(QObject *object, QEvent *event) override;

private:
  /// Cancels what is up, the topmost first, and comes again until nobody waits; then ends.
  void stop();

  std::function<void()> m_end;
};

} // namespace vnb
