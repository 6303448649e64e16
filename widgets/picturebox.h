// SPDX-License-Identifier: MIT
/// Picture boxes that size themselves to their picture.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace vnb {

/// Shows a picture in its own size, and can be dragged from.
class PictureBox : public QWidget {
public:
  explicit PictureBox(QWidget *parent) : QWidget(parent) {}

  /// Takes the picture's size too.
  void setPicture(const QPixmap &picture);

  bool isEmpty() const { return m_picture.isNull(); }

  /// A press: the button, the place in the picture and on the screen.
  std::function<void(Qt::MouseButton, QPoint at, QPoint global)> MouseDown;

protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  /// The second press of a double click is no press.
  void mouseDoubleClickEvent(QMouseEvent * /*event*/) override {}

private:
  QPixmap m_picture;
};

} // namespace vnb
