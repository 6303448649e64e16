// SPDX-License-Identifier: MIT
/// Steps of work on the editor, done both by the program and by a naive model of it.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace vnb::test {

/// One thing that a user does. The dice say with what; they are read against the document as it is
/// then, so that a step means something in any sequence.
struct Step {
  std::size_t kind;
  std::array<std::uint32_t, 6> dice;
};

/// How often each kind of step is taken.
std::discrete_distribution<std::size_t> stepWeights();

struct Outcome {
  std::vector<std::string> log; // what each step did, up to the one that failed
  std::string difference;       // empty if none failed

  bool failed() const { return !difference.empty(); }
};

/// Starts the program afresh and does the steps.
Outcome run(const std::vector<Step> &steps);

} // namespace vnb::test
