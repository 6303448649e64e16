// SPDX-License-Identifier: MIT
#include "tools/samplelan.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace vnb {
namespace {

constexpr int surfaceSize = 2500;
constexpr int spriteRoom = 60; // keeps the last row and column on the surface

class Generator {
public:
  Generator(DocumentOperations &operations, int devices, int links, Shape shape)
      : m_operations(operations), m_devices(devices), m_links(links), m_shape(shape),
        m_columns(static_cast<int>(std::ceil(std::sqrt(devices)))),
        m_cell(std::max(1, (surfaceSize - spriteRoom) / m_columns)) {}

  void make() {
    m_operations.ClearLAN();
    LanHeader = {.NAME = QStringLiteral("Made-up Network"),
                 .COMPANY = QStringLiteral("Made-up Company"),
                 .IP = QStringLiteral("10.0.0.1"),
                 .XPOS = 250,
                 .YPOS = 120};
    Systems[0].lX = place(0);
    Systems[0].lY = place(0);
    for (int number = 1; number < m_devices; ++number)
      addSystem(number);
    for (int link = 0; link < m_links; ++link)
      addLink(link % m_devices);
    addSubnets();
    addData();
  }

private:
  /// A whole number from 0 to `end` - 1. The library's distributions differ between platforms.
  int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }

  /// A coordinate somewhere in column or row `cell` of the layout.
  int place(int cell) { return cell * m_cell + below(m_cell); }

  int pickType() {
    if (m_shape == Shape::Locks)
      return SystemType::Lock;
    return 1 + below(SystemType::Last);
  }

  int pickLock() { return m_locks.empty() || below(3) == 0 ? -1 : m_locks[pickLockIndex()]; }

  /// One of the latest locks, since devices stand near those that lock them.
  std::size_t pickLockIndex() {
    const int count = static_cast<int>(m_locks.size());
    return static_cast<std::size_t>(count - 1 - below(std::min(count, 8)));
  }

  void addSystem(int number) {
    const int type = pickType();
    const int x = place(number % m_columns);
    const int y = place(number / m_columns);
    int data1 = -1;
    int data2 = -1;
    int data3 = -1;
    QString text;
    switch (type) {
    case SystemType::MainServer:
    case SystemType::Authentication:
      data3 = pickLock();
      [[fallthrough]];
    case SystemType::IsolationBridge:
      data1 = pickLock();
      data2 = pickLock();
      break;
    case SystemType::Lock:
      m_locks.push_back(number);
      data1 = below(2);
      break;
    case SystemType::Modem:
      if (below(2) == 0)
        text = QStringLiteral("555-%1").arg(below(10000), 4, 10, QLatin1Char('0'));
      break;
    case SystemType::RadioReceiver:
      data1 = 100 + below(400);
      data2 = below(1000);
      break;
    default:
      break;
    }
    m_operations.AddSystem(type, x, y, 1 + below(3), data1, data2, data3, text);
  }

  /// A device in a cell beside that of `number`.
  int neighbour(int number) {
    const int steps[] = {1, m_columns, m_columns - 1, m_columns + 1};
    const int step = steps[below(4)];
    if (number + step < m_devices)
      return number + step;
    return number >= step ? number - step : 0;
  }

  /// Mostly a place of the quarter grid, sometimes another hundredth.
  double pickFraction() { return below(8) == 0 ? below(101) / 100.0 : below(5) / 4.0; }

  int otherEnd(int from) {
    switch (m_shape) {
    case Shape::Star:
      return std::min(1, m_devices - 1);
    case Shape::Any:
      return below(m_devices);
    default:
      return neighbour(from);
    }
  }

  void addLink(int from) {
    const int to = otherEnd(from);
    const double fromX = pickFraction();
    const double fromY = pickFraction();
    const double toX = pickFraction();
    const double toY = pickFraction();
    m_operations.AddLink(from, fromX, fromY, to, toX, toY, 1 + below(3));
  }

  void addSubnets() {
    for (int i = std::min(12, m_devices / 4); i > 0; --i) {
      const int number = below(m_devices);
      m_operations.AddSubnet(number, neighbour(number));
    }
  }

  void addData() {
    for (int i = std::min(8, m_devices / 4); i > 0; --i)
      m_operations.AddData(below(m_devices),
                           QStringLiteral("Records, shelf %1").arg(1 + below(40)));
  }

  DocumentOperations &m_operations;
  const int m_devices;
  const int m_links;
  const Shape m_shape;
  const int m_columns;
  const int m_cell;
  std::mt19937 m_random{20}; // NOLINT(*-msc51-cpp): the same LAN each time
  std::vector<int> m_locks;
};

} // namespace

void makeLan(DocumentOperations &operations, int devices, int links, Shape shape) {
  Generator(operations, devices, links, shape).make();
}

} // namespace vnb
