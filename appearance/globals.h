// SPDX-License-Identifier: MIT
/// Colours and settings that the whole program shares, zero or empty until first set.
#pragma once

#include <QColor>
#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vnb {

/// A colour value: hexadecimal 00BBGGRR, red in the low byte.
using Colour = std::int32_t;

/// Of the surface and what is marked on it. These are the user's to change.
extern Colour GridColor, LinkColor, LinkSelColor, LockColor, SelectedColor, SubnetColor,
    SubnetSelColor;
/// Of windows and controls. RedTextColor is for texts that stand out.
extern Colour SeparatorColor, BackgroundColor, TextColor, RedTextColor;
/// By security level less 1.
extern std::array<Colour, 3> SecureColor;

/// All that there is to know of a colour above. The user may change those that have a store key.
struct ColourRow {
  Colour *colour;
  std::string_view key;           // of a theme's COLOR entry
  const char *storeKey = nullptr; // in the settings store
  Colour standard = 0;            // where the store has none
  std::size_t swatch = 0;         // in the settings dialog
  const char *caption = nullptr;  // of the swatch
  int captionWidth = 0;           // twips
};

/// In the order in which the store is read.
inline constexpr std::array colourRows{
    ColourRow{&GridColor, "grid", "Colors/Grid", 0x404040, 0, "Grid:", 390},
    ColourRow{&LinkColor, "link", "Colors/Link", 0xE48257, 5, "Link:", 375},
    ColourRow{&LinkSelColor, "sellink", "Colors/LinkSel", 0x0000FF, 6, "Selected link:", 1110},
    ColourRow{&LockColor, "lock", "Colors/Lock", 0x00FFFF, 2, "Lock:", 435},
    ColourRow{&SelectedColor, "selected", "Colors/Selected", 0xFFFFFF, 1, "Selected item:", 1260},
    ColourRow{&SubnetColor, "subnet", "Colors/Subnet", 0x008000, 3, "Subnet:", 690},
    ColourRow{&SubnetSelColor, "selsubnet", "Colors/SubnetSel", 0x00FF00, 4,
              "Selected subnet:", 1470},
    ColourRow{&SeparatorColor, "separator"},
    ColourRow{&BackgroundColor, "background"},
    ColourRow{&TextColor, "text"},
    ColourRow{&RedTextColor, "redtext"},
    ColourRow{SecureColor.data(), "secure1"},
    ColourRow{SecureColor.data() + 1, "secure2"},
    ColourRow{SecureColor.data() + 2, "secure3"},
};

/// The rows of the colours that the user may change.
inline constexpr auto userColours =
    std::span(colourRows).first<std::ranges::count_if(colourRows, [](const ColourRow &row) {
      return row.storeKey != nullptr;
    })>();

/// Whether there is a grid at the start and after a change of settings.
extern bool ShowGrid;
/// Distance of the grid lines in pixels; none are drawn at 0 or below.
extern std::int32_t GridRes;
/// Whether the start opens the file that was open last.
extern bool LoadLastFile;

/// `colour` as Qt has it; bits above the 24 of the colour are left aside.
QColor toQColor(Colour colour);
/// Back again; how opaque it is gets lost.
Colour toColour(const QColor &colour);

} // namespace vnb
