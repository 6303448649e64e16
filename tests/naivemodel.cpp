// SPDX-License-Identifier: MIT
#include "naivemodel.h"

#include "appearance/images.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vnb::test {
std::int32_t &field(SystemRec &record, std::size_t index) {
  return index == 0 ? record.lData1 : index == 1 ? record.lData2 : record.lData3;
}

std::size_t namedLocks(std::int32_t lType) {
  return lType == 5 || lType == 8 ? 3 : lType == 10 ? 2 : 0;
}

std::string nameOf(std::int32_t lType) {
  return NameFromType(lType, true).toStdString();
}

SystemRec newDevice(std::int32_t lType, QPoint corner) {
  return {.lType = lType,
          .lX = corner.x(),
          .lY = corner.y(),
          .lSecur = 1,
          .lData1 = -1,
          .lData2 = -1,
          .lData3 = -1,
          .sDataX = {}};
}

NaiveDocument NaiveDocument::fresh() {
  NaiveDocument document;
  document.header = {.NAME = QStringLiteral("Unnamed Network"),
                     .COMPANY = QStringLiteral("Unknown Company"),
                     .IP = QStringLiteral("123.123.123.123")};
  document.systems = {newDevice(1, {})};
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

std::string NaiveModel::nameAt(std::int32_t device) const {
  return text(nameOf(document.systems[position(device)].lType), ' ', device);
}

// Lines.

void NaiveModel::layLine(std::size_t link, bool firstEnd, bool secondEnd) {
  const LinkRec &record = document.links[link];
  const auto lay = [&](float &x, float &y, std::int32_t device, double across, double down) {
    const SystemRec &system = document.systems[position(device)];
    x = static_cast<float>(system.lX + sizeOf(device).width() * across);
    y = static_cast<float>(system.lY + sizeOf(device).height() * down);
  };
  Line &line = lines[link];
  if (firstEnd)
    lay(line.X1, line.Y1, record.lFrom, record.dFromX, record.dFromY);
  if (secondEnd)
    lay(line.X2, line.Y2, record.lTo, record.dToX, record.dToY);
  line.Visible = true;
}

void NaiveModel::layAllLines() {
  lines.resize(document.links.size(), {.BorderColor = LinkColor});
  for (std::size_t i = 1; i < lines.size(); ++i)
    layLine(i, true, true);
}

void NaiveModel::plainLines() {
  for (Line &line : lines)
    line.BorderColor = LinkColor;
}

// Frames.

void NaiveModel::frame(std::int32_t device, Colour colour, std::int32_t number) {
  const bool dotted = document.systems[position(device)].lType == 9 && colour != SelectedColor;
  layers[position(device)] = {.colour = colour,
                              .frameWidth = static_cast<std::uint8_t>(dotted ? 1 : 2),
                              .dotted = dotted,
                              .number = number};
}

void NaiveModel::highlight(std::int32_t device, Colour colour) {
  for (std::size_t i = 0; i < layers.size(); ++i)
    if (i != position(device) && i != position(selected) && tags[i] == SpriteTag::None)
      layers[i] = {};
  frame(device, colour, -1);
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
  if (devicePanel)
    devicePanel->device = false;
  if (linkPanel) {
    linkPanel->device = false;
    linkPanel->links = {};
  }
  if (subnetPanel) {
    subnetPanel->device = false;
    subnetPanel->subnets = subnetPanel->systems = {};
  }
}

// Gestures.

void NaiveModel::drop(std::int32_t device, QPoint corner) {
  document.systems[position(device)].lX = corner.x();
  document.systems[position(device)].lY = corner.y();
  for (const std::int32_t link : linksOf(device)) {
    const bool first = document.links[position(link)].lFrom == device;
    layLine(position(link), first, !first);
  }
}

void NaiveModel::doubleClick(std::int32_t device) {
  if (linkFrom == -1) {
    const SystemRec &record = document.systems[position(device)];
    const QSize size = sizeOf(device);
    linkFrom = device;
    band.X1 = static_cast<float>(std::nearbyint(record.lX + size.width() / 2.0));
    band.Y1 = static_cast<float>(std::nearbyint(record.lY + size.height() / 2.0));
    return;
  }
  if (device != linkFrom)
    addLink({.lFrom = linkFrom,
             .dFromX = .5,
             .dFromY = .5,
             .lTo = device,
             .dToX = .5,
             .dToY = .5,
             .lSecur = 1});
  endLink();
}

void NaiveModel::endLink() {
  linkFrom = -1;
  band.Visible = false;
}

/// Shows first over the bare surface.
void NaiveModel::moveBand(QPoint end, bool bare) {
  if (linkFrom == -1)
    return;
  band.X2 = static_cast<float>(end.x());
  band.Y2 = static_cast<float>(end.y());
  band.Visible = band.Visible || bare;
}

void NaiveModel::hover(std::int32_t device, QPoint at) {
  const SystemRec &record = document.systems[position(device)];
  status = nameAt(device);
  moveBand(QPoint(record.lX, record.lY) + at, false);
}

void NaiveModel::hoverSurface(QPoint at) {
  status.clear();
  moveBand(at, true);
}

void NaiveModel::addDevice(std::int32_t lType, QPoint corner) {
  document.systems.push_back(newDevice(lType, corner));
  layers.emplace_back();
  tags.push_back(SpriteTag::None);
  if (lType == 9)
    refillLockBoxes();
}

void NaiveModel::addLink(const LinkRec &link) {
  document.links.push_back(link);
  lines.push_back({.BorderColor = LinkColor});
  layLine(lines.size() - 1, true, true);
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
  // What names it goes with it; later numbers close up.
  const auto forget = [gone](auto &rows, auto... numbers) {
    std::erase_if(rows, [&](const auto &row) { return ((row.*numbers == gone) || ...); });
    for (auto &row : rows)
      ((row.*numbers -= row.*numbers > gone ? 1 : 0), ...);
  };
  forget(document.links, &LinkRec::lFrom, &LinkRec::lTo);
  forget(document.subnets, &SubnetRec::lFor, &SubnetRec::lFrom);
  forget(document.data, &DataRec::lNum);
  document.systems.erase(document.systems.begin() + gone);
  for (SystemRec &record : document.systems)
    for (std::size_t i = 0; i < namedLocks(record.lType); ++i) {
      std::int32_t &lock = field(record, i);
      lock = lock == gone ? -1 : lock > gone ? lock - 1 : lock;
    }
  closeUpLockBoxes(gone);
  // Frames stay with their number.
  layers.pop_back();
  tags.pop_back();
  layAllLines();
  endLink();
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
  lines.assign(1, {.BorderColor = LinkColor});
  endLink();
  showNoDevice();
  if (devicePanel)
    refillLockBoxes();
}

void NaiveModel::open(const NaiveDocument &file) {
  clear();
  document = file;
  wipeAll();
  layAllLines();
  refillLockBoxes();
  showHeader();
}

} // namespace vnb::test
