// SPDX-License-Identifier: MIT
/// The selected device, and the highlights that show how others relate to it.
#pragma once

#include "appearance/editorview.h"
#include "diagram/surface.h"

#include <vector>

namespace vnb {

/// Which device is selected and what is framed, and why. Nothing else marks sprites and lines.
class Selection {
public:
  Selection(Surface &surface, EditorView &view) : m_surface(surface), m_view(view) {}

  /// Frames sprite `lIndex` in `lColour`. Unless `bDoNotSelect`, it also becomes the selected
  /// device and the panels are filled for it. Failures go to the standard error report.
  void SelectItem(std::int32_t lIndex, Colour lColour, bool bDoNotSelect);

  /// Takes off all highlights, and leaves the panels without a device. Nothing happens where none
  /// is selected.
  void Deselect();

  /// Lock box `box`, 0 to 4, names system `lIndex`, or -1 for none: that one is framed for it, and
  /// none besides. A system that isn't there is reported, and raised as 340 as well.
  void showLock(std::int32_t box, std::int32_t lIndex);
  /// System `lIndex` is a valid subnet of the selected device.
  void showSubnet(std::int32_t lIndex);
  /// It is the one that is picked, and no other is.
  void pickSubnet(std::int32_t lIndex);
  /// Line `lIndex` alone is the picked one. Raises 340 if there is none.
  void pickLink(std::int32_t lIndex);
  /// Its line, 0 if none is picked.
  std::int32_t pickedLink() const;

  /// Every line takes LinkColor.
  void ClearLinkHilites();
  /// Take the highlights off all sprites, off those of lock boxes, off those of valid subnets. The
  /// selected device keeps its frame.
  void ClearAllHilites();
  // No panel needs these two as yet: a new selection clears all.
  void ClearLockHilites();
  void ClearSubnetHilites();

private:
  template <class Visit>
  void forEachTagged(SpriteTag tag, Visit visit);
  void wipe(std::int32_t lIndex);
  void wipeLoose(std::int32_t lIndex);
  void frame(std::int32_t lIndex, Colour lColour, bool withNumber);
  template <class Test>
  void clearHilites(Test test);

  Surface &m_surface;
  EditorView &m_view;
  /// Sprites framed without a reason at that moment: the only ones that the next highlight may have
  /// to wipe. A pass over all sprites for each highlight is quadratic.
  std::vector<std::int32_t> m_loose;
};

} // namespace vnb
