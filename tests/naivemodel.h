// SPDX-License-Identifier: MIT
/// The editor as plain vectors: what each gesture comes to, written the simplest way and without
/// any of the program's own steps. Slow, and meant to be obvious.
#pragma once

#include "appearance/globals.h"
#include "diagram/line.h"
#include "diagram/sprite.h"
#include "document/modDeclares.h"
#include "naivepanels.h"

#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vnb::test {

template <class T>
std::size_t position(T number) {
  return static_cast<std::size_t>(number);
}

/// `lData1` to `lData3` by 0 to 2.
std::int32_t &field(SystemRec &record, std::size_t index);
/// How many locks a device of this type names.
std::size_t namedLocks(std::int32_t lType);
/// "Main server".
std::string nameOf(std::int32_t lType);
/// As it is added: named by nothing, and naming nothing.
SystemRec newDevice(std::int32_t lType, QPoint corner);

struct NaiveDocument {
  LanHeaderRec header;
  std::vector<SystemRec> systems;
  std::vector<LinkRec> links{1};
  std::vector<SubnetRec> subnets{1};
  std::vector<DataRec> data{1};

  /// A new LAN.
  static NaiveDocument fresh();
  /// Such as a file may hold, with lock numbers that name no lock among them.
  static NaiveDocument any(std::mt19937 &random);
  /// Trades places with the program's own document.
  void swapWithProgram();
};

class NaiveModel {
public:
  NaiveModel();

  NaiveDocument document;
  std::int32_t selected = -1;
  /// Frame and reason of each device.
  std::vector<SpriteLayer> layers;
  std::vector<SpriteTag> tags;
  std::vector<Line> lines;
  std::int32_t linkFrom = -1; // where the link that is drawn starts, -1 for none
  Line band;
  std::string status;
  /// The panels that exist.
  std::optional<NaiveDevicePanel> devicePanel;
  std::optional<NaiveLinkPanel> linkPanel;
  std::optional<NaiveSubnetPanel> subnetPanel;
  std::optional<NaiveInfoPanel> infoPanel;
  /// Message boxes that the last step must have brought, in the short form of Boxes.
  std::vector<std::string> boxes;

  void press(std::int32_t device) { select(device, SelectedColor); }
  void drop(std::int32_t device, QPoint corner);
  void doubleClick(std::int32_t device);
  void hover(std::int32_t device, QPoint at);
  void hoverSurface(QPoint at);
  void deselect();
  void addDevice(std::int32_t lType, QPoint corner);
  void addLink(const LinkRec &link);
  void retype(std::int32_t lType);
  void removeLink(std::int32_t link);
  void removeDevice();
  /// What follows the question before a removal, whatever the answer was.
  void selectAgain();
  void clear();
  void open(const NaiveDocument &file);

  // What the user does with a panel that is shown.
  void createDevicePanel();
  void createLinkPanel();
  void createSubnetPanel();
  void createInfoPanel();
  void typeData(const std::string &text);
  void typePhone(const std::string &text);
  void typeFrequency(std::size_t box, const std::string &text, std::int32_t value);
  void pickDeviceLevel(int level);
  void tickLocked(bool locked);
  void pickLock(std::size_t box, int row);
  void pickLink(int row);
  /// `inBoxes` is what the boxes say, nothing if one of them is no number.
  void pickPosition(std::size_t spot, std::optional<std::pair<double, double>> inBoxes);
  void pickLinkLevel(int level);
  void removePickedLink();
  void pickSubnet(int row);
  /// From one list of the subnet panel to the other; nothing if no row is picked.
  void moveSystem(NaiveList &from, NaiveList &to);
  void typeHeader(std::size_t box, const std::string &text, std::int32_t value);

  QSize sizeOf(std::int32_t device) const;
  std::vector<std::int32_t> linksOf(std::int32_t device) const;
  /// "Main server 3".
  std::string nameAt(std::int32_t device) const;

private:
  void select(std::int32_t device, Colour colour);
  void showNoDevice();
  void highlight(std::int32_t device, Colour colour);
  void frame(std::int32_t device, Colour colour, std::int32_t number);
  void wipeAll();
  void endLink();
  void moveBand(QPoint end, bool bare);
  void plainLines();
  void layLine(std::size_t link, bool firstEnd, bool secondEnd);
  void layAllLines();

  // The fills of the panels, which act on records, frames and lines.
  void fillDevicePanel();
  /// The end if it has none.
  std::vector<DataRec>::iterator dataOfSelected();
  void fillCommon();
  void fillGroup();
  void refillLockBoxes();
  void closeUpLockBoxes(std::int32_t gone);
  /// The box acts when it comes to another row.
  void putBox(std::size_t box, int row);
  void choose(std::size_t box, std::int32_t number);
  void dropFrames(std::size_t box);
  void fillLinkPanel();
  void fillLinkList();
  /// 0 for none.
  std::int32_t pickedLink() const;
  void showPlace(std::pair<double, double> at);
  void fillSubnetPanel();
  /// The entry that lists a system for the selected one, the end if there is none.
  std::vector<SubnetRec>::iterator subnetOfSelected(std::int32_t system);
  void showHeader();
};

} // namespace vnb::test
