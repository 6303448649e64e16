// SPDX-License-Identifier: MIT
/// The document operations with their view side: sprites and lines follow the records.
#pragma once

#include "appearance/editorview.h"
#include "diagram/surface.h"
#include "document/operations.h"
#include "runtime/report.h"

namespace vnb {

/// What changes the LAN in the editor: each operation also brings in step what is seen of it.
class DiagramOperations : public DocumentOperations {
public:
  DiagramOperations(Surface &surface, EditorView &view) : m_surface(surface), m_view(view) {}

  void ClearLAN() override;
  /// Past the last number that a sprite can have, 32767, reports 6; the record stands. A new lock
  /// refills the lock boxes, unless a file is read.
  void AddSystem(std::int32_t lType, std::int32_t lX, std::int32_t lY, std::int32_t lSecur,
                 std::int32_t lData1, std::int32_t lData2, std::int32_t lData3,
                 const QString &sDataX) override;
  /// The lines of a system follow when it is moved, and not when it is replaced. Where there is no
  /// sprite both raise 340, or 6 beyond 16 bits, in place of 9.
  void MoveSystem(std::int32_t lIndex, std::int32_t lX, std::int32_t lY) override;
  void ReplaceSystem(std::int32_t lIndex, std::int32_t lNewType) override;
  /// Reports 340 once for each coordinate whose sprite doesn't exist; the record stands.
  void AddLink(std::int32_t lFrom, double lFromX, double lFromY, std::int32_t lTo, double lToX,
               double lToY, std::int32_t lSecur) override;
  /// Sprites show whatever record has their number then; the one at the top goes. Highlights stay
  /// on their numbers until the next selection.
  void RemoveSystem(std::int32_t lIndex) override;
  /// Lays all lines anew. With `bSuppressReorder` they stay as they are, the one without a link
  /// too.
  void RemoveLink(std::int32_t lIndex, bool bSuppressReorder) override;

  /// Brings the line ends at device `lIndex` up to date and shows those lines. Of a link from the
  /// device to itself that is the first end. Reported; No leaves the other lines.
  void RefreshLinks(std::int32_t lIndex);

  /// Lays both ends of line `lIndex` from its record and shows it. Raises 340 if there is none.
  void RefreshLine(std::int32_t lIndex);

private:
  bool layEnds(const Report &report, Line &line, const LinkRec &record, bool first,
               bool second) const;
  void layAllLines(const Report &report);
  void layLines(const Report &report);
  void touchChanged(const std::vector<Line> &before);
  void touchFramed(std::int32_t first);

  Surface &m_surface;
  EditorView &m_view;
};

} // namespace vnb
