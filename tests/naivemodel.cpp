// SPDX-License-Identifier: MIT
#include "naivemodel.h"

#include "appearance/images.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vnb::test {
namespace {

/// A number after `gone` has left; nothing if it was that one.
std::optional<std::int32_t> renumbered(std::int32_t number, std::int32_t gone) {
  if (number == gone)
    return std::nullopt;
  return number > gone ? number - 1 : number;
}

} // namespace

std::int32_t &field(SystemRec &record, std::size_t index) {
  return index == 0 ? record.lData1 : index == 1 ? record.lData2 : record.lData3;
}

std::size_t namedLocks(std::int32_t lType) {
  return lType == 5 || lType == 8 ? 3 : lType == 10 ? 2 : 0;
}

std::string nameOf(std::int32_t lType, std::int32_t device) {
  return NameFromType(lType, true).toStdString() + " " + std::to_string(device);
}

NaiveDocument NaiveDocument::fresh() {
  NaiveDocument document;
  document.header = {.NAME = QStringLiteral("Unnamed Network"),
                     .COMPANY = QStringLiteral("Unknown Company"),
                     .IP = QStringLiteral("123.123.123.123")};
  document.systems = {{.lType = 1,
                       .lX = 0,
                       .lY = 0,
                       .lSecur = 1,
                       .lData1 = -1,
                       .lData2 = -1,
                       .lData3 = -1,
                       .sDataX = {}}};
  return document;
}

NaiveDocument NaiveDocument::any(std::mt19937 &random) {
  const auto below = [&](int bound) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(bound));
  };
  const auto anyLevel = [&] { return below(8) == 0 ? 7 : 1 + below(3); };
  NaiveDocument document = fresh();
  document.header.NAME = QStringLiteral("LAN %1").arg(below(1000));
  document.header.XPOS = below(20000) - 10000;
  document.systems[0].lX = below(900) - 100;
  const int count = 6 + below(8);
  for (int i = 1; i <= count; ++i) {
    SystemRec record = document.systems[0];
    record.lType = std::array{0, 2, 5, 8, 9, 9, 10, 11, 14, 16}[position(below(10))];
    record.lX = below(700) - 60;
    record.lY = below(700) - 60;
    record.lSecur = 1 + below(3); // no other comes out of a file
    for (std::int32_t *data : {&record.lData1, &record.lData2, &record.lData3})
      *data = below(count + 1) - (below(3) == 0 ? 1 : 0);
    if (record.lType == SystemType::Modem)
      record.sDataX = QString::number(below(9999));
    document.systems.push_back(record);
  }
  const auto any = [&] { return below(count + 1); };
  for (int i = below(20); i > 0; --i)
    document.links.push_back({.lFrom = any(),
                              .dFromX = below(9) / 4. - .5,
                              .dFromY = below(5) / 4.,
                              .lTo = any(),
                              .dToX = below(5) / 4.,
                              .dToY = below(5) / 4.,
                              .lSecur = anyLevel()});
  for (int i = below(8); i > 0; --i)
    document.subnets.push_back({.lFor = any(), .lFrom = any()});
  for (int i = below(4); i > 0; --i)
    document.data.push_back({.lNum = any(), .sText = QStringLiteral("text %1").arg(i)});
  return document;
}

void NaiveDocument::swapWithProgram() {
  std::swap(header, LanHeader);
  systems.swap(Systems);
  links.swap(Links);
  subnets.swap(Subnets);
  data.swap(DataItems);
}

NaiveModel::NaiveModel() {
  clear();
  refillLockBoxes();
}

QSize NaiveModel::sizeOf(std::int32_t device) const {
  const QPixmap &picture = DeviceImages(document.systems[position(device)].lType);
  return picture.isNull() ? QSize(48, 32) : picture.size();
}

std::vector<std::int32_t> NaiveModel::linksOf(std::int32_t device) const {
  std::vector<std::int32_t> found;
  for (std::size_t i = 1; i < document.links.size(); ++i)
    if (document.links[i].lFrom == device || document.links[i].lTo == device)
      found.push_back(static_cast<std::int32_t>(i));
  return found;
}

// Lines.

void NaiveModel::layFirstEnd(std::size_t link) {
  const LinkRec &record = document.links[link];
  const SystemRec &from = document.systems[position(record.lFrom)];
  lines[link].x1 = static_cast<float>(from.lX + sizeOf(record.lFrom).width() * record.dFromX);
  lines[link].y1 = static_cast<float>(from.lY + sizeOf(record.lFrom).height() * record.dFromY);
}

void NaiveModel::laySecondEnd(std::size_t link) {
  const LinkRec &record = document.links[link];
  const SystemRec &to = document.systems[position(record.lTo)];
  lines[link].x2 = static_cast<float>(to.lX + sizeOf(record.lTo).width() * record.dToX);
  lines[link].y2 = static_cast<float>(to.lY + sizeOf(record.lTo).height() * record.dToY);
}

void NaiveModel::layAllLines() {
  lines.resize(document.links.size());
  for (std::size_t i = 1; i < lines.size(); ++i) {
    layFirstEnd(i);
    laySecondEnd(i);
  }
}

void NaiveModel::plainLines() {
  for (NaiveLine &line : lines)
    line.colour = LinkColor;
}

// Frames.

void NaiveModel::frame(std::int32_t device, Colour colour, std::int32_t number) {
  const bool dotted = document.systems[position(device)].lType == 9 && colour != SelectedColor;
  layers[position(device)] = {.colour = colour,
                              .frameWidth = static_cast<std::uint8_t>(dotted ? 1 : 2),
                              .dotted = dotted,
                              .number = number};
}

bool NaiveModel::highlight(std::int32_t device, Colour colour) {
  for (std::size_t i = 0; i < layers.size(); ++i)
    if (i != position(device) && i != position(selected) && tags[i] == SpriteTag::None)
      layers[i] = {};
  if (position(device) >= document.systems.size()) {
    boxes.emplace_back("340 frmMain.SelectItem");
    return false;
  }
  frame(device, colour, -1);
  return true;
}

void NaiveModel::wipeAll() {
  layers.assign(document.systems.size(), {});
  tags.assign(document.systems.size(), SpriteTag::None);
}

void NaiveModel::select(std::int32_t device, Colour colour) {
  selected = device;
  wipeAll();
  frame(device, colour, device);
  plainLines();
  fillDevicePanel();
  fillLinkPanel();
  fillSubnetPanel();
}

void NaiveModel::deselect() {
  if (selected < 0)
    return;
  wipeAll();
  plainLines();
  selected = -1;
  createDevicePanel();
  createLinkPanel();
  createSubnetPanel();
  showNoDevice();
}

void NaiveModel::showNoDevice() {
  if (devicePanel) {
    devicePanel->device = false;
    devicePanel->group = -1;
  }
  if (linkPanel)
    linkPanel->device = false;
  if (subnetPanel)
    subnetPanel->device = false;
}

// Gestures.

void NaiveModel::drop(std::int32_t device, QPoint corner) {
  document.systems[position(device)].lX = corner.x();
  document.systems[position(device)].lY = corner.y();
  for (const std::int32_t link : linksOf(device))
    if (document.links[position(link)].lFrom == device)
      layFirstEnd(position(link));
    else
      laySecondEnd(position(link));
}

void NaiveModel::doubleClick(std::int32_t device) {
  if (!band) {
    const SystemRec &record = document.systems[position(device)];
    const QSize size = sizeOf(device);
    band = {.from = device,
            .x = static_cast<std::int32_t>(std::nearbyint(record.lX + size.width() / 2.0)),
            .y = static_cast<std::int32_t>(std::nearbyint(record.lY + size.height() / 2.0)),
            .end = {}};
    return;
  }
  if (device != band->from)
    addLink({.lFrom = band->from,
             .dFromX = .5,
             .dFromY = .5,
             .lTo = device,
             .dToX = .5,
             .dToY = .5,
             .lSecur = 1});
  band.reset();
}

void NaiveModel::hover(std::int32_t device, QPoint at) {
  const SystemRec &record = document.systems[position(device)];
  status = nameOf(record.lType, device);
  if (band && band->end)
    band->end = QPoint(record.lX, record.lY) + at;
}

void NaiveModel::hoverSurface(QPoint at) {
  status.clear();
  if (band)
    band->end = at;
}

void NaiveModel::clickSurface() {
  deselect();
}

void NaiveModel::addDevice(std::int32_t lType, QPoint corner) {
  document.systems.push_back({.lType = lType,
                              .lX = corner.x(),
                              .lY = corner.y(),
                              .lSecur = 1,
                              .lData1 = -1,
                              .lData2 = -1,
                              .lData3 = -1,
                              .sDataX = {}});
  layers.emplace_back();
  tags.push_back(SpriteTag::None);
  if (lType == 9)
    refillLockBoxes();
}

void NaiveModel::addLink(const LinkRec &link) {
  document.links.push_back(link);
  lines.push_back({0, 0, 0, 0, LinkColor});
  layFirstEnd(lines.size() - 1);
  laySecondEnd(lines.size() - 1);
}

void NaiveModel::retype(std::int32_t lType) {
  document.systems[position(selected)].lType = lType;
}

void NaiveModel::removeLink(std::int32_t link) {
  document.links.erase(document.links.begin() + link);
  layAllLines();
}

void NaiveModel::removeDevice() {
  const std::int32_t gone = selected;
  NaiveDocument rest = document;
  rest.systems.clear();
  for (std::int32_t i = 0; i <= UBound(document.systems); ++i) {
    SystemRec record = document.systems[position(i)];
    for (std::size_t lock = 0; lock < namedLocks(record.lType); ++lock)
      field(record, lock) = renumbered(field(record, lock), gone).value_or(-1);
    if (i != gone)
      rest.systems.push_back(record);
  }
  rest.links.resize(1);
  for (std::size_t i = 1; i < document.links.size(); ++i) {
    LinkRec link = document.links[i];
    const auto from = renumbered(link.lFrom, gone);
    const auto to = renumbered(link.lTo, gone);
    if (!from || !to)
      continue;
    link.lFrom = *from;
    link.lTo = *to;
    rest.links.push_back(link);
  }
  rest.subnets.resize(1);
  for (std::size_t i = 1; i < document.subnets.size(); ++i) {
    const auto owner = renumbered(document.subnets[i].lFor, gone);
    const auto from = renumbered(document.subnets[i].lFrom, gone);
    if (owner && from)
      rest.subnets.push_back({.lFor = *owner, .lFrom = *from});
  }
  rest.data.resize(1);
  for (std::size_t i = 1; i < document.data.size(); ++i)
    if (const auto number = renumbered(document.data[i].lNum, gone))
      rest.data.push_back({.lNum = *number, .sText = document.data[i].sText});
  document = rest;
  // Frames stay with their number.
  layers.pop_back();
  tags.pop_back();
  layAllLines();
  band.reset();
}

void NaiveModel::selectAgain() {
  if (selected > UBound(document.systems))
    deselect();
  else if (selected != -1)
    select(selected, 0);
}

void NaiveModel::clear() {
  document = NaiveDocument::fresh();
  selected = -1;
  wipeAll();
  lines.assign(1, {0, 0, 0, 0, LinkColor});
  band.reset();
  showNoDevice();
}

void NaiveModel::open(const NaiveDocument &file) {
  clear();
  document = file;
  wipeAll();
  lines.assign(document.links.size(), {0, 0, 0, 0, LinkColor});
  layAllLines();
  refillLockBoxes();
  showHeader();
}

} // namespace vnb::test
