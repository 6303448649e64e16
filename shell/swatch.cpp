// SPDX-License-Identifier: MIT
#include "shell/swatch.h"

#include "widgets/style.h"

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
  paintFrame(painter, rect(), toQColor(TextColor), hasFocus() ? 2 : 1);
}

} // namespace vnb
