// SPDX-License-Identifier: MIT
#include "shell/swatch.h"

#include <QPainter>

namespace vnb {

void Swatch::setBackColor(Colour colour) {
  m_colour = colour;
  update();
}

void Swatch::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), toQColor(m_colour));
  // The focused swatch has a thicker border.
  const int width = hasFocus() ? 2 : 1;
  painter.setPen(QPen(toQColor(TextColor), width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.drawRect(rect().adjusted(width / 2, width / 2, -1, -1));
}

} // namespace vnb
