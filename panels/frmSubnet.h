// SPDX-License-Identifier: MIT
/// The valid subnets panel: which systems are valid subnets of the selected device.
#pragma once

#include "appearance/images.h"
#include "panels/devicepanel.h"

class QLabel;

namespace vnb {

class NumberList;

/// Two lists, and arrows that move a system from one to the other. A move changes the document at
/// once; frames change with the next pick or selection.
class frmSubnet : public DevicePanel {
public:
  explicit frmSubnet(const DiagramParts &diagram);
  void Form_Load() override;
  void UpdateColors() override;
  /// Also frames the systems on the device's list.
  void selectionFill() override;

  void buttonImagesChanged();

private:
  PictureButton *addButton(const char *name, const char *tag, const char *toolTip, int top,
                           void (frmSubnet::*click)());
  void lstSubnets_Click();
  void picAdd_Click();
  void picRemove_Click();

  QLabel *m_lblSubnets;
  NumberList *m_lstSubnets;
  NumberList *m_lstSystems;
  PictureButton *m_picAdd;
  PictureButton *m_picRemove;
};

} // namespace vnb
