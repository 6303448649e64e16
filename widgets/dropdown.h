// SPDX-License-Identifier: MIT
/// Drop-down lists.
#pragma once

#include <QComboBox>

#include <functional>

namespace vnb {

/// A drop-down list without free typing. The wheel turns it only while it has the focus, so that no
/// value changes under a pointer that passes by.
class DropDown : public QComboBox {
public:
  explicit DropDown(QWidget *parent);

  /// Puts it on a row, -1 for none.
  void setListIndex(int row);

  /// The user has picked a row, be it the one that shows; or setListIndex has brought another.
  std::function<void()> Click;

protected:
  void wheelEvent(QWheelEvent *event) override;
};

} // namespace vnb
