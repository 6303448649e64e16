// SPDX-License-Identifier: MIT
#include "widgets/dropdown.h"

#include <QWheelEvent>

namespace vnb {

DropDown::DropDown(QWidget *parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus); // not the wheel
  connect(this, &QComboBox::activated, this, [this] {
    if (Click)
      Click();
  });
}

void DropDown::setListIndex(int row) {
  if (row == currentIndex())
    return;
  setCurrentIndex(row);
  if (Click)
    Click();
}

void DropDown::wheelEvent(QWheelEvent *event) {
  if (hasFocus())
    QComboBox::wheelEvent(event);
  else
    event->ignore();
}

} // namespace vnb
