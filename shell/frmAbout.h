// SPDX-License-Identifier: MIT
/// The about box: a logo, and under three buttons three pages of text.
#pragma once

#include "widgets/form.h"

#include <array>

class QLabel;
class QPlainTextEdit;

namespace vnb {

class PageButton;

/// Tells who made the program, and what it is about.
class frmAbout : public FormWindow {
public:
  frmAbout();

protected:
  /// A double click on the free area shows the third button.
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void paintEvent(QPaintEvent *event) override;

private:
  void addButtons();
  void picButton_Click(std::size_t Index);
  /// Shows the text of a page, or the logo.
  void showPage(bool page);

  std::array<PageButton *, 3> m_picButton{};
  QLabel *m_picAbout = nullptr;
  QPlainTextEdit *m_txtAbout = nullptr;
};

} // namespace vnb
