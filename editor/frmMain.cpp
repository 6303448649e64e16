// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"

#include "runtime/report.h"
#include "shell/cdlgex.h"

#include <QWheelEvent>

#include <array>

namespace vnb {
namespace {

constexpr QSize designSize(538, 467);
constexpr int wheelStep = 100; // pixels for a notch, as a large step of the bars

/// Asks for a LAN file under `title`. False when the user cancels or gives no name.
bool askForFile(QWidget &owner, const char *title, bool save) {
  Cdlg.DialogTitle = QString::fromLatin1(title);
  Cdlg.Filter = QStringLiteral("LAN Definition files|*.txt|All files (*.*)|*.*");
  Cdlg.flags = CdlgEx::LongNames | CdlgEx::HideReadOnly | (save ? CdlgEx::OverwritePrompt : 0);
  Cdlg.hOwner = &owner;
  const bool confirmed = save ? Cdlg.ShowSave() : Cdlg.ShowOpen();
  return confirmed && !Cdlg.FileName.isEmpty();
}

} // namespace

frmMain::frmMain()
    : m_toolbar(this, [this](std::size_t index) { buttonClicked(index); }), m_viewport(*this),
      m_operations(m_viewport.picLayout()),
      m_shortcuts(
          *this, [this](int KeyCode, Qt::KeyboardModifiers Shift) { Form_KeyUp(KeyCode, Shift); }) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Vantry Network Builder v%1.%2.%3")
                     .arg(VNB_MAJOR)
                     .arg(VNB_MINOR)
                     .arg(VNB_REVISION));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  resize(designSize);
  for (std::size_t i = 0; i < toolbarButtons().size(); ++i)
    m_toolbar.loadImages(i, QStringLiteral("||"));
  LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
  picLayout().picSystem(0).setPicture(DeviceImages(SystemType::Router));
  m_operations.ClearLAN();
}

void frmMain::resizeEvent(QResizeEvent * /*event*/) {
  Form_Resize();
}

void frmMain::Form_Resize() {
  reported("frmMain", "Form_Resize", [this] {
    m_toolbar.setGeometry(0, 0, width(), Toolbar::height);
    m_viewport.layOut(size(), Toolbar::height);
  });
}

void frmMain::mouseMoveEvent(QMouseEvent * /*event*/) {
  m_toolbar.setStatus({});
}

void frmMain::wheelEvent(QWheelEvent *event) {
  m_viewport.scrollBy(-event->angleDelta() * wheelStep / QWheelEvent::DefaultDeltasPerStep);
}

void frmMain::Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift) {
  const auto buttons = toolbarButtons();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (buttons[i].key == KeyCode && Shift == buttons[i].modifier)
      buttonClicked(i);
}

void frmMain::buttonClicked(std::size_t index) {
  using Action = void (frmMain::*)();
  static constexpr std::array<std::pair<std::string_view, Action>, 3> actions{{
      {"picNew", &frmMain::picNew_Click},
      {"picLoad", &frmMain::picLoad_Click},
      {"picSave", &frmMain::picSave_Click},
  }};
  for (const auto &[name, action] : actions)
    if (name == toolbarButtons()[index].name)
      (this->*action)();
}

void frmMain::picNew_Click() {
  m_operations.ClearLAN();
}

void frmMain::picLoad_Click() {
  reported("frmMain", "picLoad_Click", [this] {
    if (!askForFile(*this, "Open LAN", false))
      return;
    m_operations.ClearLAN();
    DiagramReaderView view(m_operations);
    OpenLANFile(Cdlg.FileName, m_operations, view);
  });
}

void frmMain::picSave_Click() {
  reported("frmMain", "picSave_Click", [this] {
    if (askForFile(*this, "Save LAN", true))
      SaveLAN(Cdlg.FileName);
  });
}

} // namespace vnb
