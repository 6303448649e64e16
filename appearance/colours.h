// SPDX-License-Identifier: MIT
/// The application of a theme's colours to forms.
#pragma once

#include "appearance/globals.h"

#include <QPalette>
#include <QWidget>

namespace vnb {

/// The general sweep: BackgroundColor and TextColor for the form and all its controls, but for no
/// dialog over it. What differs comes after it.
void applyColours(QWidget &form);

/// Gives the text of one control another colour, until the next sweep.
void setForeground(QWidget &control, Colour colour);

/// The theme's two colours in the roles that the style paints with.
QPalette themePalette();

} // namespace vnb
