// SPDX-License-Identifier: MIT
/// What panels, gestures and toolbox share.
#pragma once

#include "diagram/diagramoperations.h"
#include "diagram/selection.h"

namespace vnb {

/// The drawn document. The main window owns the parts and hands this to every form that works on
/// them.
struct DiagramParts {
  Surface &surface;
  Selection &selection;
  DiagramOperations &operations;
};

} // namespace vnb
