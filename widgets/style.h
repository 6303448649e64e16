// SPDX-License-Identifier: MIT
/// The one style of all windows, whatever the desktop has.
#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace vnb {

/// Makes it the application's style: Fusion, with frames that are whole at every scale.
void useStyle();

/// Paints a frame of `width` pixels along the inside of `rect`. Lines would be cut off where a
/// fractional scale puts them between two pixels of the screen; areas aren't.
void paintFrame(QPainter &painter, const QRect &rect, const QColor &colour, int width = 1);

} // namespace vnb
