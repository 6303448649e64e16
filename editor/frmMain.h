// SPDX-License-Identifier: MIT
/// The main window: the centre of the program.
#pragma once

#include "diagram/operations.h"
#include "diagram/viewport.h"
#include "editor/shortcuts.h"
#include "editor/toolbar.h"

#include <QWidget>

namespace vnb {

class frmMain : public QWidget {
public:
  frmMain();

  Surface &picLayout() { return m_viewport.picLayout(); }
  DiagramOperations &operations() { return m_operations; }

  void picNew_Click();
  void picLoad_Click();
  void picSave_Click();

protected:
  void resizeEvent(QResizeEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;

private:
  void Form_Resize();
  void Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift);
  void buttonClicked(std::size_t index);

  Toolbar m_toolbar;
  Viewport m_viewport;
  DiagramOperations m_operations;
  Shortcuts m_shortcuts;
};

} // namespace vnb
