// SPDX-License-Identifier: MIT
#include "editor/toolbar.h"

#include "editor/frmMain.h"
#include "widgets/form.h"

#include <QPainter>

namespace vnb {
namespace {

constexpr std::array buttons{
    ToolbarButton{"picNew", "NEW", "New LAN", 1, Qt::ControlModifier, Qt::Key_N,
                  &frmMain::picNew_Click},
    ToolbarButton{"picLoad", "LOAD", "Open LAN", 26, Qt::ControlModifier, Qt::Key_O,
                  &frmMain::picLoad_Click},
    ToolbarButton{"picSave", "SAVE", "Save LAN", 51, Qt::ControlModifier, Qt::Key_S,
                  &frmMain::picSave_Click},
    ToolbarButton{"picAdd", "ADD", "Show Toolbox", 82, Qt::AltModifier, Qt::Key_T,
                  &frmMain::picAdd_Click},
    ToolbarButton{"picInfo", "INFO", "LAN Information", 107, Qt::AltModifier, Qt::Key_I,
                  &frmMain::picInfo_Click},
    ToolbarButton{"picLink", "LINK", "Link Properties", 132, Qt::AltModifier, Qt::Key_L,
                  &frmMain::picLink_Click},
    ToolbarButton{"picDevice", "DEVICE", "Device Properties", 157, Qt::AltModifier, Qt::Key_D,
                  &frmMain::picDevice_Click},
    ToolbarButton{"picSubnet", "SUBNET", "Valid Subnets", 182, Qt::AltModifier, Qt::Key_S,
                  &frmMain::picSubnet_Click},
    ToolbarButton{"picThemes", "THEMES", "Themes", 213, Qt::ControlModifier, Qt::Key_T,
                  &frmMain::picThemes_Click},
    ToolbarButton{"picSettings", "SETTINGS", "Settings", 238, Qt::ControlModifier, Qt::Key_P,
                  &frmMain::picSettings_Click},
    ToolbarButton{"picAbout", "ABOUT", "About", 263, Qt::ControlModifier, Qt::Key_A,
                  &frmMain::picAbout_Click},
};

constexpr int buttonSize = 24;
constexpr int buttonTop = 1;
constexpr std::array separators{77, 208, 289};
constexpr int lineTop = 27;
constexpr qreal statusPointSize = 9;

/// "New LAN (Ctrl-N)".
QString toolTipOf(const ToolbarButton &button) {
  return QStringLiteral("%1 (%2-%3)")
      .arg(QLatin1String(button.title),
           QLatin1String(button.modifier == Qt::AltModifier ? "Alt" : "Ctrl"), QChar(button.key));
}

} // namespace

std::span<const ToolbarButton> toolbarButtons() {
  return buttons;
}

Toolbar::Toolbar(QWidget *parent, std::function<void(std::size_t)> click)
    : QWidget(parent), m_click(std::move(click)), m_lblStatus(new QLabel(this)) {
  setObjectName(QStringLiteral("picToolbar"));
  setFixedHeight(height);
  setMouseTracking(true);
  m_lblStatus->setObjectName(QStringLiteral("lblStatus"));
  m_lblStatus->setTextFormat(Qt::PlainText);
  m_lblStatus->setFont(formFont(statusPointSize));
  m_lblStatus->move(leastWidth, 6);
  // The status line has a handler of its own: it clears itself, as bare toolbar does.
  m_lblStatus->setAttribute(Qt::WA_TransparentForMouseEvents);
  for (std::size_t i = 0; i < buttons.size(); ++i)
    addButton(i);
}

void Toolbar::addButton(std::size_t index) {
  const ToolbarButton &row = buttons[index];
  auto *button = new PictureButton(this, QString::fromLatin1(row.tag));
  button->setObjectName(QString::fromLatin1(row.name));
  button->setAccessibleName(QString::fromLatin1(row.title));
  button->setToolTip(toolTipOf(row));
  button->setGeometry(row.left, buttonTop, buttonSize, buttonSize);
  showImages(*button);
  button->MouseMove = [this, &row] { setStatus(QString::fromLatin1(row.title)); };
  button->Click = [this, index] { m_click(index); };
  m_buttons.push_back(button);
}

void Toolbar::buttonImagesChanged() {
  for (PictureButton *button : m_buttons)
    showImages(*button);
}

void Toolbar::UpdateColors() {
  update();
}

void Toolbar::setStatus(const QString &text) {
  if (text == m_lblStatus->text())
    return;
  m_lblStatus->setText(text);
  m_lblStatus->adjustSize();
}

void Toolbar::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), toQColor(BackgroundColor));
  const QColor separator = toQColor(SeparatorColor);
  for (const int left : separators)
    painter.fillRect(left, 2, 2, 22, separator);
  painter.fillRect(0, lineTop, width(), 1, separator);
}

void Toolbar::mouseMoveEvent(QMouseEvent * /*event*/) {
  setStatus({});
}

} // namespace vnb
