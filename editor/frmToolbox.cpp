// SPDX-License-Identifier: MIT
#include "editor/frmToolbox.h"

#include "appearance/colours.h"
#include "appearance/images.h"
#include "editor/gestures.h"
#include "runtime/messagebox.h"
#include "runtime/report.h"
#include "runtime/twips.h"
#include "widgets/controls.h"
#include "widgets/drag.h"
#include "widgets/dropdown.h"
#include "widgets/picturebox.h"
#include "widgets/style.h"

#include <QPainter>
#include <QPushButton>

namespace vnb {
namespace {

/// The area in which the preview is centred.
const QRect shpPreview(pixels(2130), pixels(120), pixels(1260), pixels(990));

void refuse() {
  showMessageBox({.title = QStringLiteral("Non-addable item"),
                  .text = QStringLiteral("This item cannot be added!"),
                  .icon = MessageBox::Icon::Exclamation,
                  .buttons = MessageBox::Buttons::Ok});
}

} // namespace

frmToolbox::frmToolbox(DocumentOperations &operations, Gestures &gestures)
    : FormWindow("frmToolbox", "Toolbox", {3540, 1290}), m_operations(operations),
      m_gestures(gestures) {
  m_cboItem = add<DropDown>(*this, "cboItem");
  // For assistive technology, which takes a drop-down list's name from its value.
  QLabel *lblItem = addLabel(*this, "lblItem", "Device type:", {});
  nameAfter(*m_cboItem, *lblItem);
  lblItem->hide();
  m_cboItem->setMaxVisibleItems(SystemType::Last);
  place(*m_cboItem, {90, 375, 1860, 300});
  auto *cmdAdd = addCaptioned<QPushButton>(*this, "cmdAdd", "Add to LAN", {90, 765, 1860, 360});
  m_picPreview = add<PictureBox>(*this, "picPreview");
  m_picPreview->setAccessibleName(QStringLiteral("Preview"));
  QLabel *lblPreview = addLabel(*this, "lblPreview", "Preview", {2205, 30, 735, 180});
  // The label lies over the frame's upper edge.
  lblPreview->setAutoFillBackground(true);
  lblPreview->setBackgroundRole(QPalette::Base);
  for (std::int32_t lType = SystemType::FirstToPick; lType <= SystemType::Last; ++lType) {
    const std::string_view entry = typeRow(lType).toolbox;
    m_cboItem->addItem(QLatin1String(entry.data(), static_cast<qsizetype>(entry.size())));
  }
  m_cboItem->Click = [this] { cboItem_Click(); };
  connect(cmdAdd, &QPushButton::clicked, this, &frmToolbox::cmdAdd_Click);
  m_picPreview->MouseDown = [this](Qt::MouseButton Button, QPoint at, QPoint global) {
    picPreview_MouseDown(Button, at, global);
  };
}

void frmToolbox::Form_Load() {
  m_cboItem->setCurrentIndex(0);
  cboItem_Click();
  UpdateColors();
}

void frmToolbox::UpdateColors() {
  applyColours(*this);
  update();
}

void frmToolbox::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  paintFrame(painter, shpPreview, toQColor(TextColor));
}

/// The form may be older than the pictures: a theme that can't be loaded leaves none.
void frmToolbox::showEvent(QShowEvent * /*event*/) {
  if (m_picPreview->isEmpty())
    cboItem_Click();
}

std::int32_t frmToolbox::chosenType() const {
  return m_cboItem->currentIndex() + SystemType::FirstToPick;
}

/// The game has no switches; one can be made by changing a device's type.
bool frmToolbox::mayAdd() const {
  return chosenType() != SystemType::Switch;
}

void frmToolbox::cboItem_Click() {
  reported("frmToolbox", "cboItem_Click", [this] {
    m_picPreview->setPicture(DeviceImages(chosenType()));
    const QSize room = (shpPreview.size() - m_picPreview->size()) / 2;
    m_picPreview->move(shpPreview.left() + room.width(), shpPreview.top() + room.height());
  });
}

void frmToolbox::cmdAdd_Click() {
  reported("frmToolbox", "cmdAdd_Click", [this] {
    if (!mayAdd()) {
      refuse();
      return;
    }
    m_operations.AddSystem(chosenType(), 0, 0, 1, -1, -1, -1, {});
  });
}

void frmToolbox::picPreview_MouseDown(Qt::MouseButton Button, QPoint at, QPoint global) {
  if (Button != Qt::LeftButton)
    return;
  reported("frmToolbox", "picPreview_MouseDown", [&] {
    Drag::instance().begin({.widget = m_picPreview,
                            .size = m_picPreview->size(),
                            .grab = at,
                            .drop =
                                [this, at](QWidget &target, QPoint place) {
                                  // First: a drop beside the layout is none to refuse.
                                  if (!m_gestures.takesDrops(target))
                                    return;
                                  if (mayAdd())
                                    m_gestures.dropDevice(target, place, chosenType(), at);
                                  else
                                    refuse();
                                }},
                           global);
  });
}

} // namespace vnb
