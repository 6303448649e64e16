// SPDX-License-Identifier: MIT
/// The toolbar: picture buttons from one table, and the status line.
#pragma once

#include "appearance/globals.h"
#include "appearance/images.h"

#include <QKeySequence>
#include <QLabel>
#include <QWidget>

#include <array>
#include <functional>
#include <span>
#include <string_view>

namespace vnb {

class frmMain;

/// One button: what the program knows of it, but for its picture's file in a theme.
struct ToolbarButton {
  const char *name;  // object name
  const char *tag;   // base name of its built-in bitmaps
  const char *title; // the tool tip has its shortcut, too
  int left;          // pixels
  Qt::KeyboardModifier modifier;
  Qt::Key key;
  void (frmMain::*action)(); // run by a click and by the shortcut
};

/// The buttons from left to right.
std::span<const ToolbarButton> toolbarButtons();

/// `picToolbar`, docked to the top of the main window.
class Toolbar : public QWidget {
public:
  /// Pixels, with the line along its lower edge.
  static constexpr int height = 29;
  static constexpr int leastWidth = 295; // with all buttons

  /// `click` runs the action of the button with that number.
  Toolbar(QWidget *parent, std::function<void(std::size_t)> click);

  /// Shows `text` behind the last button; an empty one clears the line.
  void setStatus(const QString &text);
  /// ButtonImages is new: every button shows its own.
  void buttonImagesChanged();
  void UpdateColors();

protected:
  void paintEvent(QPaintEvent *event) override;
  /// Between the buttons the status line is empty.
  void mouseMoveEvent(QMouseEvent *event) override;

private:
  void addButton(std::size_t index);

  std::function<void(std::size_t)> m_click;
  std::vector<PictureButton *> m_buttons;
  QLabel *m_lblStatus;
};

} // namespace vnb
