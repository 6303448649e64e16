// SPDX-License-Identifier: MIT
#include "widgets/picturebutton.h"

#include "widgets/accessibleforms.h"
#include "widgets/pictures.h"
#include "widgets/style.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vnb {
namespace {

void fire(const std::function<void()> &handler) {
  if (handler)
    handler();
}

} // namespace

PictureButton::PictureButton(QWidget *parent, const QString &tag) : QWidget(parent), m_tag(tag) {
  installFormAccess();
  setMouseTracking(true);
  // A click leaves the keys where they are.
  setFocusPolicy(Qt::TabFocus);
}

void PictureButton::setPicture(const QPixmap &picture) {
  m_picture = picture;
  update();
}

/// The one that it was designed with is read only if it is to be seen: a theme gives another.
const QPixmap &PictureButton::picture() const {
  if (m_picture.isNull())
    m_picture = LoadResPicture(m_tag);
  return m_picture;
}

QSize PictureButton::sizeHint() const {
  return picture().deviceIndependentSize().toSize();
}

void PictureButton::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture());
  if (hasFocus())
    paintFocus(painter, rect(), Qt::black, Qt::white); // of which one shows on any picture
}

void PictureButton::press() {
  m_pressed = true;
  window()->installEventFilter(this);
  fire(MouseDown);
}

void PictureButton::release() {
  m_pressed = false;
  window()->removeEventFilter(this);
  fire(MouseUp);
}

bool PictureButton::eventFilter(QObject * /*window*/, QEvent *event) {
  if (event->type() == QEvent::WindowBlocked)
    release();
  return false;
}

void PictureButton::mousePressEvent(QMouseEvent * /*event*/) {
  press();
}

// A quick second press is a press like the first.
void PictureButton::mouseDoubleClickEvent(QMouseEvent * /*event*/) {
  press();
}

void PictureButton::mouseReleaseEvent(QMouseEvent *event) {
  const bool click = m_pressed && rect().contains(event->position().toPoint());
  release();
  if (click)
    fire(Click);
}

void PictureButton::mouseMoveEvent(QMouseEvent * /*event*/) {
  fire(MouseMove);
}

void PictureButton::keyPressEvent(QKeyEvent *event) {
  const int key = event->key();
  if ((key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) &&
      !event->isAutoRepeat())
    fire(Click);
  else
    QWidget::keyPressEvent(event);
}

} // namespace vnb
