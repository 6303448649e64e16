// SPDX-License-Identifier: MIT
#include "diagram/selection.h"

#include "document/modDeclares.h"
#include "runtime/report.h"

#include <algorithm>

namespace vnb {

/// Calls `visit` with the number of each sprite that is highlighted for this reason.
template <class Visit>
void Selection::forEachTagged(SpriteTag tag, Visit visit) {
  for (std::int32_t i = 0; i <= m_surface.picSystem.UBound(); ++i)
    if (m_surface.picSystem(i).Tag == tag)
      visit(i);
}

/// Takes off what is drawn on a sprite.
void Selection::wipe(std::int32_t lIndex) {
  m_surface.touch(lIndex);
  m_surface.picSystem(lIndex).layer = {};
}

/// Takes off the frames that have lost their reason, but those of the selected device and of
/// `lIndex`, which is framed next.
void Selection::wipeLoose(std::int32_t lIndex) {
  std::erase_if(m_loose, [&](std::int32_t i) {
    if (i == lIndex || i == lSelectedItem)
      return false;
    if (i <= m_surface.picSystem.UBound() && m_surface.picSystem(i).Tag == SpriteTag::None)
      wipe(i);
    return true;
  });
}

void Selection::frame(std::int32_t lIndex, Colour lColour, bool withNumber) {
  Sprite &sprite = m_surface.picSystem(lIndex);
  const QSize size = m_surface.spriteRect(lIndex).size();
  const bool lock = at(Systems, lIndex).lType == SystemType::Lock;
  // A lock that is only named by something is dotted; in SelectedColor it looks like the others.
  const bool thin = lock && lColour != SelectedColor;
  sprite.layer = {.colour = lColour,
                  .width = static_cast<std::int16_t>(size.width()),
                  .height = static_cast<std::int16_t>(size.height()),
                  .frameWidth = static_cast<std::uint8_t>(thin ? 1 : 2),
                  .dotted = thin,
                  .number = withNumber ? lIndex : -1};
  m_surface.touch(lIndex);
  if (sprite.Tag == SpriteTag::None && std::ranges::find(m_loose, lIndex) == m_loose.end())
    m_loose.push_back(lIndex);
}

void Selection::SelectItem(std::int32_t lIndex, Colour lColour, bool bDoNotSelect) {
  const Report report("frmMain", "SelectItem");
  const bool framed = report([&] {
                        // A selection wipes them with all others, further down.
                        if (bDoNotSelect)
                          wipeLoose(lIndex);
                      }) &&
                      report([&] { frame(lIndex, lColour, !bDoNotSelect); });
  if (!framed || bDoNotSelect)
    return;
  // The number first: the device that has it keeps its frame.
  report([&] { lSelectedItem = lIndex; }) && report([&] { ClearAllHilites(); }) &&
      report([&] { ClearLinkHilites(); }) && report([&] { m_view.deviceSelected(); });
}

void Selection::Deselect() {
  if (lSelectedItem < 0)
    return;
  for (std::int32_t i = 0; i <= m_surface.picSystem.UBound(); ++i) {
    if (m_surface.picSystem(i).layer.frameWidth > 0)
      wipe(i);
    m_surface.picSystem(i).Tag = SpriteTag::None;
  }
  m_loose.clear();
  ClearLinkHilites();
  lSelectedItem = -1;
  m_view.showNoDevice();
}

void Selection::showLock(std::int32_t box, std::int32_t lIndex) {
  forEachTagged(yellowTag(box), [this](std::int32_t i) {
    m_surface.picSystem(i).Tag = SpriteTag::None;
    wipe(i);
  });
  if (lIndex == -1)
    return;
  SelectItem(lIndex, LockColor, true);
  // With a reason it outlasts the next highlight.
  m_surface.picSystem(lIndex).Tag = yellowTag(box);
}

void Selection::showSubnet(std::int32_t lIndex) {
  m_surface.picSystem(lIndex).Tag = SpriteTag::GreenDk;
  SelectItem(lIndex, SubnetColor, true);
}

void Selection::pickSubnet(std::int32_t lIndex) {
  forEachTagged(SpriteTag::Green, [this](std::int32_t i) { showSubnet(i); });
  SelectItem(lIndex, SubnetSelColor, true);
  m_surface.picSystem(lIndex).Tag = SpriteTag::Green;
}

void Selection::pickLink(std::int32_t lIndex) {
  ClearLinkHilites();
  Line &line = m_surface.lneLink(lIndex);
  line.BorderColor = LinkSelColor;
  m_surface.touch(line);
}

std::int32_t Selection::pickedLink() const {
  std::int32_t i = m_surface.lneLink.UBound();
  while (i > 0 && m_surface.lneLink(i).BorderColor == LinkColor)
    --i;
  return i;
}

void Selection::ClearLinkHilites() {
  for (std::int32_t i = 1; i <= m_surface.lneLink.UBound(); ++i) {
    Line &line = m_surface.lneLink(i);
    if (line.BorderColor == LinkColor)
      continue;
    line.BorderColor = LinkColor;
    m_surface.touch(line);
  }
}

template <class Test>
void Selection::clearHilites(Test test) {
  for (std::int32_t i = 0; i <= m_surface.picSystem.UBound(); ++i) {
    Sprite &sprite = m_surface.picSystem(i);
    if (!test(sprite.Tag))
      continue;
    sprite.Tag = SpriteTag::None;
    if (i != lSelectedItem && sprite.layer.frameWidth > 0)
      wipe(i);
  }
}

void Selection::ClearAllHilites() {
  clearHilites([](SpriteTag) { return true; });
  std::erase_if(m_loose, [](std::int32_t i) { return i != lSelectedItem; });
}

void Selection::ClearLockHilites() {
  clearHilites(isYellow);
}
void Selection::ClearSubnetHilites() {
  clearHilites(isGreen);
}

} // namespace vnb
