// SPDX-License-Identifier: MIT
/// The toolbox: the palette from which new devices come.
#pragma once

#include "forms/form.h"

namespace vnb {

class DocumentOperations;
class DropDown;
class Gestures;
class PictureBox;

class frmToolbox : public FormWindow {
public:
  frmToolbox();
  void Form_Load();
  void UpdateColors();

  /// What adds devices to the LAN. To be set before the form is used.
  static DocumentOperations *Operations;
  static Gestures *Drops;

protected:
  void paintEvent(QPaintEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void cboItem_Click();
  void cmdAdd_Click();
  void picPreview_MouseDown(Qt::MouseButton Button, QPoint at, QPoint global);
  std::int32_t chosenType() const;
  bool mayAdd() const;

  DropDown *m_cboItem;
  PictureBox *m_picPreview;
};

} // namespace vnb
