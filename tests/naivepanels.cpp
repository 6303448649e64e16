// SPDX-License-Identifier: MIT
#include "naivepanels.h"

#include "naivemodel.h"
#include "runtime/numbers.h"

#include <algorithm>

namespace vnb::test {
namespace {

/// The group of fields of each type.
constexpr std::array groups{-1, -1, -1, -1, -1, 1, -1, -1, 1, 0, 3, 2, -1, -1, 4, -1, -1};

/// The places that the buttons of the picker stand for: the edge and the centre, row by row.
std::vector<std::pair<double, double>> spots() {
  std::vector<std::pair<double, double>> places;
  for (const int y : {0, 1, 2, 3, 4})
    for (const int x : {0, 1, 2, 3, 4})
      if (x % 4 == 0 || y % 4 == 0 || (x == 2 && y == 2))
        places.emplace_back(x / 4., y / 4.);
  return places;
}

/// `count` buttons, of which one is down.
void addButtons(Readings &readings, const char *name, int count, int down) {
  for (int i = 0; i < count; ++i)
    readings.emplace_back(text(name, i), text(i == down));
}

/// Text typed over all of a box's. Acts also where it is the same as before, but for nothing typed
/// over nothing.
bool typed(std::string &box, const std::string &text) {
  return !std::exchange(box, text).empty() || !text.empty();
}

} // namespace

Readings readings(const NaiveDevicePanel &panel) {
  Readings result{{"lblNoDevice?", text(!panel.device)},
                  {"txtData", panel.data},
                  {"txtPhone", panel.phone},
                  {"txtFreq0", panel.frequency[0]},
                  {"txtFreq1", panel.frequency[1]},
                  {"chkLocked", text(panel.locked)}};
  addButtons(result, "optSecur", 3, panel.level);
  for (int i = 0; i < 5; ++i) {
    const NaiveLockBox &box = panel.boxes[position(i)];
    result.emplace_back(text("picSpecific", i, '?'), text(panel.group == i));
    result.emplace_back(text("cboLock", i), reading(box.rows, box.row));
  }
  return result;
}

Readings readings(const NaiveLinkPanel &panel) {
  Readings result{{"picLinks?", text(panel.device)},
                  {"lblLinks", panel.heading},
                  {"lstLinks", reading(panel.links.rows, panel.links.row)},
                  {"txtX", panel.x},
                  {"txtY", panel.y}};
  addButtons(result, "optPosition", 18, static_cast<int>(panel.spot));
  addButtons(result, "optSecur", 3, panel.level);
  return result;
}

Readings readings(const NaiveSubnetPanel &panel) {
  return {{"picSubnets?", text(panel.device)},
          {"lblSubnets", panel.heading},
          {"lstSubnets", reading(panel.subnets.rows, panel.subnets.row)},
          {"lstSystems", reading(panel.systems.rows, panel.systems.row)}};
}

Readings readings(const NaiveInfoPanel &panel) {
  const auto &[name, company, ip, x, y] = panel.texts;
  return {{"txtName", name}, {"txtCompany", company}, {"txtIP", ip}, {"txtX", x}, {"txtY", y}};
}

// The device panel.

void NaiveModel::createDevicePanel() {
  if (devicePanel)
    return;
  devicePanel.emplace();
  refillLockBoxes();
  if (selected == -1)
    return;
  devicePanel->device = true;
  fillCommon();
  fillGroup();
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
  devicePanel->group = groups[position(record.lType)];
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
    box.rows.assign(box.none ? 1 : 0, "None");
    box.locks.assign(box.none ? 1 : 0, -1);
    for (std::int32_t device = 0; device <= UBound(document.systems); ++device)
      if (document.systems[position(device)].lType == 9) {
        box.rows.push_back(std::to_string(device));
        box.locks.push_back(device);
      }
    box.row = box.none ? 0 : -1;
    if (box.none)
      dropFrames(i);
  }
}

void NaiveModel::closeUpLockBoxes(std::int32_t gone) {
  if (!devicePanel)
    return;
  for (NaiveLockBox &box : devicePanel->boxes)
    for (std::size_t row = 0; row < box.rows.size(); ++row)
      if (box.locks[row] == gone)
        box.locks[row] = -2;
      else if (box.locks[row] > gone)
        box.rows[row] = std::to_string(--box.locks[row]);
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
  if (number == -1)
    return putBox(box, lockBox.none ? 0 : -1);
  putBox(box, -1);
  for (int row = static_cast<int>(lockBox.rows.size()) - 1; row >= 0; --row) {
    const std::int32_t lock = lockBox.locks[position(row)];
    if (lock == number || (lock == -1 && number == 0)) // the value of "None" is 0
      return putBox(box, row);
  }
}

void NaiveModel::putBox(std::size_t box, int row) {
  if (devicePanel->boxes[box].row != row && row >= 0)
    return pickLock(box, row);
  devicePanel->boxes[box].row = row;
}

void NaiveModel::pickLock(std::size_t box, int row) {
  NaiveLockBox &lockBox = devicePanel->boxes[box];
  lockBox.row = row;
  const std::int32_t lock = lockBox.locks[position(row)];
  std::int32_t &stored = field(document.systems[position(selected)], lockBox.field);
  if (lock == -2) {
    boxes.emplace_back("340 frmDevice.cboLock_Click");
    return choose(box, stored);
  }
  stored = lock;
  dropFrames(box);
  if (lock == -1)
    return;
  highlight(lock, LockColor);
  tags[position(lock)] = yellowTag(static_cast<std::int32_t>(box));
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
    if (const auto next = dataOfSelected(); next != document.data.end())
      devicePanel->data = next->sText.toStdString();
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

void NaiveModel::fillLinkList() {
  linkPanel->heading = "Links for " + nameAt(selected) + ":";
  linkPanel->links = {};
  for (const std::int32_t i : linksOf(selected)) {
    const LinkRec &link = document.links[position(i)];
    linkPanel->links.rows.emplace_back(link.lFrom == selected ? "Link to " + nameAt(link.lTo)
                                                              : "Link from " + nameAt(link.lFrom),
                                       i);
  }
}

void NaiveModel::fillLinkPanel() {
  createLinkPanel();
  linkPanel->device = true;
  fillLinkList();
  if (linkPanel->links.rows.empty()) {
    linkPanel->spot = 8;
    linkPanel->x = linkPanel->y = "0.5";
  } else if (linkPanel->shown) {
    pickLink(0);
  }
}

std::int32_t NaiveModel::pickedLink() const {
  const NaiveList &links = linkPanel->links;
  return links.row == -1 ? 0 : links.rows[position(links.row)].second;
}

void NaiveModel::pickLink(int row) {
  linkPanel->links.row = row;
  const LinkRec &link = document.links[position(pickedLink())];
  plainLines();
  lines[position(pickedLink())].BorderColor = LinkSelColor;
  const bool first = link.lFrom == selected;
  const std::pair at(first ? link.dFromX : link.dToX, first ? link.dFromY : link.dToY);
  const auto places = spots();
  linkPanel->spot = position(std::ranges::find(places, at) - places.begin());
  showPlace(at);
  linkPanel->level = link.lSecur >= 1 && link.lSecur <= 3 ? link.lSecur - 1 : -1;
  if (linkPanel->level == -1)
    boxes.emplace_back("340 frmLinks.lstLinks_Click");
}

void NaiveModel::showPlace(std::pair<double, double> at) {
  linkPanel->x = doubleText(at.first).toStdString();
  linkPanel->y = doubleText(at.second).toStdString();
}

void NaiveModel::pickPosition(std::size_t spot, std::optional<std::pair<double, double>> inBoxes) {
  linkPanel->spot = spot;
  if (pickedLink() == 0)
    return;
  if (spot < spots().size())
    showPlace(*(inBoxes = spots()[spot]));
  if (!inBoxes) {
    boxes.emplace_back(
        "X and Y must be numbers within reach, such as 0.5. The link stays where it is.");
    return;
  }
  LinkRec &link = document.links[position(pickedLink())];
  (link.lFrom == selected ? link.dFromX : link.dToX) = inBoxes->first;
  (link.lFrom == selected ? link.dFromY : link.dToY) = inBoxes->second;
  layLine(position(pickedLink()), true, true);
}

void NaiveModel::pickLinkLevel(int level) {
  if (std::exchange(linkPanel->level, level) != level && pickedLink() != 0)
    document.links[position(pickedLink())].lSecur = level + 1;
}

void NaiveModel::removePickedLink() {
  NaiveList &links = linkPanel->links;
  const std::int32_t gone = pickedLink();
  removeLink(gone);
  plainLines();
  links.rows.erase(links.rows.begin() + links.row);
  links.row = -1;
  for (auto &[caption, number] : links.rows)
    number -= number > gone ? 1 : 0;
}

// The subnet panel.

void NaiveModel::createSubnetPanel() {
  if (!subnetPanel)
    subnetPanel.emplace();
}

void NaiveModel::fillSubnetPanel() {
  createSubnetPanel();
  subnetPanel->device = true;
  subnetPanel->heading = "Valid subnets for " + nameAt(selected) + ":";
  subnetPanel->subnets = subnetPanel->systems = {};
  for (std::int32_t i = 0; i <= UBound(document.systems); ++i) {
    if (i == selected)
      continue;
    const bool listed = subnetOfSelected(i) != document.subnets.end();
    (listed ? subnetPanel->subnets : subnetPanel->systems).rows.emplace_back(nameAt(i), i);
    if (!listed)
      continue;
    tags[position(i)] = SpriteTag::GreenDk;
    highlight(i, SubnetColor);
  }
}

std::vector<SubnetRec>::iterator NaiveModel::subnetOfSelected(std::int32_t system) {
  return std::find_if(
      document.subnets.begin() + 1, document.subnets.end(),
      [&](const SubnetRec &entry) { return entry.lFor == selected && entry.lFrom == system; });
}

void NaiveModel::pickSubnet(int row) {
  subnetPanel->subnets.row = row;
  for (std::size_t i = 0; i < tags.size(); ++i)
    if (tags[i] == SpriteTag::Green) {
      tags[i] = SpriteTag::GreenDk;
      highlight(static_cast<std::int32_t>(i), SubnetColor);
    }
  const std::int32_t picked = subnetPanel->subnets.rows[position(row)].second;
  highlight(picked, SubnetSelColor);
  tags[position(picked)] = SpriteTag::Green;
}

void NaiveModel::moveSystem(NaiveList &from, NaiveList &to) {
  if (from.row == -1)
    return;
  const auto moved = from.rows[position(from.row)];
  from.rows.erase(from.rows.begin() + from.row);
  from.row = -1;
  to.rows.push_back(moved);
  if (&to == &subnetPanel->subnets)
    document.subnets.push_back({.lFor = selected, .lFrom = moved.second});
  else
    document.subnets.erase(subnetOfSelected(moved.second));
}

// The LAN information panel.

void NaiveModel::createInfoPanel() {
  if (!infoPanel)
    showHeader();
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
