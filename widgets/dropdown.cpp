// SPDX-License-Identifier: MIT
#include "widgets/dropdown.h"

#include <QListView>
#include <QWheelEvent>

namespace vnb {

DropDown::DropDown(QWidget *parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus); // not the wheel
  if (auto *list = qobject_cast<QListView *>(view()))
    list->setUniformItemSizes(true); // thousands of rows needn't be measured one by one
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
