// SPDX-License-Identifier: MIT
#include "widgets/pushoption.h"

#include "widgets/style.h"

#include <QPainter>

namespace vnb {

PushOption::PushOption(QWidget *parent) : QAbstractButton(parent) {
  setCheckable(true);
  setAutoExclusive(true); // so that assistive technology takes it for a radio button
  setFocusPolicy(Qt::StrongFocus);
}

void PushOption::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  const QColor text = palette().color(QPalette::ButtonText);
  painter.fillRect(rect(), palette().color(QPalette::Button));
  paintFrame(painter, rect(), palette().color(QPalette::Mid));
  if (isChecked() || isDown())
    paintFrame(painter, rect().adjusted(1, 1, -1, -1), text, 2);
  if (hasFocus()) {
    const int inset = isChecked() ? 3 : 1;
    painter.setPen(QPen(text, 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  }
  painter.setPen(text);
  painter.drawText(rect(), Qt::AlignCenter, this->text());
}

} // namespace vnb
