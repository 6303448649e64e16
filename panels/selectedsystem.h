// SPDX-License-Identifier: MIT
/// What the panels edit.
#pragma once

#include "document/modDeclares.h"
#include "runtime/error.h"

namespace vnb {

/// The selected device. Raises 9 if none is selected: assistive technology reaches into boxes that
/// no key does.
inline std::int32_t selectedNumber() {
  if (lSelectedItem < 0)
    throw RuntimeError(Fault::SubscriptOutOfRange);
  return lSelectedItem;
}

/// Its record, until a system is added or removed. Raises 9 if none is selected.
inline SystemRec &selectedSystem() {
  return at(Systems, selectedNumber());
}

} // namespace vnb
