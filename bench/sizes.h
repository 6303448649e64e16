// SPDX-License-Identifier: MIT
/// The sizes of LAN at which everything is measured.
#pragma once

#include <benchmark/benchmark.h>

namespace vnb::bench {

/// From what is usual to the largest LAN, in devices; times are shown in milliseconds.
inline void sizes(benchmark::internal::Benchmark *rows) {
  rows->Arg(1000)->Arg(4096)->Arg(32767)->Unit(benchmark::kMillisecond);
}

} // namespace vnb::bench
