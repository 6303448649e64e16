// SPDX-License-Identifier: MIT
#include "naivepanels.h"

#include "naivemodel.h"
#include "runtime/numbers.h"

#include <algorithm>
#include <sstream>

namespace vnb::test {
namespace {

int groupOf(std::int32_t lType) {
  switch (lType) {
  case 9:
    return 0;
  case 5:
  case 8:
    return 1;
  case 11:
    return 2;
  case 10:
    return 3;
  case 14:
    return 4;
  default:
    return -1;
  }
}

std::string describe(const std::vector<NaiveRow> &rows, int row) {
  std::ostringstream out;
  for (const NaiveRow &entry : rows)
    out << entry.text << '=' << entry.number << ',';
  out << " at " << row;
  return out.str();
}

const char *window(bool shown) {
  return shown ? "shown" : "hidden";
}

/// The number of the picker's button at a place, 17 if there is none.
int spotAt(double x, double y) {
  if (x * 4 != static_cast<int>(x * 4) || x < 0 || x > 1)
    return 17;
  const int column = static_cast<int>(x * 4);
  if (y == 0 || y == 1)
    return (y == 0 ? 0 : 12) + column;
  if (y == .5 && column % 2 == 0)
    return 7 + column / 2;
  if ((y == .25 || y == .75) && column % 4 == 0)
    return (y == .25 ? 5 : 10) + column / 4;
  return 17;
}

/// Text typed over all of a box's. Acts also where it is the same as before, but for nothing typed
/// over nothing.
bool typed(std::string &box, const std::string &text) {
  return !std::exchange(box, text).empty() || !text.empty();
}

} // namespace

std::string describe(const NaiveDevicePanel &panel) {
  std::ostringstream out;
  out << window(panel.shown) << (panel.device ? " device" : " no device") << ", group "
      << panel.group << ", data '" << panel.data << "', level " << panel.level
      << (panel.locked ? ", locked" : ", not locked") << ", phone '" << panel.phone
      << "', frequency '" << panel.frequency[0] << "' '" << panel.frequency[1] << "', boxes ";
  for (const NaiveLockBox &box : panel.boxes) {
    for (const std::string &row : box.rows)
      out << row << ',';
    out << " at " << box.row << "; ";
  }
  return out.str();
}

std::string describe(const NaiveLinkPanel &panel) {
  std::ostringstream out;
  out << window(panel.shown) << (panel.device ? " device" : " no device") << ", " << panel.heading
      << ' ' << describe(panel.rows, panel.row) << ", spot " << panel.spot << ", X '" << panel.x
      << "', Y '" << panel.y << "', level " << panel.level;
  return out.str();
}

std::string describe(const NaiveSubnetPanel &panel) {
  std::ostringstream out;
  out << window(panel.shown) << (panel.device ? " device" : " no device") << ", " << panel.heading
      << ' ' << describe(panel.subnets.rows, panel.subnets.row) << " | "
      << describe(panel.systems.rows, panel.systems.row);
  return out.str();
}

std::string describe(const NaiveInfoPanel &panel) {
  std::string result = window(panel.shown);
  for (const std::string &text : panel.texts)
    result += " '" + text + "'";
  return result;
}

// The device panel.

void NaiveModel::createDevicePanel() {
  if (devicePanel)
    return;
  devicePanel.emplace();
  if (selected == -1)
    return;
  devicePanel->device = true;
  fillCommon();
  if (namedLocks(document.systems[position(selected)].lType) > 0)
    refillLockBoxes();
  fillGroup();
}

void NaiveModel::showDevicePanel() {
  createDevicePanel();
  devicePanel->shown = true;
}

void NaiveModel::fillDevicePanel() {
  createDevicePanel();
  devicePanel->device = true;
  fillCommon();
  fillGroup();
}

std::vector<DataRec>::iterator NaiveModel::dataOfSelected() {
  return std::find_if(document.data.begin() + 1, document.data.end(),
                      [&](const DataRec &data) { return data.lNum == selected; });
}

void NaiveModel::fillCommon() {
  const auto entry = dataOfSelected();
  devicePanel->data = entry == document.data.end() ? "" : entry->sText.toStdString();
  const std::int32_t level = document.systems[position(selected)].lSecur;
  pickDeviceLevel(level >= 1 && level <= 3 ? level - 1 : 0);
}

void NaiveModel::fillGroup() {
  const SystemRec record = document.systems[position(selected)];
  devicePanel->group = groupOf(record.lType);
  if (record.lType == 9)
    tickLocked(record.lData1 != 0);
  if (record.lType == 11)
    devicePanel->phone = record.sDataX.toStdString();
  if (record.lType == 14)
    devicePanel->frequency = {std::to_string(record.lData1), std::to_string(record.lData2)};
  for (std::size_t i = 0; i < namedLocks(record.lType); ++i) {
    SystemRec copy = record;
    choose((record.lType == 10 ? 3 : 0) + i, field(copy, i));
  }
}

void NaiveModel::refillLockBoxes() {
  createDevicePanel();
  for (std::size_t i = 0; i < devicePanel->boxes.size(); ++i) {
    NaiveLockBox &box = devicePanel->boxes[i];
    box.rows.clear();
    if (box.none)
      box.rows.emplace_back("None");
    for (std::int32_t device = 0; device <= UBound(document.systems); ++device)
      if (document.systems[position(device)].lType == 9)
        box.rows.push_back(std::to_string(device));
    box.row = box.none ? 0 : -1;
    if (box.none)
      dropFrames(i);
  }
}

void NaiveModel::dropFrames(std::size_t box) {
  for (std::size_t i = 0; i < tags.size(); ++i)
    if (tags[i] == yellowTag(static_cast<std::int32_t>(box))) {
      tags[i] = SpriteTag::None;
      layers[i] = {};
    }
}

void NaiveModel::choose(std::size_t box, std::int32_t number) {
  const NaiveLockBox &lockBox = devicePanel->boxes[box];
  if (lockBox.rows.empty())
    return;
  if (number == -1)
    return putBox(box, lockBox.none ? 0 : -1);
  putBox(box, -1);
  for (std::size_t row = 0; row < lockBox.rows.size(); ++row)
    if (std::atoi(lockBox.rows[row].c_str()) == number) // 0 for "None"
      putBox(box, static_cast<int>(row));
}

void NaiveModel::putBox(std::size_t box, int row) {
  NaiveLockBox &lockBox = devicePanel->boxes[box];
  if (std::exchange(lockBox.row, row) == row || row < 0 || selected == -1)
    return;
  const std::string entry = lockBox.rows[position(row)];
  std::int32_t lock = -1;
  dropFrames(box);
  if (entry != "None") {
    lock = std::stoi(entry);
    if (!highlight(lock, LockColor)) {
      boxes.emplace_back("340 frmDevice.cboLock_Click");
      return;
    }
    tags[position(lock)] = yellowTag(static_cast<std::int32_t>(box));
  }
  field(document.systems[position(selected)], lockBox.field) = lock;
}

void NaiveModel::typeData(const std::string &text) {
  if (!typed(devicePanel->data, text))
    return;
  const auto entry = dataOfSelected();
  if (entry == document.data.end()) {
    if (!text.empty())
      document.data.push_back({.lNum = selected, .sText = QString::fromStdString(text)});
  } else if (text.empty()) {
    document.data.erase(entry);
  } else {
    entry->sText = QString::fromStdString(text);
  }
}

void NaiveModel::typePhone(const std::string &text) {
  devicePanel->phone = text;
  document.systems[position(selected)].sDataX = QString::fromStdString(text);
}

void NaiveModel::typeFrequency(std::size_t box, const std::string &text, std::int32_t value) {
  if (typed(devicePanel->frequency[box], text))
    field(document.systems[position(selected)], box) = value;
}

void NaiveModel::pickDeviceLevel(int level) {
  if (std::exchange(devicePanel->level, level) != level)
    document.systems[position(selected)].lSecur = level + 1;
}

void NaiveModel::tickLocked(bool locked) {
  if (std::exchange(devicePanel->locked, locked) != locked)
    document.systems[position(selected)].lData1 = locked ? 1 : 0;
}

// The link panel.

void NaiveModel::createLinkPanel() {
  if (linkPanel)
    return;
  linkPanel.emplace();
  if (selected == -1)
    return;
  linkPanel->device = true;
  fillLinkList();
}

void NaiveModel::showLinkPanel() {
  createLinkPanel();
  linkPanel->shown = true;
}

void NaiveModel::fillLinkList() {
  const auto nameAt = [this](std::int32_t device) {
    return nameOf(document.systems[position(device)].lType, device);
  };
  linkPanel->heading = "Links for " + nameAt(selected) + ":";
  linkPanel->rows.clear();
  linkPanel->row = -1;
  for (const std::int32_t i : linksOf(selected)) {
    const LinkRec &link = document.links[position(i)];
    linkPanel->rows.push_back(
        {link.lFrom == selected ? "Link to " + nameAt(link.lTo) : "Link from " + nameAt(link.lFrom),
         i});
  }
}

void NaiveModel::fillLinkPanel() {
  createLinkPanel();
  linkPanel->device = true;
  fillLinkList();
  if (linkPanel->rows.empty()) {
    linkPanel->spot = 8;
    linkPanel->x = linkPanel->y = "0.5";
  } else if (linkPanel->shown) {
    pickLink(0);
  }
}

LinkRec *NaiveModel::pickedLink() {
  return linkPanel->row == -1
             ? nullptr
             : &document.links[position(linkPanel->rows[position(linkPanel->row)].number)];
}

void NaiveModel::pickLink(int row) {
  if (std::exchange(linkPanel->row, row) == row)
    return;
  const LinkRec &link = *pickedLink();
  plainLines();
  lines[position(linkPanel->rows[position(row)].number)].colour = LinkSelColor;
  const bool first = link.lFrom == selected;
  const double x = first ? link.dFromX : link.dToX;
  const double y = first ? link.dFromY : link.dToY;
  linkPanel->spot = spotAt(x, y);
  linkPanel->x = doubleText(x).toStdString();
  linkPanel->y = doubleText(y).toStdString();
  linkPanel->level = link.lSecur >= 1 && link.lSecur <= 3 ? link.lSecur - 1 : -1;
  if (linkPanel->level == -1)
    boxes.emplace_back("340 frmLinks.lstLinks_Click");
}

void NaiveModel::pickPosition(int spot, std::optional<std::pair<double, double>> inBoxes) {
  linkPanel->spot = spot;
  LinkRec *const link = pickedLink();
  if (link == nullptr)
    return;
  if (spot != 17) {
    for (const double x : {0., .25, .5, .75, 1.})
      for (const double y : {0., .25, .5, .75, 1.})
        if (spotAt(x, y) == spot)
          inBoxes = {x, y};
    linkPanel->x = doubleText(inBoxes->first).toStdString();
    linkPanel->y = doubleText(inBoxes->second).toStdString();
  }
  if (!inBoxes) {
    boxes.emplace_back(
        "X and Y must be numbers within reach, such as 0.5. The link stays where it is.");
    return;
  }
  (link->lFrom == selected ? link->dFromX : link->dToX) = inBoxes->first;
  (link->lFrom == selected ? link->dFromY : link->dToY) = inBoxes->second;
  layFirstEnd(position(link - document.links.data()));
  laySecondEnd(position(link - document.links.data()));
}

void NaiveModel::pickLinkLevel(int level) {
  if (std::exchange(linkPanel->level, level) == level)
    return;
  if (LinkRec *link = pickedLink())
    link->lSecur = level + 1;
}

void NaiveModel::removePickedLink() {
  const std::int32_t gone = linkPanel->rows[position(linkPanel->row)].number;
  removeLink(gone);
  plainLines();
  linkPanel->rows.erase(linkPanel->rows.begin() + linkPanel->row);
  linkPanel->row = -1;
  for (NaiveRow &row : linkPanel->rows)
    if (row.number > gone)
      --row.number;
}

// The subnet panel.

void NaiveModel::createSubnetPanel() {
  if (!subnetPanel)
    subnetPanel.emplace();
}

void NaiveModel::showSubnetPanel() {
  createSubnetPanel();
  subnetPanel->shown = true;
}

void NaiveModel::fillSubnetPanel() {
  createSubnetPanel();
  subnetPanel->device = true;
  subnetPanel->heading =
      "Valid subnets for " + nameOf(document.systems[position(selected)].lType, selected) + ":";
  subnetPanel->subnets = {};
  subnetPanel->systems = {};
  for (std::int32_t i = 0; i <= UBound(document.systems); ++i) {
    if (i == selected)
      continue;
    const bool listed = std::any_of(
        document.subnets.begin() + 1, document.subnets.end(),
        [&](const SubnetRec &entry) { return entry.lFor == selected && entry.lFrom == i; });
    (listed ? subnetPanel->subnets : subnetPanel->systems)
        .rows.push_back({nameOf(document.systems[position(i)].lType, i), i});
    if (!listed)
      continue;
    tags[position(i)] = SpriteTag::GreenDk;
    highlight(i, SubnetColor);
  }
}

void NaiveModel::pickSubnet(int row) {
  if (std::exchange(subnetPanel->subnets.row, row) == row)
    return;
  for (std::size_t i = 0; i < tags.size(); ++i)
    if (tags[i] == SpriteTag::Green) {
      tags[i] = SpriteTag::GreenDk;
      highlight(static_cast<std::int32_t>(i), SubnetColor);
    }
  const std::int32_t picked = subnetPanel->subnets.rows[position(row)].number;
  highlight(picked, SubnetSelColor);
  tags[position(picked)] = SpriteTag::Green;
}

namespace {

/// Nothing if no row is picked.
std::optional<std::int32_t> moveRow(NaiveList &from, NaiveList &to) {
  if (from.row == -1)
    return std::nullopt;
  const NaiveRow row = from.rows[position(from.row)];
  from.rows.erase(from.rows.begin() + from.row);
  from.row = -1;
  to.rows.push_back(row);
  return row.number;
}

} // namespace

void NaiveModel::addSubnet() {
  if (const auto system = moveRow(subnetPanel->systems, subnetPanel->subnets))
    document.subnets.push_back({.lFor = selected, .lFrom = *system});
}

void NaiveModel::removeSubnet() {
  const auto system = moveRow(subnetPanel->subnets, subnetPanel->systems);
  if (system)
    document.subnets.erase(std::find_if(
        document.subnets.begin() + 1, document.subnets.end(),
        [&](const SubnetRec &entry) { return entry.lFor == selected && entry.lFrom == *system; }));
}

// The LAN information panel.

void NaiveModel::showInfoPanel() {
  if (!infoPanel)
    showHeader();
  infoPanel->shown = true;
}

void NaiveModel::showHeader() {
  if (!infoPanel)
    infoPanel.emplace();
  const LanHeaderRec &header = document.header;
  infoPanel->texts = {header.NAME.toStdString(), header.COMPANY.toStdString(),
                      header.IP.toStdString(), std::to_string(header.XPOS),
                      std::to_string(header.YPOS)};
}

void NaiveModel::typeHeader(std::size_t box, const std::string &text, std::int32_t value) {
  if (!typed(infoPanel->texts[box], text))
    return;
  LanHeaderRec &header = document.header;
  if (box < 3)
    (box == 0 ? header.NAME : box == 1 ? header.COMPANY : header.IP) = QString::fromStdString(text);
  else
    (box == 3 ? header.XPOS : header.YPOS) = value;
}

} // namespace vnb::test
