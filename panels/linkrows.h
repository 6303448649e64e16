// SPDX-License-Identifier: MIT
/// The links of a device as rows: what the links panel and the context menu list.
#pragma once

#include "widgets/numberlist.h"

namespace vnb {

/// A row for each link that touches device `lIndex`, by its name as seen from there.
std::vector<NumberRow> linkRows(std::int32_t lIndex);

} // namespace vnb
