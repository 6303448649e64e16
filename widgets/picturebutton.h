// SPDX-License-Identifier: MIT
/// Picture buttons: the buttons of the toolbar and of the valid subnets panel.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace vnb {

/// A picture that reacts to the pointer with any mouse button, and to space and Enter. While
/// pressed it keeps the pointer; a click is a release inside, and comes after MouseUp. A modal
/// dialog takes the pointer away, which is a release outside.
class PictureButton : public QWidget {
public:
  /// Shows the built-in bitmap `tag`, which must be there, until it is given another picture.
  PictureButton(QWidget *parent, const QString &tag);

  /// Base name of its built-in bitmaps: TAG at rest, TAG_C pressed, and TAG_H, which nothing shows.
  const QString &Tag() const { return m_tag; }
  /// A null picture is that of its Tag. The button keeps its size.
  void setPicture(const QPixmap &picture);
  QSize sizeHint() const override;

  /// None need be set. MouseMove runs whether or not a button is held.
  std::function<void()> MouseDown, MouseUp, MouseMove, Click;

protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;
  /// Of its window, while it is pressed.
  bool eventFilter(QObject *window, QEvent *event) override;

private:
  const QPixmap &picture() const;
  void press();
  void release();

  QString m_tag;
  mutable QPixmap m_picture;
  bool m_pressed = false;
};

} // namespace vnb
