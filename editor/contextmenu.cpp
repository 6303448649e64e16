// SPDX-License-Identifier: MIT
#include "editor/contextmenu.h"

#include "document/displaynames.h"
#include "panels/linkrows.h"
#include "runtime/messagebox.h"
#include "widgets/longmenu.h"

namespace vnb {
namespace {

bool confirmed(const QString &question) {
  return showMessageBox({.title = QStringLiteral("Really remove it?"),
                         .text = question,
                         .icon = MessageBox::Icon::Question,
                         .buttons = MessageBox::Buttons::YesNo}) == Answer::Yes;
}

} // namespace

std::unique_ptr<QMenu> ContextMenu::build(std::int32_t Index, QWidget &parent) {
  auto mnuPopup = std::make_unique<QMenu>(&parent);
  mnuPopup->setObjectName(QStringLiteral("mnuPopup"));
  addLinks(*mnuPopup, Index);
  mnuPopup->addSeparator();
  addTypes(*mnuPopup, Index);
  const QString name = friendlyName(Index).toLower();
  QAction *mnuRemove = mnuPopup->addAction(QStringLiteral("Remove this ") + name);
  mnuRemove->setObjectName(QStringLiteral("mnuRemove"));
  mnuRemove->setEnabled(Index > 0);
  QObject::connect(mnuRemove, &QAction::triggered, mnuRemove, [this] { mnuRemove_Click(); });
  return mnuPopup;
}

void ContextMenu::addLinks(QMenu &mnuPopup, std::int32_t Index) {
  auto *mnuLinks = new LongMenu(QStringLiteral("Links"), &mnuPopup);
  mnuPopup.addMenu(mnuLinks);
  mnuLinks->setObjectName(QStringLiteral("mnuLinks"));
  mnuLinks->setEnabled(SystemHasLinks(Index));
  mnuLinks->Click = [this, Index](const NumberRow &row) { mnuLink_Click(Index, row.number); };
  // Filled when it opens: most openings of the menu don't look.
  QObject::connect(mnuLinks, &QMenu::aboutToShow, mnuLinks,
                   [mnuLinks, Index] { mnuLinks->setRows(linkRows(Index)); });
}

void ContextMenu::addTypes(QMenu &mnuPopup, std::int32_t Index) {
  QMenu *mnuChange = mnuPopup.addMenu(QStringLiteral("&Change type"));
  mnuChange->setObjectName(QStringLiteral("mnuChange"));
  mnuChange->setEnabled(Index > 0);
  for (std::int32_t lType = SystemType::FirstToPick; lType <= SystemType::Last; ++lType) {
    QAction *mnuType = mnuChange->addAction(NameFromType(lType, true));
    mnuType->setCheckable(true);
    mnuType->setChecked(at(Systems, Index).lType == lType);
    QObject::connect(mnuType, &QAction::triggered, mnuType,
                     [this, lType] { m_diagram.operations.ReplaceSystem(lSelectedItem, lType); });
  }
}

void ContextMenu::mnuLink_Click(std::int32_t Index, std::int32_t lLink) {
  if (confirmed(QStringLiteral("Are you sure you want to remove the ") +
                inSentence(linkName(at(Links, lLink), Index)) + u'?'))
    m_diagram.operations.RemoveLink(lLink, false);
  selectAgain();
}

void ContextMenu::mnuRemove_Click() {
  if (confirmed(QStringLiteral("Really remove this ") + friendlyName(lSelectedItem).toLower() +
                u'?'))
    m_diagram.operations.RemoveSystem(lSelectedItem);
  selectAgain();
}

/// Refills the panels. The number now stands for the device that has moved into the place, or for
/// none if the last one went.
void ContextMenu::selectAgain() {
  constexpr Colour black = 0;
  if (lSelectedItem > m_diagram.surface.picSystem.UBound())
    m_diagram.selection.Deselect();
  else if (lSelectedItem != -1)
    m_diagram.selection.SelectItem(lSelectedItem, black, false);
}

} // namespace vnb
