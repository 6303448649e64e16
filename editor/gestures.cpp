// SPDX-License-Identifier: MIT
#include "editor/gestures.h"

#include "document/displaynames.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "widgets/drag.h"

namespace vnb {

Gestures::Gestures(QWidget &form, const DiagramParts &diagram, Toolbar &toolbar)
    : m_form(form), m_diagram(diagram), m_toolbar(toolbar) {
  m_diagram.surface.events = this;
}

void Gestures::picSystem_MouseDown(std::int32_t Index, Qt::MouseButton Button, QPoint at,
                                   QPoint global) {
  reported(
      "frmMain", "picSystem_MouseDown",
      // Before the selection: a box that comes up there takes the release, and so ends the drag.
      [&] {
        if (Button != Qt::LeftButton)
          return;
        lDragX = at.x();
        lDragY = at.y();
        // The drag takes the release, for which the surface would wait in vain.
        m_diagram.surface.releasePointer();
        Drag::instance().begin(
            {.widget = &m_diagram.surface,
             .size = m_diagram.surface.spriteRect(Index).size(),
             .grab = at,
             .drop = [this, Index](QWidget &target,
                                   QPoint place) { dropSystem(target, place, Index); }},
            global);
      },
      [&] { m_diagram.selection.SelectItem(Index, SelectedColor, false); });
}

bool Gestures::takesDrops(const QWidget &target) const {
  return &target == &m_diagram.surface || &target == &m_form;
}

const char *Gestures::dropProcedure(const QWidget &target, QPoint at) const {
  if (&target == &m_form)
    return "Form_DragDrop";
  return m_diagram.surface.spriteAt(at) >= 0 ? "picSystem_DragDrop" : "picLayout_DragDrop";
}

/// A drop on a sprite comes to the same as one on the surface beneath it: its place plus the
/// sprite's. The form's coordinates are taken for the surface's as they come.
void Gestures::dropSystem(QWidget &target, QPoint at, std::int32_t Index) {
  // Ctrl+N in the middle of a drag leaves no device but the router.
  if (!takesDrops(target) || Index > m_diagram.surface.picSystem.UBound())
    return;
  reported("frmMain", dropProcedure(target, at),
           [&] { m_diagram.operations.MoveSystem(Index, at.x() - lDragX, at.y() - lDragY); });
}

void Gestures::dropDevice(QWidget &target, QPoint at, std::int32_t lType, QPoint grab) {
  if (!takesDrops(target))
    return;
  reported("frmMain", dropProcedure(target, at), [&] {
    const QPoint corner = at - grab;
    m_diagram.operations.AddSystem(lType, corner.x(), corner.y(), 1, -1, -1, -1, {});
  });
}

void Gestures::picSystem_DblClick(std::int32_t Index) {
  reported("frmMain", "picSystem_DblClick", [&] {
    if (!bLinking)
      startLink(Index);
    else if (Index == lLinkFrom)
      endLinking();
    else
      finishLink(Index);
  });
}

void Gestures::startLink(std::int32_t Index) {
  const SpriteRect sprite = m_diagram.surface.spriteRect(Index);
  bLinking = true;
  // Whole pixels: the band inverts what is below it, and leaves traces between two.
  lLinkX = roundToLong(sprite.Left + sprite.Width / 2.0);
  lLinkY = roundToLong(sprite.Top + sprite.Height / 2.0);
  lLinkFrom = Index;
}

void Gestures::finishLink(std::int32_t Index) {
  m_diagram.operations.AddLink(lLinkFrom, 0.5, 0.5, Index, 0.5, 0.5, 1);
  endLinking();
}

void Gestures::endLinking() {
  m_diagram.surface.touchBand();
  m_diagram.surface.lneXOR.Visible = false;
  bLinking = false;
}

void Gestures::moveBand(QPoint end, bool show) {
  Line &band = m_diagram.surface.lneXOR;
  m_diagram.surface.touchBand();
  band.X1 = static_cast<float>(lLinkX);
  band.Y1 = static_cast<float>(lLinkY);
  band.X2 = static_cast<float>(end.x());
  band.Y2 = static_cast<float>(end.y());
  band.Visible = band.Visible || show;
  m_diagram.surface.touchBand();
}

void Gestures::picSystem_MouseMove(std::int32_t Index, QPoint at) {
  reported("frmMain", "picSystem_MouseMove", [&] {
    m_toolbar.setStatus(deviceName(Index));
    if (bLinking)
      // Told in pixels of the sprite, and laid in those of the surface.
      moveBand(at + m_diagram.surface.spriteRect(Index).topLeft(), false);
  });
}

void Gestures::picLayout_MouseMove(QPoint at) {
  reported("frmMain", "picLayout_MouseMove", [&] {
    m_toolbar.setStatus({});
    if (bLinking)
      moveBand(at, true);
  });
}

void Gestures::picSystem_MouseUp(std::int32_t Index, Qt::MouseButton Button, QPoint global) {
  if (Button == Qt::RightButton)
    reported("frmMain", "picSystem_MouseUp", [&] { openMenu(Index, global); });
}

void Gestures::picLayout_Click() {
  reported("frmMain", "picLayout_Click", [this] { m_diagram.selection.Deselect(); });
}

} // namespace vnb
