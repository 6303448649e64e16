// SPDX-License-Identifier: MIT
/// The link panel: the links of the selected device, each edited at its end there.
#pragma once

#include "panels/devicepanel.h"
#include "panels/securityoptions.h"
#include "widgets/optiongroup.h"

class QLabel;

namespace vnb {

class NumberList;
class TextBox;
struct LinkRec;

/// A link is edited from the device at either end, and each end has a place of its own there.
class frmLinks : public DevicePanel {
public:
  explicit frmLinks(const DiagramParts &diagram);
  void Form_Load() override;
  void UpdateColors() override;
  /// Also picks the first link if the panel is on screen.
  void selectionFill() override;

  /// Shows a position, as fractions of the sprite's size, in the picker and the boxes.
  void PositionSelect(double lX, double lY);

private:
  void addList();
  void addPicker();
  void addBoxes();

  void fillList();
  LinkRec *currentLink() const;
  bool isFirstEnd(const LinkRec &link) const;
  bool readBoxes(double &x, double &y) const;

  void lstLinks_Click();
  void optPosition_Click(int Index);
  void optSecur_Click(std::int32_t Index);
  void cmdRemove_Click();

  QLabel *m_lblLinks = nullptr;
  NumberList *m_lstLinks = nullptr;
  OptionGroup m_optPosition;
  TextBox *m_txtX = nullptr;
  TextBox *m_txtY = nullptr;
  SecurityOptions *m_optSecur = nullptr;
  bool bSelecting = false; // PositionSelect is only displaying
};

} // namespace vnb
