// SPDX-License-Identifier: MIT
/// What the controls of all forms have in common: keys, clicks, the wheel.
#include "formtest.h"
#include "look.h"
#include "widgets/controls.h"
#include "widgets/dropdown.h"
#include "widgets/numberlist.h"
#include "widgets/optiongroup.h"
#include "widgets/pushoption.h"
#include "widgets/textbox.h"

#include <QCheckBox>
#include <QHelpEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace vnb::test {
namespace {

class Controls : public testing::Test {
protected:
  Controls() {
    list->setRows({{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}, {QStringLiteral("c"), 3}});
    list->Click = [this] { picked.push_back(list->ListIndex()); };
    list->setGeometry(0, 0, 100, 100);
    drop->move(0, 100);
    drop->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    button->move(0, 130);
    check->move(0, 160);
    form.resize(200, 200);
    form.show();
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  }

  void clickRow(int row, Qt::KeyboardModifiers modifiers = {}) {
    const QPoint at = list->visualRect(list->model()->index(row, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, row < 0 ? QPoint(50, 90) : at);
  }
  void turnWheel() {
    QWheelEvent down(QPointF(5, 5), drop->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(drop, &down);
  }

  ~Controls() override { EXPECT_THAT(told.texts, IsEmpty()); }

  const Boxes told;
  const Look look;
  FormWindow form{"form", "Form", {100, 100}};
  NumberList *list = add<NumberList>(form, QStringLiteral("list"));
  DropDown *drop = add<DropDown>(form, QStringLiteral("drop"));
  QPushButton *button = add<QPushButton>(form, QStringLiteral("button"));
  QCheckBox *check = add<QCheckBox>(form, QStringLiteral("check"));
  std::vector<int> picked;
};

TEST_F(Controls, AnArrowPicksTheRowThatItStartsFrom) {
  for (const auto key : {Qt::Key_Down, Qt::Key_Up}) {
    button->setFocus();
    list->setRows({{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}});
    list->setFocus();
    QTest::keyClick(list, key);
    EXPECT_EQ(list->ListIndex(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->ListIndex(), 1);
    list->removeRow(1);
    QTest::keyClick(list, key);
    EXPECT_EQ(list->ListIndex(), 0) << "a list of one";
  }
  list->setRows({{QStringLiteral("a"), 1}, {QStringLiteral("b"), 2}, {QStringLiteral("c"), 3}});
  list->setListIndex(1);
  list->removeRow(1);
  EXPECT_EQ(list->ListIndex(), -1);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_EQ(list->ListIndex(), 1) << "the keys go on where it stood";
  list->setRows({});
  for (const auto key : {Qt::Key_Down, Qt::Key_C})
    QTest::keyClick(list, key, key == Qt::Key_C ? Qt::ControlModifier : Qt::NoModifier);
  QCoreApplication::processEvents();
  EXPECT_EQ(list->ListIndex(), -1);
}

TEST_F(Controls, NoClickTakesAPickAwayAndAPickOfTheSameRowCounts) {
  clickRow(-1);
  EXPECT_EQ(list->ListIndex(), -1);
  clickRow(1);
  clickRow(-1);
  clickRow(1, Qt::ControlModifier);
  clickRow(2, Qt::ShiftModifier);
  clickRow(0, Qt::ControlModifier);
  EXPECT_THAT(picked, ElementsAre(1, 1, 2, 0));
  QTest::keyClick(list, Qt::Key_Space);
  EXPECT_THAT(picked, ElementsAre(1, 1, 2, 0, 0));
  drop->Click = [this] { picked.push_back(10 + drop->currentIndex()); };
  drop->setListIndex(0);
  drop->setListIndex(2);
  pick(*drop, 2);
  EXPECT_THAT(picked, ElementsAre(1, 1, 2, 0, 0, 12, 12));
}

TEST_F(Controls, TheWheelTurnsADropDownOnlyWithTheFocus) {
  list->setFocus();
  turnWheel();
  EXPECT_EQ(drop->currentIndex(), 0);
  EXPECT_TRUE(list->hasFocus());
  drop->setFocus();
  turnWheel();
  EXPECT_EQ(drop->currentIndex(), 1);
}

TEST_F(Controls, TabGoesToTheOptionThatIsOn) {
  OptionGroup group;
  std::array<PushOption *, 3> options{};
  for (auto &option : options) {
    option = add<PushOption>(form, {});
    option->show();
    group.addButton(option);
  }
  const auto fromTheCheckBox = [&] {
    check->setFocus();
    QTest::keyClick(check, Qt::Key_Tab);
    return std::ranges::find(options, form.focusWidget()) - options.begin();
  };
  EXPECT_EQ(fromTheCheckBox(), 0);
  group.Click = [this](int id) { picked.push_back(id); };
  options[2]->toggle(); // as assistive technology does
  options[2]->click();
  EXPECT_THAT(picked, ElementsAre(group.id(options[2]), group.id(options[2])));
  EXPECT_EQ(fromTheCheckBox(), 2);
  QTest::keyClick(options[2], Qt::Key_Backtab);
  EXPECT_TRUE(check->hasFocus());
  options[1]->setChecked(true);
  EXPECT_EQ(fromTheCheckBox(), 1);
  group.clear();
  EXPECT_EQ(fromTheCheckBox(), 0);
}

TEST_F(Controls, EnterPressesAButtonAndTurnsNoMark) {
  int presses = 0;
  QObject::connect(button, &QPushButton::clicked, [&] { ++presses; });
  QTest::keyClick(button, Qt::Key_Return);
  EXPECT_EQ(presses, 0) << "without the focus";
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Return);
  QTest::keyClick(button, Qt::Key_Enter);
  EXPECT_EQ(presses, 2);
  check->setFocus();
  QTest::keyClick(check, Qt::Key_Return);
  EXPECT_FALSE(check->isChecked());
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  QTest::keyClick(button, Qt::Key_Return);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(presses, 2) << "what was queued when it closed";
}

/// By a handler without frames of Qt's that keep something: those are left as they are.
TEST_F(Controls, AnErrorThatNoHandlerReportsEndsNothing) {
  const Boxes boxes;
  const auto fail = [&] {
    picked.push_back(static_cast<int>(boxes.texts.size()));
    throw RuntimeError(Fault::Overflow);
  };
  for (int i = 0; i < 2; ++i)
    QMetaObject::invokeMethod(&form, fail, Qt::QueuedConnection);
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_THAT(picked, ElementsAre(0, 0)) << "no box in the middle of an event";
  EXPECT_EQ(boxes.texts, Words(2, "6 Application.notify"));
}

TEST_F(Controls, ShowNoTextAsHtml) {
  const QString text = QStringLiteral("<img src='anything'>");
  check->setToolTip(text);
  QHelpEvent rest(QEvent::ToolTip, QPoint(1, 1), check->mapToGlobal(QPoint(1, 1)));
  QCoreApplication::sendEvent(check, &rest);
  EXPECT_EQ(QToolTip::text(), Qt::convertFromPlainText(text));
  QMessageBox box(QMessageBox::Warning, {}, text); // as Qt's dialogs show them
  box.show();
  EXPECT_EQ(box.textFormat(), Qt::PlainText);
}

TEST_F(Controls, OpenNoMenuWhileTheButtonIsHeld) {
  auto *box = add<TextBox>(form, QStringLiteral("box"));
  box->show();
  for (const bool held : {true, false}) {
    if (held)
      QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, box->geometry().center());
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, box->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(box, &key);
    EXPECT_EQ(QApplication::activePopupWidget() == nullptr, held);
    if (held)
      QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, box->geometry().center());
    else
      QApplication::activePopupWidget()->close();
  }
}

TEST_F(Controls, TakeNoLetterWithAltForText) {
  auto *box = add<TextBox>(form, QStringLiteral("box"));
  for (QWidget *control : {static_cast<QWidget *>(box), static_cast<QWidget *>(drop)})
    for (const auto modifier : {Qt::AltModifier, Qt::MetaModifier})
      QTest::keyClick(control, Qt::Key_C, modifier);
  EXPECT_EQ(box->text() + drop->currentText(), u"a");
  for (QWidget *control : {static_cast<QWidget *>(box), static_cast<QWidget *>(drop)})
    QTest::keyClick(control, Qt::Key_C, Qt::GroupSwitchModifier); // AltGr
  EXPECT_EQ(box->text() + drop->currentText(), u"cc");
}

} // namespace
} // namespace vnb::test
