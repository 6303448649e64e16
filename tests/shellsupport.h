// SPDX-License-Identifier: MIT
/// What the tests of themes and settings share: errors and globals as short text.
#pragma once

#include "appearance/theme.h"
#include "runtime/error.h"
#include "shell/cdlgex.h"

#include <sstream>
#include <string>
#include <vector>

namespace vnb::test {

/// What `act` raises: the number, or the description of an error of the program's own; "" for none.
template <class Act>
std::string raised(Act act) {
  try {
    act();
  } catch (const RuntimeError &error) {
    return error.number() == ownError ? error.description().toStdString()
                                      : std::to_string(error.number());
  }
  return {};
}

using Words = std::vector<std::string>;

/// All settings as they are before any are read: recognisable values.
inline void forgetAll() {
  constexpr Colour unread = 0x777777;
  for (Colour *colour : allColours())
    *colour = unread;
  ShowGrid = LoadLastFile = false;
  GridRes = -7;
  Cdlg = {};
  Cdlg.FileName = QStringLiteral("unread");
  ThemeFile = ThemeName = QString();
}

/// The values that the store holds beside position and theme, in the order of their reading.
inline Words values() {
  const auto hex = [](Colour colour) {
    std::ostringstream out;
    out << std::hex << colour;
    return out.str();
  };
  return {ShowGrid ? "grid" : "no grid",
          std::to_string(GridRes),
          Cdlg.FileName.toStdString(),
          LoadLastFile ? "last" : "no last",
          hex(GridColor),
          hex(LinkColor),
          hex(LinkSelColor),
          hex(LockColor),
          hex(SelectedColor),
          hex(SubnetColor),
          hex(SubnetSelColor)};
}

} // namespace vnb::test
