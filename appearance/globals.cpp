// SPDX-License-Identifier: MIT
#include "appearance/globals.h"

namespace vnb {

Colour GridColor, LinkColor, LinkSelColor, LockColor, SelectedColor, SubnetColor, SubnetSelColor;
Colour SeparatorColor, BackgroundColor, TextColor, RedTextColor;
std::array<Colour, 3> SecureColor;

bool ShowGrid;
std::int32_t GridRes;
bool LoadLastFile;

QColor toQColor(Colour colour) {
  return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

Colour toColour(const QColor &colour) {
  return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

} // namespace vnb
