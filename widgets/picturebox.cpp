// SPDX-License-Identifier: MIT
#include "widgets/picturebox.h"

#include <QMouseEvent>
#include <QPainter>

namespace vnb {

void PictureBox::setPicture(const QPixmap &picture) {
  m_picture = picture;
  resize(picture.deviceIndependentSize().toSize());
  update();
}

void PictureBox::paintEvent(QPaintEvent * /*event*/) {
  QPainter(this).drawPixmap(0, 0, m_picture);
}

void PictureBox::mousePressEvent(QMouseEvent *event) {
  if (MouseDown)
    MouseDown(event->button(), event->position().toPoint(), event->globalPosition().toPoint());
}

} // namespace vnb
