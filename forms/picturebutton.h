// SPDX-License-Identifier: MIT
/// Picture buttons: the buttons of the toolbar and of the valid subnets panel.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace vnb {

/// A picture that reacts to the pointer with any mouse button, and to space and Enter. While
/// pressed it keeps the pointer; a click is a release inside, and comes after MouseUp.
class PictureButton : public QWidget {
public:
  /// Shows the built-in bitmap `tag` until it is given another picture.
  PictureButton(QWidget *parent, const QString &tag);

  /// Base name of its built-in bitmaps.
  const QString &Tag() const { return m_tag; }
  void setPicture(const QPixmap &picture);
  QSize sizeHint() const override;

  std::function<void()> MouseDown, MouseUp, MouseMove, Click;

protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

private:
  QString m_tag;
  QPixmap m_picture;
};

} // namespace vnb
