// SPDX-License-Identifier: MIT
/// Drop-down lists.
#pragma once

#include <QComboBox>

namespace vnb {

/// A drop-down list without free typing. The wheel turns it only while it has the focus, so that no
/// value changes under a pointer that passes by.
class DropDown : public QComboBox {
public:
  explicit DropDown(QWidget *parent);

protected:
  void wheelEvent(QWheelEvent *event) override;
};

} // namespace vnb
