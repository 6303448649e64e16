// SPDX-License-Identifier: MIT
/// Subscripts by the signed numbers that devices, links and controls go by.
#pragma once

#include "runtime/error.h"

#include <cstdint>

namespace vnb {

/// Element `lIndex` of a container, counted from 0. Raises 9 if there is none, as for any negative
/// number. Gives what the container's own subscript gives: a reference that holds until the
/// container changes its size, or a stand-in for one where, as for bools, there are no references.
template <class Container>
decltype(auto) at(Container &container, std::int32_t lIndex) {
  const auto index = static_cast<std::size_t>(lIndex); // a negative one is beyond any size
  if (index >= container.size())
    throw RuntimeError(Fault::SubscriptOutOfRange);
  return container[index];
}

} // namespace vnb
