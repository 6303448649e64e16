// SPDX-License-Identifier: MIT
/// What the panels work on: given once, when the main window is made.
#pragma once

#include "diagram/operations.h"
#include "diagram/selection.h"

namespace vnb {

struct PanelContext {
  Selection *selection = nullptr;
  DiagramOperations *operations = nullptr;
};

/// To be filled before any panel is addressed.
inline PanelContext panelContext;

/// Record of the selected device. REQUIRES: a device is selected.
inline SystemRec &selectedSystem() {
  return Systems[static_cast<std::size_t>(lSelectedItem)];
}

} // namespace vnb
