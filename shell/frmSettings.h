// SPDX-License-Identifier: MIT
/// The settings dialog: grid, auto-load and the seven drawing colours.
#pragma once

#include "appearance/globals.h"
#include "forms/form.h"

#include <array>
#include <functional>

class QCheckBox;

namespace vnb {

class Swatch;
class TextBox;

class frmSettings : public FormWindow {
public:
  frmSettings();
  void Form_Load();
  void UpdateColors();

  /// Called by OK: all lines and the rubber band take LinkColor. To be set before the form is used.
  static std::function<void()> LinkColorChanged;

private:
  void addSwatches();
  void txtGridRes_Change();
  void picColor_Click(std::size_t Index);
  void cmdOK_Click();

  QCheckBox *m_chkGrid;
  TextBox *m_txtGridRes;
  QCheckBox *m_chkLoadLast;
  std::array<Swatch *, 7> m_picColor{};
};

} // namespace vnb
