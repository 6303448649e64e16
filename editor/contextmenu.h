// SPDX-License-Identifier: MIT
/// The context menu of a device: its links, its type, its removal.
#pragma once

#include "diagram/diagramparts.h"

#include <QMenu>

#include <memory>

namespace vnb {

/// Made anew for each click of the right button, as the device and its links are then.
class ContextMenu {
public:
  explicit ContextMenu(const DiagramParts &diagram) : m_diagram(diagram) {}

  /// `mnuPopup` for sprite `Index`, which is the selected device.
  std::unique_ptr<QMenu> build(std::int32_t Index, QWidget &parent);

  /// Asks whether to remove the selected device, and does it. Also run by the Delete key.
  void mnuRemove_Click();

private:
  void addLinks(QMenu &mnuPopup, std::int32_t Index);
  void addTypes(QMenu &mnuPopup, std::int32_t Index);
  void mnuLink_Click(std::int32_t Index, std::int32_t lLink);
  void selectAgain();

  DiagramParts m_diagram;
};

} // namespace vnb
