// SPDX-License-Identifier: MIT
#include "panels/frmSubnet.h"

#include "appearance/colours.h"
#include "document/displaynames.h"
#include "runtime/at.h"
#include "runtime/report.h"
#include "widgets/controls.h"
#include "widgets/numberlist.h"

namespace vnb {
namespace {

/// Which systems stand in the valid-subnet list of `lFor`, marked in one pass: FindSubnet for each
/// of them would be quadratic.
std::vector<bool> listedFor(std::int32_t lFor) {
  std::vector<bool> listed(Systems.size());
  for (std::size_t i = 1; i < Subnets.size(); ++i) {
    const auto [lOwner, lFrom] = Subnets[i];
    if (lOwner == lFor && lFrom >= 0 && lFrom <= UBound(Systems))
      at(listed, lFrom) = true;
  }
  return listed;
}

/// Moves the selected row of one list to the end of the other. Its number, or -1 if none is
/// selected.
std::int32_t moveRow(NumberList &from, NumberList &to) {
  const NumberRow *const picked = from.picked();
  if (picked == nullptr)
    return -1;
  // A copy, as the row goes.
  const NumberRow moved = *picked;
  to.addRow(moved);
  from.removeRow(from.ListIndex());
  return moved.number;
}

} // namespace

frmSubnet::frmSubnet(const DiagramParts &diagram)
    : DevicePanel(diagram, "frmSubnet", "Valid Subnets", {7485, 1845}, "picSubnets") {
  m_lblSubnets =
      addLabel(container(), "lblSubnets", "Valid subnets for #####:", {60, 45, 7200, 195});
  m_lstSubnets = add<NumberList>(container(), "lstSubnets");
  m_lstSubnets->setAccessibleName(QStringLiteral("Valid subnets"));
  m_picAdd = addButton("picAdd", "ADDSUB", "Add a subnet", 270, &frmSubnet::picAdd_Click);
  m_picRemove =
      addButton("picRemove", "DELSUB", "Remove a subnet", 480, &frmSubnet::picRemove_Click);
  m_lstSystems = add<NumberList>(container(), "lstSystems");
  m_lstSystems->setAccessibleName(QStringLiteral("Other systems"));
  place(*m_lstSubnets, {60, 270, 3510, 1320});
  place(*m_lstSystems, {3885, 270, 3510, 1320});
  m_lstSubnets->Click = [this] { lstSubnets_Click(); };
  showNoDevice();
}

PictureButton *frmSubnet::addButton(const char *name, const char *tag, const char *toolTip, int top,
                                    void (frmSubnet::*click)()) {
  auto *button = add<PictureButton>(container(), name, QString::fromLatin1(tag));
  button->setToolTip(QString::fromLatin1(toolTip));
  button->setAccessibleName(button->toolTip());
  place(*button, {3630, top, 195, 195});
  showImages(*button);
  button->Click = [this, click] { (this->*click)(); };
  return button;
}

void frmSubnet::Form_Load() {
  reported("frmSubnet", "Form_Load", [this] { UpdateColors(); });
}

void frmSubnet::UpdateColors() {
  applyColours(*this);
  setForeground(lblNoDevice(), RedTextColor);
}

void frmSubnet::buttonImagesChanged() {
  for (PictureButton *button : {m_picAdd, m_picRemove})
    showImages(*button);
}

void frmSubnet::selectionFill() {
  showDevice();
  m_lblSubnets->setText(QStringLiteral("Valid subnets for ") + deviceName(lSelectedItem) + u':');
  const std::vector<bool> listed = listedFor(lSelectedItem);
  std::vector<NumberRow> subnets;
  std::vector<NumberRow> others;
  others.reserve(Systems.size());
  for (std::int32_t i = 0; i <= UBound(Systems); ++i) {
    if (i == lSelectedItem)
      continue;
    (at(listed, i) ? subnets : others)
        .push_back({.name = friendlyName(i), .number = i, .shown = i});
  }
  // Before the frames: an error there must not leave the rows of the device before.
  m_lstSubnets->setRows(std::move(subnets));
  m_lstSystems->setRows(std::move(others));
  for (const NumberRow &row : m_lstSubnets->rows())
    diagram().selection.showSubnet(row.number);
}

void frmSubnet::lstSubnets_Click() {
  const NumberRow *const row = m_lstSubnets->picked();
  if (row != nullptr)
    reported("frmSubnet", "lstSubnets_Click", [&] { diagram().selection.pickSubnet(row->number); });
}

void frmSubnet::picAdd_Click() {
  reported("frmSubnet", "picAdd_Click", [this] {
    const std::int32_t lSystem = moveRow(*m_lstSystems, *m_lstSubnets);
    if (lSystem != -1)
      diagram().operations.AddSubnet(lSelectedItem, lSystem);
  });
}

void frmSubnet::picRemove_Click() {
  reported("frmSubnet", "picRemove_Click", [this] {
    const std::int32_t lSystem = moveRow(*m_lstSubnets, *m_lstSystems);
    if (lSystem != -1)
      // The first of them, should a file have it twice.
      RemoveFromSubnetArray(FindSubnet(lSelectedItem, lSystem));
  });
}

} // namespace vnb
