// SPDX-License-Identifier: MIT
#include "forms/pushoption.h"

#include <QPainter>

namespace vnb {

PushOption::PushOption(QWidget *parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
}

void PushOption::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  const QColor text = palette().color(QPalette::ButtonText);
  painter.fillRect(rect(), palette().color(QPalette::Button));
  const auto frame = [&](int inset, const QPen &pen) {
    painter.setPen(pen);
    painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  };
  frame(0, palette().color(QPalette::Mid));
  if (isChecked() || isDown())
    for (int inset = 1; inset <= 2; ++inset)
      frame(inset, text);
  if (hasFocus())
    frame(isChecked() ? 3 : 1, QPen(text, 1, Qt::DotLine));
  painter.setPen(text);
  painter.drawText(rect(), Qt::AlignCenter, this->text());
}

void clearOptions(QButtonGroup &group) {
  group.setExclusive(false);
  for (QAbstractButton *button : group.buttons())
    button->setChecked(false);
  group.setExclusive(true);
}

} // namespace vnb
