// SPDX-License-Identifier: MIT
/// The LAN being edited: its records, held in module-level variables that every form reads and
/// writes directly.
#pragma once

#include "runtime/at.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace vnb {

/// The head of a LAN definition file.
struct LanHeaderRec {
  QString NAME;
  QString COMPANY;
  QString IP;            // free text
  std::int32_t XPOS = 0; // place on the game's world map
  std::int32_t YPOS = 0;
};

/// One device. Its number is its position in `Systems`.
struct SystemRec {
  std::int32_t lType = 0;  // SystemType code, 0 for unrecognised
  std::int32_t lX = 0;     // left edge of the sprite in pixels of the surface
  std::int32_t lY = 0;     // top edge
  std::int32_t lSecur = 0; // security level, 1 to 3
  std::int32_t lData1 = 0; // the meaning of these four depends on the type
  std::int32_t lData2 = 0;
  std::int32_t lData3 = 0;
  QString sDataX;
};

/// One connection. Its number is its position in `Links`.
struct LinkRec {
  std::int32_t lFrom = 0; // number of the system at the first end
  double dFromX = 0;      // place of that end as a fraction of the sprite's width
  double dFromY = 0;      // and of its height
  std::int32_t lTo = 0;
  double dToX = 0;
  double dToY = 0;
  std::int32_t lSecur = 0;
};

/// System `lFrom` is a valid subnet of system `lFor`.
struct SubnetRec {
  std::int32_t lFor = 0;
  std::int32_t lFrom = 0;
};

/// Extra information on system `lNum`.
struct DataRec {
  std::int32_t lNum = 0;
  QString sText;
};

extern LanHeaderRec LanHeader;
/// Element 0 is the router, a real system.
extern std::vector<SystemRec> Systems;
/// Element 0 of these three is a dummy that is never written, listed or matched.
extern std::vector<LinkRec> Links;
extern std::vector<SubnetRec> Subnets;
extern std::vector<DataRec> DataItems;

/// Number of the selected system, -1 for none. In the editor `Selection` sets it, with the frames
/// and panels that go with it.
extern std::int32_t lSelectedItem;

/// True while a file is read. The header's boxes then show what has been read and store nothing,
/// and the lock boxes are filled once, behind the last system.
extern bool LoadingFile;

/// The highest position in one of the arrays above: 0 where only element 0 is there.
template <class T>
std::int32_t UBound(const std::vector<T> &array) {
  return static_cast<std::int32_t>(array.size()) - 1;
}

/// Numbers of the links that touch system `lIndex`, ascending, from element 1 on; element 0 is 0
/// and no result. A link from a system to itself is listed once.
std::vector<std::int32_t> RetrieveLinks(std::int32_t lIndex);
bool SystemHasLinks(std::int32_t lIndex);
/// Numbers of all locks in the same form.
std::vector<std::int32_t> RetrieveLocks();

/// Position of the first entry that matches, -1 if there is none.
std::int32_t FindData(std::int32_t lNum);
std::int32_t FindSubnet(std::int32_t lFor, std::int32_t lFrom);

/// Take out the entry at position `lIndex`; later ones move down by one. Numbers that are stored
/// elsewhere stay as they are: DocumentOperations mends them. A position outside 1 to the upper
/// bound is reported as 9 and changes nothing.
void RemoveFromLinkArray(std::int32_t lIndex);
void RemoveFromSysArray(std::int32_t lIndex);
void RemoveFromDataArray(std::int32_t lIndex);
void RemoveFromSubnetArray(std::int32_t lIndex);

} // namespace vnb

#include "document/systemtype.h" // IWYU pragma: export
