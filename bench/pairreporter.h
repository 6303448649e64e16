// SPDX-License-Identifier: MIT
/// Sets each benchmark of ours beside its floor, the least that the same work can cost.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>

namespace vnb::bench {

/// The usual console table; then, for rows named "Family/ours/SIZE" and "Family/floor/SIZE", the
/// CPU times side by side, and how the time of each family grows with its size. Of repeated runs
/// the quickest counts: what is slower was disturbed.
class PairReporter : public benchmark::ConsoleReporter {
public:
  PairReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run> &runs) override;
  void Finalize() override;

private:
  /// Milliseconds of one run, 0 while there is none.
  struct Pair {
    double ours = 0;
    double floor = 0;
  };
  using Family = std::map<std::int64_t, Pair>; // by size

  void add(const Run &run);
  void printPairs();
  void printGrowth();

  std::map<std::string, Family> m_families;
};

} // namespace vnb::bench
