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
  paintFrame(painter, rect(), shade(toQColor(BackgroundColor), toQColor(TextColor)));
  // Apart from the border, which may have the same colour.
  if (hasFocus())
    paintFocus(painter, rect().adjusted(2, 2, -2, -2), toQColor(m_colour), toQColor(TextColor));
  // The colour is what is chosen, so the pointer doesn't change it.
  const QRect inside = rect().adjusted(4, 4, -4, -4);
  const QColor onColour = shade(toQColor(m_colour), toQColor(TextColor), 3);
  if (isDown()) {
    paintFrame(painter, inside, onColour, 2);
  } else if (underMouse()) {
    // Its sides alone: a whole frame would look like the focus.
    const QRect side(inside.topLeft(), QSize(2, inside.height()));
    painter.fillRect(side, onColour);
    painter.fillRect(side.translated(inside.width() - side.width(), 0), onColour);
  }
}

} // namespace vnb
