// SPDX-License-Identifier: MIT
/// The sizes of LAN at which everything is measured.
#pragma once

#include <benchmark/benchmark.h>

namespace vnb::bench {

/// From what is usual to the largest LAN, in devices; times are shown in milliseconds. A row takes
/// no longer than it must: there are many.
inline void sizes(benchmark::internal::Benchmark *rows) {
  rows->Arg(1000)->Arg(4096)->Arg(32767)->Unit(benchmark::kMillisecond)->MinTime(0.1);
}

} // namespace vnb::bench
