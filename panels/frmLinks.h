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
  /// Also picks the first link if the panel is on screen: a pick colours the line.
  void selectionFill() override;

  /// Shows a position, as fractions of the sprite's size, in the picker and the boxes; "Other:" is
  /// on where no button stands for it. Stores nothing.
  void PositionSelect(double lX, double lY);

private:
  void addList();
  void addPicker();
  void addBoxes();

  void fillList();
  /// The picked link, null for none. It holds until a link is added or removed.
  LinkRec *currentLink() const;
  bool isFirstEnd(const LinkRec &link) const;
  bool readBoxes(double &x, double &y) const;

  /// Colours the picked link's line, and shows the link's place and level.
  void lstLinks_Click();
  /// Moves the link's end to that place of the picker, or to the one in the boxes.
  void optPosition_Click(int Index);
  void optSecur_Click(std::int32_t Index);
  /// Asks first. The rows behind go on to stand for their links.
  void cmdRemove_Click();

  QLabel *m_lblLinks = nullptr;
  NumberList *m_lstLinks = nullptr;
  /// 0 to 16 are the places, row by row; 17 is "Other:".
  OptionGroup m_optPosition;
  TextBox *m_txtX = nullptr;
  TextBox *m_txtY = nullptr;
  SecurityOptions *m_optSecur = nullptr;
  bool bSelecting = false; // PositionSelect is only displaying
};

} // namespace vnb
