// SPDX-License-Identifier: MIT
/// The toolbox: the palette from which new devices come.
#pragma once

#include "widgets/form.h"

namespace vnb {

class DocumentOperations;
class DropDown;
class Gestures;
class PictureBox;

/// Adds the device that its list shows: at the corner by its button, anywhere by a drag of the
/// picture.
class frmToolbox : public FormWindow {
public:
  /// Devices are added by `operations`, and dropped by `gestures`.
  frmToolbox(DocumentOperations &operations, Gestures &gestures);
  void Form_Load() override;
  void UpdateColors() override;

protected:
  void paintEvent(QPaintEvent *event) override;
  void showEvent(QShowEvent *event) override;

private:
  void cboItem_Click();
  void cmdAdd_Click();
  void picPreview_MouseDown(Qt::MouseButton Button, QPoint at, QPoint global);
  /// Code of the type that the list shows.
  std::int32_t chosenType() const;
  bool mayAdd() const;

  DocumentOperations &m_operations;
  Gestures &m_gestures;
  DropDown *m_cboItem;
  PictureBox *m_picPreview;
};

} // namespace vnb
