// SPDX-License-Identifier: MIT
#include "diagram/diagramoperations.h"

#include "appearance/images.h"
#include "runtime/report.h"

#include <algorithm>

namespace vnb {
namespace {

LinkRec &link(std::int32_t lIndex) {
  return at(Links, lIndex);
}

float endX(const SpriteRect &sprite, double fraction) {
  return toSingle(sprite.Left + sprite.Width * fraction);
}

bool sameEnds(const Line &a, const Line &b) {
  return a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2;
}

float endY(const SpriteRect &sprite, double fraction) {
  return toSingle(sprite.Top + sprite.Height * fraction);
}

} // namespace

void DiagramOperations::ClearLAN() {
  DocumentOperations::ClearLAN();
  reported("frmMain", "ClearLAN", [this] {
    m_surface.picSystem.unloadAll();
    m_surface.lneLink.unloadAll();
    m_surface.lneLink(0).Visible = false;
    m_surface.picSystem(0) = {};
    m_surface.update();
    m_view.lanCleared();
  });
}

void DiagramOperations::AddSystem(std::int32_t lType, std::int32_t lX, std::int32_t lY,
                                  std::int32_t lSecur, std::int32_t lData1, std::int32_t lData2,
                                  std::int32_t lData3, const QString &sDataX) {
  DocumentOperations::AddSystem(lType, lX, lY, lSecur, lData1, lData2, lData3, sDataX);
  const std::int32_t lIndex = UBound(Systems);
  if (m_surface.picSystem.UBound() >= lIndex)
    return; // there was no memory for the record
  // Emptied, as element 0 may be highlighted.
  if (!reported("frmMain", "AddSystem", [&] { m_surface.picSystem.Load(lIndex) = {}; })) {
    setGaveUp(true);
    return;
  }
  // Without a sprite there is one report, not one for each of its properties.
  const bool loaded = m_surface.picSystem.UBound() == lIndex;
  reported(
      "frmMain", "AddSystem",
      [&] {
        if (!loaded)
          return;
        m_surface.touch(lIndex);
        static_cast<void>(DeviceImages(lType)); // raises what is wrong with the code
      },
      [&] {
        // While a file is read, the reader refills them once, behind its last system.
        if (lType == SystemType::Lock && !LoadingFile)
          m_view.PopulateLockBoxes();
      });
}

void DiagramOperations::MoveSystem(std::int32_t lIndex, std::int32_t lX, std::int32_t lY) {
  m_surface.touch(lIndex);
  DocumentOperations::MoveSystem(lIndex, lX, lY);
  m_surface.touch(lIndex);
  RefreshLinks(lIndex);
}

void DiagramOperations::ReplaceSystem(std::int32_t lIndex, std::int32_t lNewType) {
  m_surface.touch(lIndex);
  DocumentOperations::ReplaceSystem(lIndex, lNewType);
  m_surface.touch(lIndex);
}

void DiagramOperations::AddLink(std::int32_t lFrom, double lFromX, double lFromY, std::int32_t lTo,
                                double lToX, double lToY, std::int32_t lSecur) {
  DocumentOperations::AddLink(lFrom, lFromX, lFromY, lTo, lToX, lToY, lSecur);
  const std::int32_t lIndex = UBound(Links);
  if (m_surface.lneLink.UBound() >= lIndex)
    return; // there was no memory for the record
  if (!reported("frmMain", "AddLink", [&] { m_surface.lneLink.Load(lIndex); }))
    setGaveUp(true);
  if (m_surface.lneLink.UBound() != lIndex)
    return;
  Line &line = m_surface.lneLink(lIndex);
  line.BorderColor = LinkColor;
  reported(
      // As in layEnds, one statement a coordinate.
      "frmMain", "AddLink", [&] { line.X1 = endX(m_surface.spriteRect(lFrom), lFromX); },
      [&] { line.X2 = endX(m_surface.spriteRect(lTo), lToX); },
      [&] { line.Y1 = endY(m_surface.spriteRect(lFrom), lFromY); },
      [&] { line.Y2 = endY(m_surface.spriteRect(lTo), lToY); },
      [&] {
        line.Visible = true;
        m_surface.touch(line);
      });
}

/// One statement a coordinate, so that the others are still set after a fault. False when the user
/// leaves.
bool DiagramOperations::layEnds(const Report &report, Line &line, const LinkRec &record, bool first,
                                bool second) const {
  const auto from = [&] { return m_surface.spriteRect(record.lFrom); };
  const auto to = [&] { return m_surface.spriteRect(record.lTo); };
  return (!first || report([&] { line.X1 = endX(from(), record.dFromX); })) &&
         (!second || report([&] { line.X2 = endX(to(), record.dToX); })) &&
         (!first || report([&] { line.Y1 = endY(from(), record.dFromY); })) &&
         (!second || report([&] { line.Y2 = endY(to(), record.dToY); }));
}

void DiagramOperations::RefreshLinks(std::int32_t lIndex) {
  const Report report("frmMain", "RefreshLinks");
  const std::vector<std::int32_t> links = RetrieveLinks(lIndex);
  for (std::size_t i = 1; i < links.size(); ++i) {
    // Links are in ascending order: those behind one without a line have none either.
    if (links[i] > m_surface.lneLink.UBound())
      return;
    Line &line = m_surface.lneLink(links[i]);
    const LinkRec &record = link(links[i]);
    m_surface.touch(line);
    const bool first = record.lFrom == lIndex;
    if (!layEnds(report, line, record, first, !first))
      return;
    line.Visible = true;
    m_surface.touch(line);
  }
}

void DiagramOperations::RefreshLine(std::int32_t lIndex) {
  const Report report("frmMain", "RefreshLinks");
  Line &line = m_surface.lneLink(lIndex);
  m_surface.touch(line);
  if (layEnds(report, line, link(lIndex), true, true))
    line.Visible = true;
  m_surface.touch(line);
}

/// Repaints where lines differ from those that stood `before`. All that are left are in the same
/// order.
void DiagramOperations::touchChanged(const std::vector<Line> &before) {
  std::int32_t next = 0;
  for (const Line &was : before) {
    const Line *const is = next > m_surface.lneLink.UBound() ? nullptr : &m_surface.lneLink(next);
    if (is == nullptr || !sameEnds(was, *is)) {
      m_surface.touch(was);
      continue;
    }
    ++next;
    if (was == *is)
      continue;
    m_surface.touch(was);
    m_surface.touch(*is);
  }
  for (; next <= m_surface.lneLink.UBound(); ++next)
    m_surface.touch(m_surface.lneLink(next));
}

void DiagramOperations::layAllLines(const Report &report) {
  const std::vector<Line> before(m_surface.lneLink.begin(), m_surface.lneLink.end());
  layLines(report);
  touchChanged(before);
}

/// Every line is laid once from its record; those without a record go, also when the user leaves.
void DiagramOperations::layLines(const Report &report) {
  ControlArray<Line> &lneLink = m_surface.lneLink;
  while (lneLink.UBound() > UBound(Links))
    lneLink.Unload(lneLink.UBound());
  for (std::int32_t i = 0; i <= lneLink.UBound(); ++i) {
    if (!layEnds(report, lneLink(i), link(i), true, true))
      return;
    // Element 0 takes part and stays hidden.
    lneLink(i).Visible = i > 0;
  }
}

void DiagramOperations::RemoveLink(std::int32_t lIndex, bool bSuppressReorder) {
  DocumentOperations::RemoveLink(lIndex, bSuppressReorder);
  if (!bSuppressReorder)
    layAllLines(Report("frmMain", "RemoveLink"));
}

/// Sprites from `first` on move to other records, but what is drawn on them stays.
void DiagramOperations::touchFramed(std::int32_t first) {
  for (std::int32_t i = std::max(first, 0); i <= m_surface.picSystem.UBound(); ++i)
    if (i == first || m_surface.picSystem(i).layer.frameWidth > 0)
      m_surface.touch(i);
}

void DiagramOperations::RemoveSystem(std::int32_t lIndex) {
  touchFramed(lIndex);
  DocumentOperations::RemoveSystem(lIndex);
  ControlArray<Sprite> &picSystem = m_surface.picSystem;
  if (picSystem.UBound() <= UBound(Systems))
    m_surface.touch(picSystem.UBound()); // shows a device that had no sprite
  // Sprites hold no place and no type, so the top one may go in place of any.
  while (picSystem.UBound() > UBound(Systems))
    picSystem.Unload(picSystem.UBound());
  touchFramed(lIndex);
  m_view.systemRemoved(lIndex);
  layAllLines(Report("frmMain", "RemoveSystem"));
}

} // namespace vnb
