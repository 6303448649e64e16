// SPDX-License-Identifier: MIT
/// The theme picker: what lies in the themes folder, what a theme says of itself, and the switch.
#pragma once

#include "appearance/editorview.h"
#include "widgets/form.h"

class QLabel;
class QPlainTextEdit;

namespace vnb {

class NumberList;

/// Stays open after a switch, so that one theme after the other can be tried.
class frmThemes : public FormWindow {
public:
  /// `view` takes the themes.
  explicit frmThemes(EditorView &view);
  /// Lists the folders, whatever is in them, and picks the theme in force.
  void Form_Load() override;
  void UpdateColors() override;

private:
  void lstThemes_Click();
  void cmdSwitch_Click();
  void ShowThemeInfo(const QString &sName);
  void showUnreadable(const QString &reason);
  QString selected() const;

  EditorView &m_view;
  QLabel *m_lblCurTheme;
  NumberList *m_lstThemes;
  QLabel *m_lblName;
  QLabel *m_lblAuthor;
  QPlainTextEdit *m_txtDescription;
};

} // namespace vnb
