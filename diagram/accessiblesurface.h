// SPDX-License-Identifier: MIT
/// What assistive technology reads of the surface, which no widgets stand for.
#pragma once

namespace vnb {

/// Makes each surface known as a list of its devices and links. A device has its name and number
/// ("Router 0"), its place, whether it is selected, and actions: press selects it, menu opens its
/// context menu, link does what a double click does. Once is enough; each surface calls it.
void installSurfaceAccess();

} // namespace vnb
