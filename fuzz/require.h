// SPDX-License-Identifier: MIT
/// What a fuzz target expects: anything else is a finding.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace vnb {

/// Ends the process, which the fuzzer takes for a finding, unless `holds`.
inline void require(bool holds, const char *what) {
  if (holds)
    return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

} // namespace vnb
