// SPDX-License-Identifier: MIT
/// The theme picker: what lies in the themes folder, what a theme says of itself, and the switch.
#pragma once

#include "appearance/theme.h"
#include "forms/form.h"

class QLabel;
class QPlainTextEdit;

namespace vnb {

class NumberList;

class frmThemes : public FormWindow {
public:
  frmThemes();
  void Form_Load();
  void UpdateColors();

  /// What a switch of the theme changes. To be set before the form is used.
  static ThemeView *View;

private:
  void lstThemes_Click();
  void cmdSwitch_Click();
  void ShowThemeInfo(const QString &sName);
  void showUnreadable(const QString &reason);
  QString selected() const;

  QLabel *m_lblCurTheme;
  NumberList *m_lstThemes;
  QLabel *m_lblName;
  QLabel *m_lblAuthor;
  QPlainTextEdit *m_txtDescription;
};

} // namespace vnb
