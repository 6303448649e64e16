// SPDX-License-Identifier: MIT
/// System calls and allocations that fail one after the other, in the programs that link this.
#pragma once

#include "support.h"

#include <functional>

namespace vnb::test {

/// What is counted, and the one that fails.
struct Faults {
  bool calls = false;
  bool allocations = false;
  int until = -1; // those before the one that fails
  int count = 0;

  bool next() { return count++ == until; }
};

/// Runs `act` without a fault, and then as often as there are faults to have, with the next one
/// each time and the boxes answered No, or Yes a few times before. `check` is told of the boxes,
/// and whether there was a fault. Returns the number of faults.
int withEach(bool Faults::*kind, const std::function<void()> &before,
             const std::function<void()> &act,
             const std::function<void(const Words &boxes, bool failed)> &check);

} // namespace vnb::test
