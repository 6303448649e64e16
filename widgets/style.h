// SPDX-License-Identifier: MIT
/// The one style of all windows, whatever the desktop has, and what it paints with.
#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace vnb {

/// Makes it the application's style: Fusion, but for controls whose states are drawn in shades of
/// their own palette's Window and WindowText (Button and ButtonText for the face of a button), so
/// that each can be seen in whatever two colours these are.
void useStyle();

/// How far two colours are apart for the eye: from 1 for equal ones to 21 for black and white.
double contrast(const QColor &one, const QColor &other);

/// The first colour on the way from `ground` to `text` that has this contrast to `ground`. Where
/// there is none it is `text`, or black or white if `text` itself can hardly be seen.
QColor shade(const QColor &ground, const QColor &text, double least = 21);

/// Paints a frame of `width` pixels along the inside of `rect`, as thick on each side also where a
/// fractional scale puts its edges between two pixels of the screen.
void paintFrame(QPainter &painter, const QRect &rect, const QColor &colour, int width = 1);

/// Paints the mark of the focus along the inside of `rect`, two pixels wide: a line that shows on
/// `ground`, in the colour `text` if it can be seen, and inside it one of the ground, so that the
/// mark shows on what is filled with that colour as well.
void paintFocus(QPainter &painter, const QRect &rect, const QColor &ground, const QColor &text);

} // namespace vnb
