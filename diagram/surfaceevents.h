// SPDX-License-Identifier: MIT
/// What the pointer does on the surface, told as events of sprites and of the bare surface.
#pragma once

#include <QPoint>
#include <qnamespace.h>

#include <cstdint>

namespace vnb {

/// Positions are pixels of the sprite in events of a sprite, of the surface otherwise. While a
/// button is held, moves and the release go to what was pressed.
class SurfaceEvents {
public:
  SurfaceEvents() = default;
  SurfaceEvents(const SurfaceEvents &) = delete;
  SurfaceEvents &operator=(const SurfaceEvents &) = delete;
  virtual ~SurfaceEvents() = default;

  /// Any button. `global` is the place on the screen.
  virtual void picSystem_MouseDown(std::int32_t Index, Qt::MouseButton Button, QPoint at,
                                   QPoint global) = 0;
  /// Also while no button is held.
  virtual void picSystem_MouseMove(std::int32_t Index, QPoint at) = 0;
  virtual void picSystem_MouseUp(std::int32_t Index, Qt::MouseButton Button, QPoint global) = 0;
  /// Instead of the second press of a double click on one sprite.
  virtual void picSystem_DblClick(std::int32_t Index) = 0;
  virtual void picLayout_MouseMove(QPoint at) = 0;
  /// Pressed and released on the surface, with any button.
  virtual void picLayout_Click() = 0;
};

} // namespace vnb
