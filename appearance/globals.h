// SPDX-License-Identifier: MIT
/// Colours and settings that the whole program shares, zero or empty until first set.
#pragma once

#include <QColor>
#include <QString>

#include <array>
#include <cstdint>
#include <span>

namespace vnb {

/// A colour value: hexadecimal 00BBGGRR, red in the low byte.
using Colour = std::int32_t;

extern Colour GridColor, LinkColor, LinkSelColor, LockColor, SelectedColor, SubnetColor,
    SubnetSelColor;
extern Colour SeparatorColor, BackgroundColor, TextColor, RedTextColor;
extern std::array<Colour, 3> SecureColor;

/// All colours above, in a fixed order.
std::span<Colour *const> allColours();

extern bool ShowGrid;
/// Distance of the grid lines in pixels; none are drawn at 0 or below.
extern std::int32_t GridRes;
extern bool LoadLastFile;

/// `colour` as Qt has it; bits above the 24 of the colour are left aside.
QColor toQColor(Colour colour);
Colour toColour(const QColor &colour);

} // namespace vnb
