// SPDX-License-Identifier: MIT
// Random work on the whole editor against a second model of it: plain vectors, rebuilt the naive
// way. After each step both must say the same of every record, sprite, line and frame.
//
// VNB_MODEL_STEPS sets the number of steps, VNB_MODEL_SEED another seed than the usual one; both
// are printed. A sequence that fails is cut down before it is shown.
#include "session.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>

namespace vnb::test {
namespace {

int fromEnvironment(const char *name, int standard) {
  bool valid = false;
  const int value = qEnvironmentVariableIntValue(name, &valid);
  return valid ? value : standard;
}

std::vector<Step> randomSteps(unsigned seed, int count) {
  std::mt19937 random(seed);
  std::discrete_distribution<std::size_t> kinds = stepWeights();
  std::vector<Step> steps;
  steps.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    // Users keep at a thing for a while: some faults show only in what is done twice on end.
    const bool again = !steps.empty() && random() % 2 == 0;
    Step step{.kind = again ? steps.back().kind : kinds(random), .dice = {}};
    for (std::uint32_t &die : step.dice)
      die = static_cast<std::uint32_t>(random());
    steps.push_back(step);
  }
  return steps;
}

struct Outcome {
  std::vector<std::string> log; // what each step did, up to the one that failed
  std::string difference;       // empty if none failed

  bool failed() const { return !difference.empty(); }
};

/// Starts the program afresh and does the steps.
Outcome run(const std::vector<Step> &steps) {
  Session session;
  Outcome outcome;
  for (const Step &step : steps) {
    outcome.log.push_back(session.perform(step));
    outcome.difference = session.difference();
    if (outcome.failed())
      break;
  }
  return outcome;
}

/// Takes out ever smaller pieces as long as the rest still fails, until that has taken as many
/// steps as the whole test.
std::vector<Step> shrunk(std::vector<Step> steps) {
  std::size_t patience = 20000;
  for (std::size_t piece = steps.size() / 2; piece > 0;) {
    bool cut = false;
    for (std::size_t at = 0; at < steps.size() && patience > 0;) {
      std::vector<Step> rest = steps;
      const auto first = rest.begin() + static_cast<std::ptrdiff_t>(at);
      rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, steps.size() - at)));
      const Outcome outcome = run(rest);
      patience -= std::min(patience, outcome.log.size());
      if (outcome.failed()) {
        rest.resize(outcome.log.size());
        steps = std::move(rest);
        cut = true;
      } else {
        at += piece;
      }
    }
    if (!cut || piece > steps.size())
      piece /= 2;
  }
  return steps;
}

TEST(Model, TheEditorDoesWhatTheNaiveModelDoes) {
  const int count = fromEnvironment("VNB_MODEL_STEPS", 20000);
  const auto seed = static_cast<unsigned>(fromEnvironment("VNB_MODEL_SEED", 1));
  std::cout << count << " steps, seed " << seed << std::endl;
  // From time to time a fresh start, so that a failing sequence is never long.
  constexpr int round = 2000;
  for (int done = 0; done < count; done += round) {
    std::vector<Step> steps =
        randomSteps(seed + static_cast<unsigned>(done), std::min(round, count - done));
    const Outcome outcome = run(steps);
    if (!outcome.failed())
      continue;
    steps.resize(outcome.log.size());
    const Outcome shortest = run(shrunk(std::move(steps)));
    std::string text;
    for (const std::string &line : shortest.log)
      text += line + "\n";
    FAIL() << text << shortest.difference << "\n(first seen in round " << done / round << ": "
           << outcome.difference << ")";
  }
}

} // namespace
} // namespace vnb::test
