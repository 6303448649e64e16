// SPDX-License-Identifier: MIT
/// Made-up LANs of any size, so that benchmarks and tests can ask what happens to large documents.
#pragma once

#include "document/operations.h"

namespace vnb {

/// What is particular about a made-up LAN.
enum class Shape : std::uint8_t {
  Normal, // all types of devices, linked to their neighbours
  Locks,  // every device but the router is a lock
  Star,   // every link ends at device 1
  Any,    // all types of devices, linked across the whole surface
};

/// Replaces the document by one of `devices` systems, the router included, and of `links` links;
/// a few subnets and data entries come with them. The same arguments always make the same LAN.
/// REQUIRES: `devices` is at least 1, `links` at least 0.
void makeLan(DocumentOperations &operations, int devices, int links, Shape shape);

} // namespace vnb
