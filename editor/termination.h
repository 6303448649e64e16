// SPDX-License-Identifier: MIT
/// Ends that come from outside: a signal or the end of the desktop session.
#pragma once

#include <QObject>

#include <functional>

namespace vnb {

/// Calls `end` from the event loop when the process is told to stop (SIGTERM, SIGINT, SIGHUP), and
/// `save` when the session ends. One of its kind at a time.
class Termination : public QObject {
public:
  Termination(std::function<void()> end, const std::function<void()> &save);
};

} // namespace vnb
