// SPDX-License-Identifier: MIT
/// The settings dialog: grid, auto-load and the drawing colours.
#pragma once

#include "appearance/editorview.h"
#include "appearance/globals.h"
#include "widgets/form.h"

#include <array>

class QCheckBox;

namespace vnb {

class Swatch;
class TextBox;

/// Changes nothing before OK.
class frmSettings : public FormWindow {
public:
  explicit frmSettings(EditorView &view);
  void Form_Load() override;
  void UpdateColors() override;

private:
  void addSwatches();
  void txtGridRes_Change();
  void picColor_Click(std::size_t Index);
  void cmdOK_Click();

  EditorView &m_view;
  QCheckBox *m_chkGrid;
  TextBox *m_txtGridRes;
  QCheckBox *m_chkLoadLast;
  std::array<Swatch *, userColours.size()> m_picColor{};
};

} // namespace vnb
