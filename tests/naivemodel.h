// SPDX-License-Identifier: MIT
/// The editor as plain vectors: what each gesture comes to, written the simplest way and without
/// any of the program's own steps. Slow, and meant to be obvious.
#pragma once

#include "appearance/globals.h"
#include "diagram/sprite.h"
#include "document/modDeclares.h"
#include "naivepanels.h"

#include <optional>
#include <random>
#include <string>
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
/// "Main server 3".
std::string nameOf(std::int32_t lType, std::int32_t device);

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

struct NaiveLine {
  float x1, y1, x2, y2;
  Colour colour;
};

struct NaiveBand {
  std::int32_t from;
  std::int32_t x, y;
  std::optional<QPoint> end; // once it has shown
};

class NaiveModel {
public:
  NaiveModel();

  NaiveDocument document;
  std::int32_t selected = -1;
  /// Frame and reason of each device.
  std::vector<SpriteLayer> layers;
  std::vector<SpriteTag> tags;
  std::vector<NaiveLine> lines;
  std::optional<NaiveBand> band; // while a link is drawn
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
  void clickSurface();
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
  void showDevicePanel();
  void showLinkPanel();
  void showSubnetPanel();
  void showInfoPanel();
  void typeData(const std::string &text);
  void typePhone(const std::string &text);
  void typeFrequency(std::size_t box, const std::string &text, std::int32_t value);
  void pickDeviceLevel(int level);
  void tickLocked(bool locked);
  /// The box acts when it comes to another row.
  void putBox(std::size_t box, int row);
  void pickLink(int row);
  /// `inBoxes` is what the boxes say, nothing if one of them is no number.
  void pickPosition(int spot, std::optional<std::pair<double, double>> inBoxes);
  void pickLinkLevel(int level);
  void removePickedLink();
  void pickSubnet(int row);
  void addSubnet();
  void removeSubnet();
  void typeHeader(std::size_t box, const std::string &text, std::int32_t value);

  QSize sizeOf(std::int32_t device) const;
  std::vector<std::int32_t> linksOf(std::int32_t device) const;

private:
  void select(std::int32_t device, Colour colour);
  void deselect();
  void showNoDevice();
  /// False, and an error noted, for a device that isn't there.
  bool highlight(std::int32_t device, Colour colour);
  void frame(std::int32_t device, Colour colour, std::int32_t number);
  void wipeAll();
  void plainLines();
  void layFirstEnd(std::size_t link);
  void laySecondEnd(std::size_t link);
  void layAllLines();

  // The fills of the panels, which act on records, frames and lines.
  void createDevicePanel();
  void fillDevicePanel();
  /// The end if it has none.
  std::vector<DataRec>::iterator dataOfSelected();
  void fillCommon();
  void fillGroup();
  void refillLockBoxes();
  void choose(std::size_t box, std::int32_t number);
  void dropFrames(std::size_t box);
  void createLinkPanel();
  void fillLinkPanel();
  void fillLinkList();
  LinkRec *pickedLink();
  void createSubnetPanel();
  void fillSubnetPanel();
  void showHeader();
};

} // namespace vnb::test
