// SPDX-License-Identifier: MIT
/// The main window: the centre of the program.
#pragma once

#include "diagram/diagramparts.h"
#include "diagram/viewport.h"
#include "editor/contextmenu.h"
#include "editor/gestures.h"
#include "editor/shortcuts.h"
#include "editor/toolbar.h"
#include "editor/windowplace.h"
#include "widgets/formtable.h"

#include <QWidget>

namespace vnb {

/// Owns all that the user works with, and hands down what the forms need of it.
class frmMain : public QWidget, private EditorView {
public:
  /// The window in its design state, hidden.
  frmMain();

  /// Starts the program behind the splash: settings, theme, grid, last file; then shows the window.
  /// Called once. A No to a fault here leaves it halfway, and the window may stay hidden.
  void Form_Load();
  /// Writes the settings store, as closing the window does.
  void saveSettings() const { SaveSettings(m_place); }

  Surface &picLayout() { return m_viewport.picLayout(); }
  DiagramOperations &operations() { return m_operations; }
  Selection &selection() { return m_selection; }
  EditorView &view() { return *this; }
  const DiagramParts &diagram() const { return m_diagram; }
  FormTable &forms() { return m_forms; }

  /// What the buttons and their keys do. New and Load replace the LAN without asking whether to
  /// save it; Load does so once a file has been chosen. A save that failed leaves the file name as
  /// it was.
  void picNew_Click();
  void picLoad_Click();
  void picSave_Click();
  /// Open a panel, or bring it to the front.
  void picAdd_Click();
  void picInfo_Click();
  void picLink_Click();
  void picDevice_Click();
  void picSubnet_Click();
  /// Return when the dialog has been closed. Settings draws the grid anew, also after Cancel.
  void picThemes_Click();
  void picSettings_Click();
  void picAbout_Click();

  /// Reads the list of versions beside the program. Always false: what a newer version would mean
  /// is open. Raises what is wrong with the list.
  static bool CheckForUpdate(bool bUnused);

protected:
  void resizeEvent(QResizeEvent *event) override;
  /// What falls on the bare form alone, and the wheel wherever nothing else takes it.
  void mousePressEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  /// Stores the settings, closes all forms and ends the program.
  void closeEvent(QCloseEvent *event) override;

private:
  void Form_Resize();
  void Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift);
  void Form_Unload();
  void openFile(const QString &sFileName, bool bTakeYourTime);
  template <class F>
  void showPanel(const char *procedure);

  bool isBare(QPoint at) const;
  /// Returns when the menu has closed, and what was picked has run.
  void openMenu(std::int32_t Index, QPoint global);

  template <class Visit>
  void forEachDevicePanel(Visit visit);
  void deviceSelected() override;
  void showNoDevice() override;
  void systemRemoved(std::int32_t lIndex) override;
  void lanCleared() override;
  void PopulateLockBoxes() override;

  void linkColorChanged() override;
  void UpdateColors() override;
  void updateOwnColors();
  void loadButtonImages(const QString &tag, const QString &files) override;
  void buttonImagesChanged() override;
  void deviceImagesChanged() override;
  std::function<void()> keepDrawn() override;

  /// In the order of making: each works on those above it. The forms go first.
  WindowPlace m_place;
  bool m_pressedBare = false;
  Toolbar m_toolbar;
  Viewport m_viewport;
  DiagramOperations m_operations;
  Selection m_selection;
  DiagramParts m_diagram;
  Gestures m_gestures;
  ContextMenu m_contextMenu;
  Shortcuts m_shortcuts;
  FormTable m_forms;
};

} // namespace vnb
