// SPDX-License-Identifier: MIT
#include "shell/frmAbout.h"

#include "runtime/report.h"
#include "shell/abouttexts.h"
#include "shell/pagebutton.h"
#include "widgets/controls.h"
#include "widgets/pictures.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>

namespace vnb {
namespace {

struct ButtonRow {
  const char *caption;
  int left; // twips
  PageButton::Colours colours;
};

constexpr PageButton::Colours plainColours{0xFFFFFFFF, 0xFFFFFFFF, 0xFF404040};
constexpr PageButton::Colours fieryColours{0xFFFF0000, 0xFFFF8000, 0xFF804000};

constexpr std::array<ButtonRow, 3> buttons{{{"About", 30, plainColours},
                                            {testersCaption, 1335, plainColours},
                                            {"Flying", 2640, fieryColours}}};
constexpr std::size_t hiddenButton = 2;

} // namespace

frmAbout::frmAbout() : FormWindow("frmAbout", "About", {5970, 4290}) {
  setPalette(QPalette(Qt::white, Qt::black, Qt::gray, Qt::darkGray, Qt::darkGray, Qt::white,
                      Qt::white, Qt::black, Qt::black));
  addButtons();
  m_picAbout = addLabel(*this, "picAbout", {}, {330, 540, 5310, 3600});
  m_picAbout->setPixmap(LoadResPicture(QStringLiteral("LOGO")));
  m_picAbout->setAccessibleName(QStringLiteral("Vantry Network Builder"));
  m_txtAbout = add<QPlainTextEdit>(*this, "txtAbout");
  m_txtAbout->setAccessibleName(QStringLiteral("Page text"));
  m_txtAbout->setReadOnly(true);
  m_txtAbout->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  QFont arial(QStringLiteral("Arial"));
  arial.setPointSizeF(9.75);
  m_txtAbout->setFont(arial);
  place(*m_txtAbout, {30, 450, 5910, 3780});
  showPage(false);
  // Not the first button: the mark of the focus could be taken for that of a page. Tab passes the
  // form by, as it shows no such mark.
  setFocusPolicy(Qt::ClickFocus);
  setFocus();
}

void frmAbout::addButtons() {
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    auto *button = add<PageButton>(*this, QStringLiteral("picButton%1").arg(i), buttons[i].colours);
    button->setText(QString::fromLatin1(buttons[i].caption));
    button->setAccessibleName(button->text());
    place(*button, {buttons[i].left, 30, 1275, 345});
    connect(button, &PageButton::clicked, this, [this, i] { picButton_Click(i); });
    m_picButton[i] = button;
  }
  m_picButton[hiddenButton]->hide();
}

void frmAbout::paintEvent(QPaintEvent *event) {
  QPainter(this).fillRect(event->rect(), Qt::black);
}

void frmAbout::showPage(bool page) {
  m_txtAbout->setVisible(page);
  m_picAbout->setVisible(!page);
}

/// Opens a page, or closes it if it is open.
void frmAbout::picButton_Click(std::size_t Index) {
  reported("frmAbout", "picButton_Click", [&] {
    const bool open = !m_picButton[Index]->isSelected();
    for (PageButton *button : m_picButton)
      button->setSelected(false);
    showPage(open);
    if (!open)
      return;
    m_picButton[Index]->setSelected(true);
    // Anew each time, which also goes back to the first line.
    m_txtAbout->setPlainText(aboutText(static_cast<int>(Index)));
  });
}

void frmAbout::mouseDoubleClickEvent(QMouseEvent *event) {
  // One on a child doesn't count.
  if (childAt(event->position().toPoint()) == nullptr)
    reported("frmAbout", "Form_DblClick", [this] { m_picButton[hiddenButton]->show(); });
}

} // namespace vnb
