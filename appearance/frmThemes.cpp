// SPDX-License-Identifier: MIT
#include "appearance/frmThemes.h"

#include "appearance/colours.h"
#include "appearance/images.h"
#include "appearance/theme.h"
#include "runtime/error.h"
#include "runtime/messagebox.h"
#include "runtime/xml.h"
#include "widgets/controls.h"
#include "widgets/numberlist.h"

#include <QDirIterator>
#include <QPlainTextEdit>
#include <QPushButton>

#include <functional>

namespace vnb {
namespace {

/// The theme in force, the colours (some are the user's own), the pictures and what is drawn, to go
/// back to when another theme fails. Nothing is read again: the theme's files may be gone.
class LookInForce {
public:
  explicit LookInForce(EditorView &view) : m_redraw(view.keepDrawn()) {
    for (const ColourRow &row : colourRows)
      m_colours.push_back(*row.colour);
  }

  void restore(EditorView &view) const {
    ThemeFile = m_file;
    ThemeName = m_name;
    allPictures() = m_pictures;
    view.buttonImagesChanged();
    view.deviceImagesChanged();
    for (std::size_t i = 0; i < m_colours.size(); ++i)
      *colourRows[i].colour = m_colours[i];
    view.linkColorChanged();
    view.UpdateColors();
    m_redraw();
  }

private:
  QString m_file = ThemeFile;
  QString m_name = ThemeName;
  Pictures m_pictures = allPictures();
  std::vector<Colour> m_colours;
  std::function<void()> m_redraw;
};

void tell(const QString &text) {
  showMessageBox({.title = QStringLiteral("Themes"),
                  .text = text,
                  .icon = MessageBox::Icon::Exclamation,
                  .buttons = MessageBox::Buttons::Ok});
}

/// Shows as much of a line as there is room for, and the whole of it as a tool tip.
void showLine(QLabel &label, const QString &line) {
  const QString shown =
      label.fontMetrics().elidedText(line, Qt::ElideRight, label.contentsRect().width());
  label.setText(shown);
  label.setToolTip(shown == line ? QString() : line);
  label.setAccessibleName(line);
}

const XmlElement *firstChild(const XmlElement &parent, QStringView tagName) {
  for (const XmlElement &child : parent.children())
    if (child.tagName() == tagName)
      return &child;
  return nullptr;
}

} // namespace

frmThemes::frmThemes(EditorView &view)
    : FormWindow("frmThemes", "Themes", {7125, 3195}), m_view(view) {
  addLabel(*this, "lblCurrent", "Current theme:", {75, 75, 1515, 195});
  m_lblCurTheme = addLabel(*this, "lblCurTheme", "Default", {1635, 75, 2550, 195});
  auto *cmdSwitch =
      addCaptioned<QPushButton>(*this, "cmdSwitch", "Switch (temp button)", {4260, 75, 2415, 360});
  QLabel *available = addLabel(*this, "lblAvailable", "Available themes:", {75, 345, 1695, 195});
  m_lstThemes = add<NumberList>(*this, "lstThemes", {120, 660, 2970, 2370});
  nameAfter(*m_lstThemes, *available);
  m_lblName = addLabel(*this, "lblName", "Name:", {3210, 660, 3870, 195});
  m_lblAuthor = addLabel(*this, "lblAuthor", "Author: ", {3210, 930, 3870, 195});
  QLabel *description = addLabel(*this, "lblDesc", "Description:", {3210, 1200, 1140, 195});
  m_txtDescription = add<QPlainTextEdit>(*this, "txtDescription");
  m_txtDescription->setReadOnly(true);
  m_txtDescription->setTabChangesFocus(true);
  m_txtDescription->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  place(*m_txtDescription, {3210, 1485, 3870, 1665});
  nameAfter(*m_txtDescription, *description);
  setTabOrder(m_lstThemes, cmdSwitch);
  setTabOrder(cmdSwitch, m_txtDescription);
  m_lstThemes->Click = [this] { lstThemes_Click(); };
  connect(cmdSwitch, &QPushButton::clicked, this, &frmThemes::cmdSwitch_Click);
}

void frmThemes::Form_Load() {
  m_lstThemes->setRows({});
  // Hidden ones as well: a theme's folder may begin with a point.
  QDirIterator entries(themesFolder(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
  if (!entries.hasNext())
    return;
  std::vector<NumberRow> folders;
  int current = -1;
  while (entries.hasNext()) {
    entries.next();
    if (!entries.fileInfo().isDir())
      continue;
    if (entries.fileName() == ThemeName)
      current = static_cast<int>(folders.size());
    folders.push_back({.name = entries.fileName()});
  }
  m_lstThemes->setRows(std::move(folders));
  m_lstThemes->setListIndex(current);
  showLine(*m_lblCurTheme, ThemeName);
  UpdateColors();
}

void frmThemes::UpdateColors() {
  applyColours(*this);
  setForeground(*m_lblCurTheme, RedTextColor);
}

QString frmThemes::selected() const {
  const NumberRow *const row = m_lstThemes->picked();
  return row == nullptr ? QString() : row->text();
}

void frmThemes::lstThemes_Click() {
  ShowThemeInfo(selected());
}

void frmThemes::showUnreadable(const QString &reason) {
  showLine(*m_lblName, QStringLiteral("Name: "));
  showLine(*m_lblAuthor, QStringLiteral("Author: "));
  m_txtDescription->setPlainText(reason);
}

void frmThemes::ShowThemeInfo(const QString &sName) {
  try {
    const XmlDocument document(themePath(sName));
    const XmlElement *info = firstChild(document.root(), u"INFO");
    if (info == nullptr) {
      showUnreadable(QStringLiteral("This theme says nothing about itself."));
      return;
    }
    // What a theme leaves out keeps the text of the one shown before. A label has one line.
    for (const XmlElement &field : info->children()) {
      if (field.tagName() == u"TITLE")
        showLine(*m_lblName, QStringLiteral("Name: ") + field.text().simplified());
      else if (field.tagName() == u"AUTHOR")
        showLine(*m_lblAuthor, QStringLiteral("Author: ") + field.text().simplified());
      else if (field.tagName() == u"DESCRIPTION")
        m_txtDescription->setPlainText(field.text());
    }
  } catch (const RuntimeError &error) {
    showUnreadable(QStringLiteral("The theme.xml of this folder can't be read. ") +
                   error.description());
  }
}

void frmThemes::cmdSwitch_Click() {
  if (m_lstThemes->picked() == nullptr) {
    tell(QStringLiteral("Pick a theme in the list first."));
    return;
  }
  const LookInForce earlier(m_view);
  try {
    LoadTheme(themePath(selected()), m_view); // its name alone may be taken for a path
  } catch (const RuntimeError &error) {
    earlier.restore(m_view);
    // After going back, so that the box already has the look in force.
    tell(QStringLiteral("The theme \"%1\" can't be loaded.\n%2")
             .arg(selected(), error.description()));
  }
  showLine(*m_lblCurTheme, ThemeName);
}

} // namespace vnb
