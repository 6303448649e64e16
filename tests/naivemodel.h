// SPDX-License-Identifier: MIT
/// The editor as plain vectors: what each gesture comes to, written the simplest way and without
/// any of the program's own steps. Slow, and meant to be obvious.
#pragma once

#include "appearance/globals.h"
#include "diagram/sprite.h"
#include "document/modDeclares.h"

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace vnb::test {

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
  bool linkPanelShown = false;
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

  QSize sizeOf(std::int32_t device) const;
  std::vector<std::int32_t> linksOf(std::int32_t device) const;

private:
  void select(std::int32_t device, Colour colour);
  void deselect();
  /// False, and an error noted, for a device that isn't there.
  bool highlight(std::int32_t device, Colour colour);
  void frame(std::int32_t device, Colour colour, std::int32_t number);
  void wipeAll();
  void plainLines();
  void layFirstEnd(std::size_t link);
  void laySecondEnd(std::size_t link);
  void layAllLines();

  // The device panel, whose fill acts on the record and on the frames of locks.
  void refillLockBoxes();
  void fillDevicePanel();
  void choose(std::size_t box, std::int32_t number);
  void putBox(std::size_t box, int row);
  void dropFrames(std::size_t box);

  struct LockBox {
    bool none; // whether its first row is "None"
    std::size_t field;
    int row;
  };
  std::vector<LockBox> m_boxes{
      {false, 0, -1}, {true, 1, 0}, {true, 2, 0}, {false, 0, -1}, {false, 1, -1}};
  std::vector<std::int32_t> m_lockRows;
  bool m_locked = true; // the tick of the panel
};

} // namespace vnb::test
