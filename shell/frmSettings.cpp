// SPDX-License-Identifier: MIT
#include "shell/frmSettings.h"

#include "appearance/colours.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "shell/cdlgex.h"
#include "shell/swatch.h"
#include "widgets/controls.h"
#include "widgets/textbox.h"

#include <QCheckBox>
#include <QPushButton>

namespace vnb {
namespace {

constexpr int digits = 3; // of the grid's distance

/// By the index of the swatch, which the Tab key goes along.
constexpr auto swatches = [] {
  std::array<ColourRow, userColours.size()> rows{};
  for (const ColourRow &row : userColours)
    rows[row.swatch] = row;
  return rows;
}();

// Twips.
constexpr int swatchStep = 225;
constexpr int formHeight = 75 + swatchStep * static_cast<int>(swatches.size());
constexpr int buttonTop = formHeight - 435;

} // namespace

frmSettings::frmSettings(EditorView &view)
    : FormWindow("frmSettings", "Settings", {5295, formHeight}), m_view(view) {
  m_chkGrid = addCaptioned<QCheckBox>(*this, "chkGrid", "Draw Grid", {105, 105, 1140, 180});
  QLabel *lblGridRes =
      addLabel(*this, "lblGridRes", "Grid resolution (px):", {390, 360, 1650, 180});
  m_txtGridRes = add<TextBox>(*this, "txtGridRes", Place{2100, 360, 450, 240}, digits);
  nameAfter(*m_txtGridRes, *lblGridRes);
  m_chkLoadLast =
      addCaptioned<QCheckBox>(*this, "chkLoadLast", "Auto-load last file", {105, 660, 1800, 195});
  auto *cmdOK = addCaptioned<QPushButton>(*this, "cmdOK", "OK", {90, buttonTop, 1065, 375});
  auto *cmdCancel =
      addCaptioned<QPushButton>(*this, "cmdCancel", "Cancel", {1170, buttonTop, 1065, 375});
  addSwatches();
  connect(m_txtGridRes, &TextBox::textChanged, this, &frmSettings::txtGridRes_Change);
  connect(m_txtGridRes, &TextBox::returnPressed, cmdOK, &QPushButton::click);
  connect(cmdOK, &QPushButton::clicked, this, &frmSettings::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmSettings::close);
}

void frmSettings::addSwatches() {
  for (std::size_t i = 0; i < swatches.size(); ++i) {
    const ColourRow &row = swatches[i];
    const QString index = QString::number(i);
    const int top = 45 + swatchStep * static_cast<int>(i);
    QLabel *label =
        addLabel(*this, QStringLiteral("lblColor") + index, QString::fromLatin1(row.caption),
                 {4125 - row.captionWidth, top + 15, row.captionWidth, 180}, Qt::AlignRight);
    m_picColor[i] = add<Swatch>(*this, QStringLiteral("picColor") + index);
    m_picColor[i]->setFocusPolicy(Qt::StrongFocus);
    place(*m_picColor[i], {4140, top, 615, 210});
    nameAfter(*m_picColor[i], *label);
    connect(m_picColor[i], &Swatch::clicked, this, [this, i] { picColor_Click(i); });
  }
}

void frmSettings::Form_Load() {
  m_txtGridRes->setContent(QString::number(GridRes));
  m_chkGrid->setChecked(ShowGrid);
  m_chkLoadLast->setChecked(LoadLastFile);
  for (std::size_t i = 0; i < swatches.size(); ++i)
    m_picColor[i]->setBackColor(*swatches[i].colour);
  UpdateColors();
}

void frmSettings::UpdateColors() {
  applyColours(*this);
}

void frmSettings::txtGridRes_Change() {
  const QString number = doubleText(Val(m_txtGridRes->text()));
  if (number != m_txtGridRes->text())              // setting it moves the cursor
    m_txtGridRes->setContent(number.left(digits)); // "9e9" fits; what it stands for doesn't
}

void frmSettings::picColor_Click(std::size_t Index) {
  Cdlg.flags |= CdlgEx::StartOnColour | CdlgEx::ShowCustomColours;
  Cdlg.RGBResult = m_picColor[Index]->BackColor();
  Cdlg.hOwner = this;
  Cdlg.ShowColor();
  m_picColor[Index]->setBackColor(Cdlg.RGBResult);
}

void frmSettings::cmdOK_Click() {
  // A distance from the store may be longer than what can be typed, and be made too long.
  reported(
      "frmSettings", "cmdOK_Click", [this] { GridRes = roundToLong(Val(m_txtGridRes->text())); },
      [this] {
        ShowGrid = m_chkGrid->isChecked();
        LoadLastFile = m_chkLoadLast->isChecked();
        for (const ColourRow &row : userColours)
          *row.colour = m_picColor[row.swatch]->BackColor();
        m_view.linkColorChanged();
      });
  close();
}

} // namespace vnb
