// SPDX-License-Identifier: MIT
/// What the tests of themes and settings share: globals as short text.
#pragma once

#include "appearance/theme.h"
#include "shell/cdlgex.h"
#include "shell/settings.h"
#include "support.h"

#include <sstream>

namespace vnb::test {

/// All settings as they are before any are read: recognisable values.
inline void forgetAll() {
  constexpr Colour unread = 0x777777;
  for (const ColourRow &row : colourRows)
    *row.colour = unread;
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

/// The main window as the settings know it.
class Window : public SettingsView {
public:
  void setLeft(std::int32_t lLeft) override { calls.push_back("left " + std::to_string(lLeft)); }
  void setTop(std::int32_t lTop) override { calls.push_back("top " + std::to_string(lTop)); }
  double Left() const override { return left; }
  double Top() const override { return top; }
  void LoadTheme(const QString &sFileName) override {
    calls.push_back("theme " + sFileName.toStdString());
    if (themeFails)
      throw RuntimeError(Fault::FileNotFound);
    EXPECT_EQ(GridRes, -7) << "the theme comes first";
    for (const ColourRow &row : colourRows)
      *row.colour = 0x123456;
  }

  Words calls;
  double left = 0, top = 0;
  bool themeFails = false;
};

} // namespace vnb::test
