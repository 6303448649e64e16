// SPDX-License-Identifier: MIT
/// The standard error report: how every failure reaches the user.
#pragma once

#include "runtime/error.h"

namespace vnb {

/// The report of one procedure, for procedures that loop; `reported` serves the straight ones. The
/// message tells number, module, procedure and description. Costs nothing while nothing fails.
class Report {
public:
  /// `module` and `procedure` are the words of the message; both must outlive the report.
  Report(const char *module, const char *procedure) : m_module(module), m_procedure(procedure) {}

  /// Runs one statement. When it fails, asks whether to go on; what it did up to there stays done.
  /// Returns false if the user said No: the procedure must then be left at once.
  template <class Statement>
  bool operator()(Statement &&statement) const {
    try {
      statement();
      return true;
    } catch (...) {
      return ask(currentError());
    }
  }

private:
  /// Whether the answer is Yes.
  bool ask(const RuntimeError &error) const;

  const char *m_module;
  const char *m_procedure;
};

/// Runs `steps` in order. When one fails, by whatever exception, asks whether to go on; Yes goes on
/// with the next step, No leaves. Returns whether the procedure ran to its end, which it also does
/// past steps that failed.
template <class... Steps>
bool reported(const char *module, const char *procedure, Steps &&...steps) {
  const Report report(module, procedure);
  return (report(steps) && ...);
}

} // namespace vnb
