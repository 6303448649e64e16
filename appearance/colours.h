// SPDX-License-Identifier: MIT
/// The application of a theme's colours to forms.
#pragma once

#include "appearance/globals.h"

#include <QPalette>
#include <QWidget>

#include <initializer_list>

namespace vnb {

/// A control that differs from the general sweep.
struct ColourException {
  enum class Kind : std::uint8_t {
    RedText,   // foreground RedTextColor
    Security,  // the option buttons NAME0 to NAME2 in SecureColor, their digits in its inverse
    Untouched, // the controls whose names begin with NAME keep their own colours
  };
  const char *name;
  Kind kind;
};

/// The general sweep: BackgroundColor and TextColor for the form and all its controls, then what
/// differs. A form needs one line.
void applyColours(QWidget &form, std::initializer_list<ColourException> exceptions = {});

/// Palette of controls in the theme's colours, with borders that can be seen.
QPalette controlPalette();

} // namespace vnb
