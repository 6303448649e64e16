// SPDX-License-Identifier: MIT
#include "widgets/pushoption.h"

#include "widgets/style.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace vnb {

PushOption::PushOption(QWidget *parent) : QAbstractButton(parent) {
  setCheckable(true);
  setAutoExclusive(true); // so that assistive technology takes it for a radio button
  setFocusPolicy(Qt::StrongFocus);
}

void PushOption::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  QStyleOptionButton face;
  face.initFrom(this);
  face.state.setFlag(QStyle::State_Sunken, isDown());
  style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &face, &painter, this);
  const QColor text = palette().color(isDown() ? QPalette::Button : QPalette::ButtonText);
  const int inset = hasFocus() ? 3 : 1; // within the border and the mark of the focus
  if (isChecked())
    paintFrame(painter, rect().adjusted(inset, inset, -inset, -inset), text, 2);
  painter.setPen(text);
  painter.drawText(rect(), Qt::AlignCenter, this->text());
}

} // namespace vnb
