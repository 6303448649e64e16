// SPDX-License-Identifier: MIT
#include "panels/frmLinks.h"

#include "appearance/colours.h"
#include "document/displaynames.h"
#include "panels/linkrows.h"
#include "runtime/at.h"
#include "runtime/messagebox.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "widgets/numberlist.h"
#include "widgets/textbox.h"

#include <QFrame>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <cmath>

namespace vnb {
namespace {

/// A button of the picker, at the place on the sprite that it stands for.
struct Spot {
  int column, row; // quarters
};

/// Those on the edge and the one at the centre, row by row.
constexpr std::array<Spot, 17> spots = [] {
  std::array<Spot, 17> result{};
  auto *next = result.begin();
  for (int row = 0; row <= 4; ++row)
    for (int column = 0; column <= 4; ++column)
      if (row % 4 == 0 || column % 4 == 0 || (row == 2 && column == 2))
        *next++ = {column, row};
  return result;
}();
constexpr int centre = 8;
constexpr int other = 17;

double fraction(int quarters) {
  return quarters / 4.0;
}

/// Quarters are exact, so that they can be compared. Any other value is "Other:".
int spotAt(double x, double y) {
  for (std::size_t i = 0; i < spots.size(); ++i)
    if (fraction(spots[i].column) == x && fraction(spots[i].row) == y)
      return static_cast<int>(i);
  return other;
}

QFrame *addFrame(QWidget &parent, const char *name, Place at) {
  auto *frame = add<QFrame>(parent, name);
  frame->setFrameStyle(QFrame::Box | QFrame::Plain);
  place(*frame, at);
  return frame;
}

} // namespace

frmLinks::frmLinks(const DiagramParts &diagram)
    : DevicePanel(diagram, "frmLinks", "Links", {6360, 2025}, "picLinks") {
  addList();
  m_optSecur = new SecurityOptions(container(), {5145, 300, 315, 270});
  addPicker();
  addBoxes();
  m_optSecur->Click = [this](std::int32_t Index) { optSecur_Click(Index); };
  m_optPosition.Click = [this](int Index) { optPosition_Click(Index); };
  showNoDevice();
}

void frmLinks::addList() {
  m_lblLinks = addLabel(container(), "lblLinks", "Links for #####:", {60, 45, 6000, 195});
  m_lstLinks = add<NumberList>(container(), "lstLinks", {60, 285, 3495, 1275});
  m_lstLinks->setAccessibleName(QStringLiteral("Links"));
  m_lstLinks->Click = [this] { lstLinks_Click(); };
  auto *cmdRemove =
      addCaptioned<QPushButton>(container(), "cmdRemove", "Remove link", {60, 1620, 1590, 345});
  connect(cmdRemove, &QPushButton::clicked, this, &frmLinks::cmdRemove_Click);
  addLabel(container(), "lblInfo", "Security level:", {3705, 345, 1200, 195});
}

void frmLinks::addPicker() {
  constexpr int left = 3795;
  constexpr int top = 990;
  constexpr int size = 180;
  addFrame(container(), "shpFrame0", {3675, 780, 1140, 1185});
  addFrame(container(), "shpFrame1", {4800, 780, 1500, 1185});
  QLabel *lblPosn = addLabel(container(), "lblPosn", " Link position: ", {3780, 690, 1200, 195});
  // The label lies over the frame's upper edge.
  lblPosn->setAutoFillBackground(true);
  lblPosn->setBackgroundRole(QPalette::Base);
  for (std::size_t i = 0; i < spots.size(); ++i) {
    auto *option = add<PushOption>(container(), QStringLiteral("optPosition%1").arg(i));
    const auto [column, row] = spots[i];
    place(*option, {left + column * size, top + row * size, size, size});
    option->setAccessibleName(QStringLiteral("Link position %1, %2")
                                  .arg(doubleText(fraction(column)), doubleText(fraction(row))));
    m_optPosition.addButton(option, static_cast<int>(i));
  }
  auto *optOther =
      addCaptioned<QRadioButton>(container(), "optPosition17", "Other:", {4890, 990, 1200, 195});
  m_optPosition.addButton(optOther, other);
  m_optPosition.button(centre)->setChecked(true);
}

void frmLinks::addBoxes() {
  static constexpr int limit = 4;
  const auto box = [this](const char *label, const char *caption, const char *name, int top) {
    QLabel *text = addLabel(container(), label, caption, {4890, top + 30, 240, 195});
    auto *result = add<TextBox>(container(), name, Place{5190, top, 960, 270}, limit);
    nameAfter(*result, *text);
    result->setAccessibleName(result->accessibleName() + QStringLiteral(" of the link's end"));
    result->setContent(QStringLiteral("0.5"));
    return result;
  };
  m_txtX = box("lblX", "X:", "txtX", 1275);
  m_txtY = box("lblY", "Y:", "txtY", 1605);
}

void frmLinks::Form_Load() {
  reported(
      "frmLinks", "Form_Load",
      [this] {
        if (lSelectedItem == -1)
          return;
        showDevice();
        fillList();
      },
      [this] { UpdateColors(); });
}

void frmLinks::UpdateColors() {
  applyColours(*this);
  m_optSecur->UpdateColors();
}

void frmLinks::fillList() {
  m_lblLinks->setText(QStringLiteral("Links for ") + deviceName(lSelectedItem) + u':');
  m_lstLinks->setRows(linkRows(lSelectedItem));
}

void frmLinks::selectionFill() {
  showDevice();
  fillList();
  if (m_lstLinks->rows().empty()) {
    // As in the design: there is no link to show.
    m_optPosition.button(centre)->setChecked(true);
    m_txtX->setContent(QStringLiteral("0.5"));
    m_txtY->setContent(QStringLiteral("0.5"));
  } else if (isVisible()) {
    m_lstLinks->setListIndex(0);
  }
}

/// The panel edits the first end of a link that starts at the selected device.
bool frmLinks::isFirstEnd(const LinkRec &link) const {
  return link.lFrom == lSelectedItem;
}

LinkRec *frmLinks::currentLink() const {
  const NumberRow *const row = m_lstLinks->picked();
  return row == nullptr ? nullptr : &at(Links, row->number);
}

void frmLinks::lstLinks_Click() {
  LinkRec *const link = currentLink();
  if (link == nullptr)
    return;
  reported(
      "frmLinks", "lstLinks_Click",
      [&] { diagram().selection.pickLink(static_cast<std::int32_t>(link - Links.data())); },
      [&] {
        if (isFirstEnd(*link))
          PositionSelect(link->dFromX, link->dFromY);
        else
          PositionSelect(link->dToX, link->dToY);
      },
      [&] { m_optSecur->mark(link->lSecur); });
}

void frmLinks::PositionSelect(double lX, double lY) {
  // A button that is turned on counts as picked, and would move the link.
  bSelecting = true;
  reported(
      "frmLinks", "PositionSelect", [&] { m_optPosition.button(spotAt(lX, lY))->setChecked(true); },
      [&] { m_txtX->setContent(doubleText(lX)); }, [&] { m_txtY->setContent(doubleText(lY)); });
  bSelecting = false;
}

/// The values in the boxes. False, and told to the user, if one is no number or so large that no
/// line reaches there.
bool frmLinks::readBoxes(double &x, double &y) const {
  try {
    x = CDbl(m_txtX->text().toStdString());
    y = CDbl(m_txtY->text().toStdString());
    const SpriteRect sprite = diagram().surface.spriteRect(lSelectedItem);
    toSingle(sprite.Width * x);
    toSingle(sprite.Height * y);
    return true;
  } catch (const RuntimeError &) {
    showMessageBox({.title = QStringLiteral("Links"),
                    .text = QStringLiteral("X and Y must be numbers within reach, such as 0.5. "
                                           "The link stays where it is."),
                    .icon = MessageBox::Icon::Exclamation,
                    .buttons = MessageBox::Buttons::Ok});
    return false;
  }
}

void frmLinks::optPosition_Click(int Index) {
  LinkRec *const link = currentLink();
  if (link == nullptr || bSelecting)
    return;
  reported("frmLinks", "optPosition_Click", [&] {
    // "Other:" takes what the boxes hold, each time: typing alone stores nothing.
    if (Index != other) {
      const auto [column, row] = at(spots, Index);
      m_txtX->setContent(doubleText(fraction(column)));
      m_txtY->setContent(doubleText(fraction(row)));
    }
    double x = 0;
    double y = 0;
    if (!readBoxes(x, y))
      return;
    (isFirstEnd(*link) ? link->dFromX : link->dToX) = x;
    (isFirstEnd(*link) ? link->dFromY : link->dToY) = y;
    diagram().operations.RefreshLine(static_cast<std::int32_t>(link - Links.data()));
  });
}

void frmLinks::optSecur_Click(std::int32_t Index) {
  LinkRec *const link = currentLink();
  if (link != nullptr && !bSelecting)
    link->lSecur = Index + 1;
}

void frmLinks::cmdRemove_Click() {
  reported("frmLinks", "cmdRemove_Click", [this] {
    const NumberRow *const picked = m_lstLinks->picked();
    if (picked == nullptr)
      return;
    const std::int32_t lLink = picked->number;
    if (showMessageBox({.title = QStringLiteral("Really remove?"),
                        .text = QStringLiteral("Are you sure you want to remove the ") +
                                inSentence(picked->text()) + u'?', // as the row has it
                        .icon = MessageBox::Icon::Question,
                        .buttons = MessageBox::Buttons::YesNo}) != Answer::Yes)
      return;
    diagram().operations.RemoveLink(lLink, false);
    diagram().selection.ClearLinkHilites(); // another line has its number now
    m_lstLinks->removeRow(m_lstLinks->ListIndex());
    m_lstLinks->renumber([&](std::int32_t &number) {
      if (number > lLink)
        --number;
    });
  });
}

} // namespace vnb
