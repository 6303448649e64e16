// SPDX-License-Identifier: MIT
#include "document/operations.h"

#include "runtime/report.h"

#include <algorithm>
#include <utility>

namespace vnb {
namespace {

/// `array` as one fresh entry, without the memory of a large LAN.
template <class T>
void reset(std::vector<T> &array) {
  array = std::vector<T>(1);
}

/// Takes out every entry from 1 on that `matches`.
template <class T, class Test>
void removeAll(std::vector<T> &array, Test matches) {
  array.erase(std::remove_if(array.begin() + 1, array.end(), matches), array.end());
}

/// A stored number after system `gone` has left.
void closeGap(std::int32_t &number, std::int32_t gone) {
  if (number > gone)
    --number;
}

/// Locks that a device of this type names in lData1 and the fields behind it.
int lockFields(std::int32_t lType) {
  switch (typeRow(lType).fields) {
  case Fields::Server:
    return 3;
  case Fields::Bridge:
    return 2;
  default:
    return 0;
  }
}

/// Other types keep other things than locks in these fields, such as a frequency.
void closeGapInLocks(SystemRec &system, std::int32_t gone) {
  std::int32_t *const fields[] = {&system.lData1, &system.lData2, &system.lData3};
  for (int i = 0; i < lockFields(system.lType); ++i) {
    std::int32_t &lock = *fields[i];
    if (lock == gone)
      lock = -1;
    else
      closeGap(lock, gone);
  }
}

/// Element 0 of the links and the others takes part: no gap is low enough for its zeroes.
void closeGapEverywhere(std::int32_t gone) {
  for (LinkRec &link : Links) {
    closeGap(link.lFrom, gone);
    closeGap(link.lTo, gone);
  }
  for (SubnetRec &subnet : Subnets) {
    closeGap(subnet.lFor, gone);
    closeGap(subnet.lFrom, gone);
  }
  for (DataRec &data : DataItems)
    closeGap(data.lNum, gone);
  for (SystemRec &system : Systems)
    closeGapInLocks(system, gone);
}

} // namespace

void DocumentOperations::ClearLAN() {
  reported("frmMain", "ClearLAN", [this] {
    m_gaveUp = false;
    reset(DataItems);
    reset(Systems);
    lSelectedItem = -1;
    Systems[0] = {.lType = SystemType::Router,
                  .lSecur = 1,
                  .lData1 = -1,
                  .lData2 = -1,
                  .lData3 = -1,
                  .sDataX = {}};
    reset(Links);
    reset(Subnets);
    LanHeader = {.NAME = QStringLiteral("Unnamed Network"),
                 .COMPANY = QStringLiteral("Unknown Company"),
                 .IP = QStringLiteral("123.123.123.123")};
  });
}

void DocumentOperations::AddSystem(std::int32_t lType, std::int32_t lX, std::int32_t lY,
                                   std::int32_t lSecur, std::int32_t lData1, std::int32_t lData2,
                                   std::int32_t lData3, const QString &sDataX) {
  reported("frmMain", "AddSystem", [&] {
    Systems.push_back({.lType = lType,
                       .lX = lX,
                       .lY = lY,
                       .lSecur = lSecur >= 1 && lSecur <= 3 ? lSecur : 1,
                       .lData1 = lData1,
                       .lData2 = lData2,
                       .lData3 = lData3,
                       .sDataX = sDataX});
  });
}

void DocumentOperations::MoveSystem(std::int32_t lIndex, std::int32_t lX, std::int32_t lY) {
  SystemRec &record = at(Systems, lIndex);
  record.lX = lX;
  record.lY = lY;
}

void DocumentOperations::ReplaceSystem(std::int32_t lIndex, std::int32_t lNewType) {
  at(Systems, lIndex).lType = lNewType;
}

void DocumentOperations::AddLink(std::int32_t lFrom, double lFromX, double lFromY, std::int32_t lTo,
                                 double lToX, double lToY, std::int32_t lSecur) {
  reported("frmMain", "AddLink", [&] {
    Links.push_back({.lFrom = lFrom,
                     .dFromX = lFromX,
                     .dFromY = lFromY,
                     .lTo = lTo,
                     .dToX = lToX,
                     .dToY = lToY,
                     .lSecur = lSecur});
  });
}

void DocumentOperations::AddSubnet(std::int32_t lFor, std::int32_t lFrom) {
  reported("frmMain", "AddSubnet", [&] { Subnets.push_back({.lFor = lFor, .lFrom = lFrom}); });
}

void DocumentOperations::AddData(std::int32_t lNum, const QString &sText) {
  reported("frmMain", "AddData", [&] { DataItems.push_back({.lNum = lNum, .sText = sText}); });
}

void DocumentOperations::RemoveSystem(std::int32_t lIndex) {
  // Before anything goes: a device that stays keeps its links.
  if (lIndex < 1 || lIndex > UBound(Systems)) {
    RemoveFromSysArray(lIndex); // reports
    return;
  }
  reported(
      "frmMain", "RemoveSystem",
      // All its links in one pass: one by one, a device with thousands of links takes seconds.
      [&] {
        removeAll(Links,
                  [&](const LinkRec &link) { return link.lFrom == lIndex || link.lTo == lIndex; });
      },
      [&] {
        removeAll(Subnets, [&](const SubnetRec &subnet) {
          return subnet.lFor == lIndex || subnet.lFrom == lIndex;
        });
      },
      [&] { removeAll(DataItems, [&](const DataRec &data) { return data.lNum == lIndex; }); },
      // Numbers close up last: all that was removed before went by the old ones.
      [&] { RemoveFromSysArray(lIndex); }, [&] { closeGapEverywhere(lIndex); });
}

void DocumentOperations::RemoveLink(std::int32_t lIndex, bool /*bSuppressReorder*/) {
  reported("frmMain", "RemoveLink", [&] { RemoveFromLinkArray(lIndex); });
}

} // namespace vnb
