// SPDX-License-Identifier: MIT
#include "bench/pairreporter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string_view>

namespace vnb::bench {
namespace {

/// A table cell, as printf formats it.
template <class... Values>
std::string cell(const char *format, Values... values) {
  char text[160];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

std::string number(double value, int decimals) {
  return value > 0 ? cell("%12.*f", decimals, value) : cell("%12s", "-");
}

} // namespace

void PairReporter::ReportRuns(const std::vector<Run> &runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run &run : runs)
    if (run.run_type == Run::RT_Iteration && !run.error_occurred)
      add(run);
}

void PairReporter::add(const Run &run) {
  const std::string_view name = run.run_name.function_name;
  const std::size_t slash = name.rfind('/');
  if (slash == std::string_view::npos)
    return;
  const std::int64_t size = std::strtoll(run.run_name.args.c_str(), nullptr, 10);
  Pair &pair = m_families[std::string(name.substr(0, slash))][size];
  double &best = name.substr(slash + 1) == "floor" ? pair.floor : pair.ours;
  const double ms =
      run.GetAdjustedCPUTime() * 1e3 / benchmark::GetTimeUnitMultiplier(run.time_unit);
  best = best > 0 ? std::min(best, ms) : ms;
}

void PairReporter::Finalize() {
  ConsoleReporter::Finalize();
  printPairs();
  printGrowth();
}

void PairReporter::printPairs() {
  GetOutputStream() << cell("\n%-32s%12s%12s%12s\n", "CPU ms", "ours", "floor", "ratio");
  for (const auto &[family, sizes] : m_families)
    for (const auto &[size, pair] : sizes) {
      const std::string name = family + '/' + std::to_string(size);
      const double ratio = pair.floor > 0 ? pair.ours / pair.floor : 0;
      GetOutputStream() << cell("%-32s", name.c_str()) << number(pair.ours, 4)
                        << number(pair.floor, 4) << number(ratio, 2) << '\n';
    }
}

void PairReporter::printGrowth() {
  GetOutputStream() << cell("\n%-32s%12s%12s%12s\n", "Growth", "smallest", "largest", "exponent");
  for (const auto &[family, sizes] : m_families) {
    const auto &[smallSize, small] = *sizes.begin();
    const auto &[largeSize, large] = *sizes.rbegin();
    if (smallSize <= 0 || smallSize == largeSize || small.ours <= 0 || large.ours <= 0)
      continue;
    const double exponent =
        std::log(large.ours / small.ours) /
        std::log(static_cast<double>(largeSize) / static_cast<double>(smallSize));
    GetOutputStream() << cell("%-32s%12lld%12lld%12.2f\n", family.c_str(),
                              static_cast<long long>(smallSize), static_cast<long long>(largeSize),
                              exponent);
  }
}

} // namespace vnb::bench
