// SPDX-License-Identifier: MIT
/// What the pointer does to the diagram: select, move, link, add from the toolbox.
#pragma once

#include "diagram/diagramparts.h"
#include "diagram/surfaceevents.h"
#include "editor/toolbar.h"

#include <functional>

namespace vnb {

/// The handlers of the sprites, of the surface and of the bare form. A drop on anything else is
/// ignored. All faults are reported as the main window's.
class Gestures : public SurfaceEvents {
public:
  /// `form` is the main window.
  Gestures(QWidget &form, const DiagramParts &diagram, Toolbar &toolbar);

  /// Selects the device; the left button also begins to drag it.
  void picSystem_MouseDown(std::int32_t Index, Qt::MouseButton Button, QPoint at,
                           QPoint global) override;
  /// Names the device in the status line. A band that shows follows.
  void picSystem_MouseMove(std::int32_t Index, QPoint at) override;
  /// Opens the menu, for the right button.
  void picSystem_MouseUp(std::int32_t Index, Qt::MouseButton Button, QPoint global) override;
  /// Starts a link here, or finishes one; on the device where it started, cancels it.
  void picSystem_DblClick(std::int32_t Index) override;
  /// Clears the status line. While a link is drawn the band appears, and follows.
  void picLayout_MouseMove(QPoint at) override;
  /// Deselects.
  void picLayout_Click() override;
  /// As on the surface; the form's coordinates are taken as they come.
  void Form_MouseMove(QPoint at) { picLayout_MouseMove(at); }
  void Form_Click() { picLayout_Click(); }

  /// Whether a drop on this control does anything.
  bool takesDrops(const QWidget &target) const;

  /// A new device dropped from the toolbox at a place in `target`; `grab` is the pointer's place
  /// within its picture. All in pixels.
  void dropDevice(QWidget &target, QPoint at, std::int32_t lType, QPoint grab);

  /// Ends link drawing without a link.
  void endLinking();

  /// Opens the context menu on a sprite, at a place on the screen.
  std::function<void(std::int32_t Index, QPoint global)> openMenu;

private:
  const char *dropProcedure(const QWidget &target, QPoint at) const;
  void dropSystem(QWidget &target, QPoint at, std::int32_t Index);
  /// Fixes one end of the band at the device's centre. Nothing shows yet.
  void startLink(std::int32_t Index);
  /// Adds the link, of level 1 and from centre to centre.
  void finishLink(std::int32_t Index);
  /// Lays the band's free end; `show` makes one appear that doesn't show yet.
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
