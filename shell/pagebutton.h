// SPDX-License-Identifier: MIT
/// The tab-like buttons of the about box.
#pragma once

#include <QAbstractButton>

namespace vnb {

/// A caption in an outline, which lights up while the button's page is open.
class PageButton : public QAbstractButton {
public:
  /// Of the caption, and of the outline while the page is open and while it isn't.
  struct Colours {
    QRgb caption, selected, resting;
  };

  PageButton(QWidget *parent, Colours colours);

  /// Whether its page is open, as the form has told: a click by itself changes nothing.
  bool isSelected() const { return m_selected; }
  void setSelected(bool selected);

protected:
  void paintEvent(QPaintEvent *event) override;
  /// The second press of a double click is no click.
  void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
  Colours m_colours;
  bool m_selected = false;
};

} // namespace vnb
