// SPDX-License-Identifier: MIT
#include "editor/toolbar.h"

#include "forms/form.h"

#include <QPainter>

namespace vnb {
namespace {

constexpr std::array buttons{
    ToolbarButton{"picNew", "NEW", "New LAN (Ctrl-N)", 1, Qt::ControlModifier, Qt::Key_N},
    ToolbarButton{"picLoad", "LOAD", "Open LAN (Ctrl-O)", 26, Qt::ControlModifier, Qt::Key_O},
    ToolbarButton{"picSave", "SAVE", "Save LAN (Ctrl-S)", 51, Qt::ControlModifier, Qt::Key_S},
    ToolbarButton{"picAdd", "ADD", "Show Toolbox (Alt-T)", 82, Qt::AltModifier, Qt::Key_T},
    ToolbarButton{"picInfo", "INFO", "LAN Information (Alt-I)", 107, Qt::AltModifier, Qt::Key_I},
    ToolbarButton{"picLink", "LINK", "Link Properties (Alt-L)", 132, Qt::AltModifier, Qt::Key_L},
    ToolbarButton{"picDevice", "DEVICE", "Device Properties (Alt-D)", 157, Qt::AltModifier,
                  Qt::Key_D},
    ToolbarButton{"picSubnet", "SUBNET", "Valid Subnets (Alt-S)", 182, Qt::AltModifier, Qt::Key_S},
    ToolbarButton{"picThemes", "THEMES", "Themes (Ctrl-T)", 213, Qt::ControlModifier, Qt::Key_T},
    ToolbarButton{"picSettings", "SETTINGS", "Settings (Ctrl-P)", 238, Qt::ControlModifier,
                  Qt::Key_P},
    ToolbarButton{"picAbout", "ABOUT", "About (Ctrl-A)", 263, Qt::ControlModifier, Qt::Key_A},
};

constexpr int buttonSize = 24;
constexpr int buttonTop = 1;
constexpr std::array separators{77, 208, 289};
constexpr int lineTop = 27;
constexpr int statusLeft = 295;
constexpr qreal statusPointSize = 9;

/// The tool tip without its shortcut.
QString title(const ToolbarButton &button) {
  const QString toolTip = QString::fromLatin1(button.toolTip);
  return toolTip.first(toolTip.indexOf(u'(') - 1);
}

} // namespace

std::span<const ToolbarButton> toolbarButtons() {
  return buttons;
}

Toolbar::Toolbar(QWidget *parent, std::function<void(std::size_t)> click)
    : QWidget(parent), m_click(std::move(click)), m_images(buttons.size()),
      m_lblStatus(new QLabel(this)) {
  setObjectName(QStringLiteral("picToolbar"));
  setFixedHeight(height);
  setMouseTracking(true);
  m_lblStatus->setObjectName(QStringLiteral("lblStatus"));
  m_lblStatus->setTextFormat(Qt::PlainText);
  m_lblStatus->setFont(formFont(statusPointSize));
  m_lblStatus->move(statusLeft, 6);
  // The status line has a handler of its own: it clears itself, as bare toolbar does.
  m_lblStatus->setAttribute(Qt::WA_TransparentForMouseEvents);
  for (std::size_t i = 0; i < buttons.size(); ++i)
    addButton(i);
}

void Toolbar::addButton(std::size_t index) {
  const ToolbarButton &row = buttons[index];
  auto *button = new PictureButton(this, QString::fromLatin1(row.tag));
  button->setObjectName(QString::fromLatin1(row.name));
  button->setAccessibleName(title(row));
  button->setToolTip(QString::fromLatin1(row.toolTip));
  button->setGeometry(row.left, buttonTop, buttonSize, buttonSize);
  button->MouseDown = [this, index] { DoImage(*m_buttons[index], m_images[index], false); };
  button->MouseUp = [this, index] { DoImage(*m_buttons[index], m_images[index], true); };
  button->MouseMove = [this, &row] { setStatus(title(row)); };
  button->Click = [this, index] { m_click(index); };
  m_buttons.push_back(button);
}

void Toolbar::loadImages(const QString &tag, const QString &files) {
  for (std::size_t i = 0; i < m_buttons.size(); ++i)
    if (m_buttons[i]->Tag() == tag)
      LoadButtonImages(m_images[i], *m_buttons[i], files);
}

void Toolbar::UpdateColors() {
  QPalette colours = m_lblStatus->palette();
  colours.setColor(QPalette::WindowText, toQColor(TextColor));
  m_lblStatus->setPalette(colours);
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
