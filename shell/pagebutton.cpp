// SPDX-License-Identifier: MIT
#include "shell/pagebutton.h"

#include "widgets/style.h"

#include <QPainter>

namespace vnb {

PageButton::PageButton(QWidget *parent, Colours colours)
    : QAbstractButton(parent), m_colours(colours) {
  setFocusPolicy(Qt::StrongFocus);
}

void PageButton::setSelected(bool selected) {
  m_selected = selected;
  update();
}

void PageButton::mouseDoubleClickEvent(QMouseEvent * /*event*/) {}

void PageButton::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  const QColor caption = QColor::fromRgb(m_colours.caption);
  painter.fillRect(rect(), isDown()       ? caption
                           : underMouse() ? shade(Qt::black, Qt::white, 1.5)
                                          : QColor(Qt::black));
  paintFrame(painter, rect().adjusted(1, 1, -1, -1),
             QColor::fromRgb(m_selected ? m_colours.selected : m_colours.resting));
  if (hasFocus())
    paintFocus(painter, rect().adjusted(3, 3, -3, -3), Qt::black, Qt::white);
  painter.setPen(isDown() ? QColor(Qt::black) : caption);
  painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace vnb
