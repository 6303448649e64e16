// SPDX-License-Identifier: MIT
/// What the panels work on: given once, when the main window is made.
#pragma once

#include "diagram/operations.h"
#include "diagram/selection.h"
#include "runtime/error.h"

namespace vnb {

struct PanelContext {
  Selection *selection = nullptr;
  DiagramOperations *operations = nullptr;
};

/// To be filled before any panel is addressed.
inline PanelContext panelContext;

/// The selected device. Raises 9 if none is selected: assistive technology reaches into boxes that
/// no key does.
inline std::int32_t selectedNumber() {
  if (lSelectedItem < 0)
    throw RuntimeError(Fault::SubscriptOutOfRange);
  return lSelectedItem;
}

/// Its record. Raises 9 if none is selected.
inline SystemRec &selectedSystem() {
  return at(Systems, selectedNumber());
}

} // namespace vnb
