// SPDX-License-Identifier: MIT
/// The operations that change the document's devices and links.
#pragma once

#include "document/modDeclares.h"

namespace vnb {

/// The members change the records alone. The diagram derives from this class and brings its sprites
/// and lines in step after each. Failures go to the standard error report; callers aren't told.
class DocumentOperations {
public:
  DocumentOperations() = default;
  DocumentOperations(const DocumentOperations &) = delete;
  DocumentOperations &operator=(const DocumentOperations &) = delete;
  virtual ~DocumentOperations() = default;

  /// Back to a new LAN: the router alone, nothing selected.
  virtual void ClearLAN();

  /// Appends a system. `lX`, `lY` in pixels of the surface; `lSecur` outside 1 to 3 becomes 1;
  /// the rest is stored as it comes.
  virtual void AddSystem(std::int32_t lType, std::int32_t lX = 0, std::int32_t lY = 0,
                         std::int32_t lSecur = 0, std::int32_t lData1 = 0, std::int32_t lData2 = 0,
                         std::int32_t lData3 = 0, const QString &sDataX = {});

  /// Moves a system to `lX`, `lY`. Raises 9 if there is none.
  virtual void MoveSystem(std::int32_t lIndex, std::int32_t lX, std::int32_t lY);

  /// Changes the type alone. Raises 9 if there is no such system.
  virtual void ReplaceSystem(std::int32_t lIndex, std::int32_t lNewType);

  /// Appends a link without any check. The four places are fractions of the sprites' sizes.
  virtual void AddLink(std::int32_t lFrom, double lFromX, double lFromY, std::int32_t lTo,
                       double lToX, double lToY, std::int32_t lSecur);

  virtual void AddSubnet(std::int32_t lFor, std::int32_t lFrom);

  virtual void AddData(std::int32_t lNum, const QString &sText);

  /// Removes a system with its links, subnets and data entries, and keeps every stored number in
  /// step: numbers above go down by one, locks that named it become -1. Not for system 0.
  virtual void RemoveSystem(std::int32_t lIndex);

  /// Removes a link. `bSuppressReorder` leaves the lines to the caller.
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
