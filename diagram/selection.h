// SPDX-License-Identifier: MIT
/// The selected device, and the highlights that show how others relate to it.
#pragma once

#include "diagram/surface.h"

#include <vector>

namespace vnb {

/// The panels that speak of the selected device. They stand above this room.
class SelectionPanels {
public:
  SelectionPanels() = default;
  SelectionPanels(const SelectionPanels &) = delete;
  SelectionPanels &operator=(const SelectionPanels &) = delete;
  virtual ~SelectionPanels() = default;

  /// Fills for the newly selected device, in the order of their calls.
  virtual void fillDevice() = 0;
  virtual void fillLinks() = 0;
  virtual void fillSubnets() = 0;
  /// All three say that no device is selected.
  virtual void showNoDevice() = 0;
};

class Selection {
public:
  Selection(Surface &surface, SelectionPanels &panels) : m_surface(surface), m_panels(panels) {}

  /// Frames sprite `lIndex` in `lColour`. Unless `bDoNotSelect`, it also becomes the selected
  /// device and the panels are filled for it. Failures go to the standard error report.
  void SelectItem(std::int32_t lIndex, Colour lColour, bool bDoNotSelect);

  void Deselect();

  /// Every line takes LinkColor.
  void ClearLinkHilites();
  /// Take the highlights off all sprites, off those of lock boxes, off those of valid subnets. The
  /// selected device keeps its frame.
  void ClearAllHilites();
  void ClearLockHilites();
  void ClearSubnetHilites();

  /// Calls `visit` with the number of each sprite that is highlighted for this reason.
  template <class Visit>
  void forEachTagged(SpriteTag tag, Visit visit) {
    for (std::int32_t i = 0; i <= m_surface.picSystem.UBound(); ++i)
      if (m_surface.picSystem(i).Tag == tag)
        visit(i);
  }

  /// Takes off what is drawn on a sprite.
  void wipe(std::int32_t lIndex);
  Surface &surface() { return m_surface; }

private:
  void wipeLoose(std::int32_t lIndex);
  void frame(std::int32_t lIndex, Colour lColour, bool withNumber);
  template <class Test>
  void clearHilites(Test test);

  Surface &m_surface;
  SelectionPanels &m_panels;
  /// Sprites framed without a reason at that moment: the only ones that the next highlight may have
  /// to wipe. A pass over all sprites for each highlight is quadratic.
  std::vector<std::int32_t> m_loose;
};

} // namespace vnb
