// SPDX-License-Identifier: MIT
/// What the four panels show, as plain values, and how it reads.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vnb::test {

template <class... Values>
std::string text(const Values &...values) {
  std::ostringstream out;
  (out << ... << values);
  return out.str();
}

struct NaiveList {
  std::vector<std::pair<std::string, std::int32_t>> rows; // text and number
  int row = -1;                                           // the picked one
};

struct NaiveLockBox {
  bool none; // whether its first row is "None"
  std::size_t field;
  int row = -1;
  std::vector<std::string> rows{};
  std::vector<std::int32_t> locks{}; // what each row stands for: -1 for "None", -2 for a lock gone
};

struct NaiveDevicePanel {
  bool shown = false;  // the window, on screen
  bool device = false; // rather than "No Device Selected"
  int group = -1;
  std::string data, phone;
  int level = -1; // which button is down
  bool locked = true;
  std::vector<NaiveLockBox> boxes{{false, 0}, {true, 1}, {true, 2}, {false, 0}, {false, 1}};
  std::array<std::string, 2> frequency;
};

struct NaiveLinkPanel {
  bool shown = false;
  bool device = false;
  std::string heading = "Links for #####:";
  NaiveList links;
  std::size_t spot = 8;
  std::string x = "0.5", y = "0.5";
  int level = -1;
};

struct NaiveSubnetPanel {
  bool shown = false;
  bool device = false;
  std::string heading = "Valid subnets for #####:";
  NaiveList subnets, systems;
};

struct NaiveInfoPanel {
  bool shown = false;
  std::array<std::string, 5> texts; // by HeaderField
};

/// Names of controls with what each says; behind "?" stands whether it shows.
using Readings = std::vector<std::pair<std::string, std::string>>;

Readings readings(const NaiveDevicePanel &panel);
Readings readings(const NaiveLinkPanel &panel);
Readings readings(const NaiveSubnetPanel &panel);
Readings readings(const NaiveInfoPanel &panel);

template <class Row>
std::string reading(const std::vector<Row> &rows, int row) {
  return testing::PrintToString(rows) + " at " + std::to_string(row);
}

} // namespace vnb::test
