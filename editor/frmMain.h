// SPDX-License-Identifier: MIT
/// The main window: the centre of the program.
#pragma once

#include "appearance/theme.h"
#include "diagram/operations.h"
#include "diagram/viewport.h"
#include "editor/contextmenu.h"
#include "editor/gestures.h"
#include "editor/shortcuts.h"
#include "editor/toolbar.h"
#include "shell/settings.h"

#include <QWidget>

#include <optional>

namespace vnb {

class frmMain : public QWidget, private ThemeView, private SettingsView, private SelectionPanels {
public:
  /// The window in its design state, hidden.
  frmMain();

  /// Starts the program behind the splash: settings, theme, grid, last file; then shows the window.
  void Form_Load();
  /// Writes the settings store, as closing the window does.
  void saveSettings() const { SaveSettings(*this); }

  Surface &picLayout() { return m_viewport.picLayout(); }
  DiagramOperations &operations() { return m_operations; }
  Selection &selection() { return m_selection; }

  void picNew_Click();
  void picLoad_Click();
  void picSave_Click();
  void picAdd_Click();
  void picInfo_Click();
  void picLink_Click();
  void picDevice_Click();
  void picSubnet_Click();
  void picThemes_Click();
  void picSettings_Click();
  void picAbout_Click();

  /// Reads the list of versions beside the program. Always false: what a newer version would mean
  /// is open. Raises what is wrong with the list.
  static bool CheckForUpdate(bool bUnused);

protected:
  void resizeEvent(QResizeEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  void closeEvent(QCloseEvent *event) override;

private:
  void Form_Resize();
  void Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift);
  void Form_Unload();
  void buttonClicked(std::size_t index);
  void openFile(const QString &sFileName, bool bTakeYourTime);
  void showOnScreen();
  void moveOnScreen(QPoint corner);
  template <class F>
  void showPanel(const char *procedure);

  bool isBare(QPoint at) const;
  void openMenu(std::int32_t Index, QPoint global);

  void fillDevice() override;
  void fillLinks() override;
  void fillSubnets() override;
  void showNoDevice() override;

  void linkColorChanged() override;
  void UpdateColors() override;
  void updateOwnColors();
  void loadButtonImages(const QString &tag, const QString &files) override;
  void deviceImagesChanged() override;
  bool hasGrid() const override { return m_viewport.picLayout().hasGrid(); }
  void redrawGrid() override;

  void setLeft(std::int32_t lLeft) override;
  void setTop(std::int32_t lTop) override;
  double Left() const override;
  double Top() const override;
  void LoadTheme(const QString &sFileName) override;
  void templateColorChanged() override;

  std::optional<int> m_storedLeft; // pixels, until the window shows
  std::optional<int> m_storedTop;
  bool m_pressedBare = false;
  Toolbar m_toolbar;
  Viewport m_viewport;
  DiagramOperations m_operations;
  Selection m_selection;
  Gestures m_gestures;
  ContextMenu m_contextMenu;
  Shortcuts m_shortcuts;
};

} // namespace vnb
