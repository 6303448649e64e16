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
  painter.fillRect(rect(), Qt::black);
  paintFrame(painter, rect().adjusted(1, 1, -1, -1),
             QColor::fromRgb(m_selected ? m_colours.selected : m_colours.resting));
  if (hasFocus()) {
    painter.setPen(QPen(QColor::fromRgb(m_colours.caption), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(3, 3, -4, -4));
  }
  painter.setPen(QColor::fromRgb(m_colours.caption));
  painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace vnb
