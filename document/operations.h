// SPDX-License-Identifier: MIT
/// The operations that change the document's devices and links.
#pragma once

#include "document/modDeclares.h"

namespace vnb {

/// The members change the records alone. The diagram derives from this class and brings its sprites
/// and lines in step after each. Failures go to the standard error report, and callers aren't told,
/// but for the two members that raise them.
class DocumentOperations {
public:
  DocumentOperations() = default;
  DocumentOperations(const DocumentOperations &) = delete;
  DocumentOperations &operator=(const DocumentOperations &) = delete;
  virtual ~DocumentOperations() = default;

  /// Back to a new LAN: the router alone at 0, 0, nothing selected, and a header with the standard
  /// texts. Asks nothing.
  virtual void ClearLAN();

  /// Appends a system; its number is the new upper bound. `lX`, `lY` in pixels of the surface;
  /// `lSecur` outside 1 to 3 becomes 1; the rest is stored as it comes.
  virtual void AddSystem(std::int32_t lType, std::int32_t lX = 0, std::int32_t lY = 0,
                         std::int32_t lSecur = 0, std::int32_t lData1 = 0, std::int32_t lData2 = 0,
                         std::int32_t lData3 = 0, const QString &sDataX = {});

  /// Moves a system to `lX`, `lY`, which may lie outside the surface. Raises 9 if there is none.
  virtual void MoveSystem(std::int32_t lIndex, std::int32_t lX, std::int32_t lY);

  /// Changes the type alone: the data fields keep what they hold, whatever the new type takes it
  /// for. Raises 9 if there is no such system.
  virtual void ReplaceSystem(std::int32_t lIndex, std::int32_t lNewType);

  /// Appends a link without any check: its ends may be missing, or joined already. The four places
  /// are fractions of the sprites' sizes.
  virtual void AddLink(std::int32_t lFrom, double lFromX, double lFromY, std::int32_t lTo,
                       double lToX, double lToY, std::int32_t lSecur);

  /// Append an entry, even if there is one like it. The numbers aren't checked.
  virtual void AddSubnet(std::int32_t lFor, std::int32_t lFrom);

  virtual void AddData(std::int32_t lNum, const QString &sText);

  /// Removes a system with its links, subnets and data entries, and keeps every stored number in
  /// step: numbers above go down by one, locks that named it become -1. For system 0, or one that
  /// isn't there, reports 9 and changes nothing.
  virtual void RemoveSystem(std::int32_t lIndex);

  /// Removes a link; reports 9 if there is none. `bSuppressReorder` leaves the lines to the caller.
  virtual void RemoveLink(std::int32_t lIndex, bool bSuppressReorder);

  /// Whether the user has answered No where a system or link of the LAN could not be shown. A file
  /// of too many rows would otherwise ask thousands of times.
  bool gaveUp() const { return m_gaveUp; }

protected:
  void setGaveUp(bool gaveUp) { m_gaveUp = gaveUp; }

private:
  bool m_gaveUp = false; // since ClearLAN
};

} // namespace vnb
