// SPDX-License-Identifier: MIT
/// What the pointer does to the diagram: select, move, link, add from the toolbox.
#pragma once

#include "diagram/diagramparts.h"
#include "diagram/surfaceevents.h"
#include "editor/toolbar.h"

#include <functional>

namespace vnb {

/// The handlers of the sprites, of the surface and of the bare form. A drop on anything else is
/// ignored.
class Gestures : public SurfaceEvents {
public:
  /// `form` is the main window.
  Gestures(QWidget &form, const DiagramParts &diagram, Toolbar &toolbar);

  void picSystem_MouseDown(std::int32_t Index, Qt::MouseButton Button, QPoint at,
                           QPoint global) override;
  void picSystem_MouseMove(std::int32_t Index, QPoint at) override;
  void picSystem_MouseUp(std::int32_t Index, Qt::MouseButton Button, QPoint global) override;
  void picSystem_DblClick(std::int32_t Index) override;
  void picLayout_MouseMove(QPoint at) override;
  void picLayout_Click() override;
  /// As on the surface; the form's coordinates are taken as they come.
  void Form_MouseMove(QPoint at) { picLayout_MouseMove(at); }
  void Form_Click() { picLayout_Click(); }

  /// Whether a drop on this control does anything.
  bool takesDrops(const QWidget &target) const;

  /// A new device dropped from the toolbox; `grab` is the pointer's place within its picture.
  void dropDevice(QWidget &target, QPoint at, std::int32_t lType, QPoint grab);

  /// Ends link drawing without a link.
  void endLinking();

  /// Opens the context menu on a sprite, at a place on the screen.
  std::function<void(std::int32_t Index, QPoint global)> openMenu;

private:
  const char *dropProcedure(const QWidget &target, QPoint at) const;
  void dropSystem(QWidget &target, QPoint at, std::int32_t Index);
  void startLink(std::int32_t Index);
  void finishLink(std::int32_t Index);
  void moveBand(QPoint end, bool show);

  QWidget &m_form;
  DiagramParts m_diagram;
  Toolbar &m_toolbar;

  bool bLinking = false;
  std::int32_t lLinkFrom = 0; // the device that the link being drawn starts at
  std::int32_t lLinkX = 0;    // the band's fixed end, in pixels of the surface
  std::int32_t lLinkY = 0;
  std::int32_t lDragX = 0; // the grab point in the sprite being dragged
  std::int32_t lDragY = 0;
};

} // namespace vnb
