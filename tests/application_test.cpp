// SPDX-License-Identifier: MIT
// What holds for every window and handler.
#include "formtest.h"
#include "widgets/controls.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCompleter>
#include <QHelpEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTextDocument>
#include <QToolTip>

namespace vnb::test {
namespace {

class Everywhere : public testing::Test {
protected:
  Everywhere() {
    check->move(0, 100);
    form.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
  }

  const Boxes boxes;
  FormWindow form{"form", "Form", {3000, 3000}};
  TextBox *box = add<TextBox>(form, QStringLiteral("box"));
  QCheckBox *check = add<QCheckBox>(form, QStringLiteral("check"));
};

/// By a handler without frames of Qt's that keep something: those are left as they are.
TEST_F(Everywhere, AnErrorThatNoHandlerReportsEndsNothing) {
  const auto fail = [&] {
    EXPECT_THAT(boxes.texts, IsEmpty()) << "no box in the middle of an event";
    throw RuntimeError(Fault::Overflow);
  };
  for (int i = 0; i < 2; ++i)
    QMetaObject::invokeMethod(&form, fail, Qt::QueuedConnection);
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
  EXPECT_EQ(boxes.texts, Words(2, "6 Application.notify"));
}

TEST_F(Everywhere, NoTextIsHtml) {
  const QString text = QStringLiteral("<img src='anything'>");
  check->setToolTip(text);
  QHelpEvent rest(QEvent::ToolTip, QPoint(1, 1), check->mapToGlobal(QPoint(1, 1)));
  QCoreApplication::sendEvent(check, &rest);
  EXPECT_EQ(QToolTip::text(), Qt::convertFromPlainText(text));
  QMessageBox message(QMessageBox::Warning, {}, text); // as Qt's dialogs show them
  message.show();
  EXPECT_EQ(message.textFormat(), Qt::PlainText);
}

TEST_F(Everywhere, NoMenuOpensWhileTheButtonIsHeld) {
  for (const auto action : {QTest::MousePress, QTest::MouseRelease}) {
    QTest::mouseEvent(action, form.windowHandle(), Qt::LeftButton, {}, box->geometry().center());
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, box->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(box, &key);
    EXPECT_EQ(QApplication::activePopupWidget() == nullptr, action == QTest::MousePress);
  }
  QApplication::activePopupWidget()->close();
}

TEST_F(Everywhere, WhatIsQueuedBehindAClosedFormActsOnNothing) {
  check->setFocus();
  QTest::keyClick(check, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  // As when all that is queued comes in one go, before the form's deletion.
  QCoreApplication::removePostedEvents(&form, QEvent::DeferredDelete);
  QWindow *window = form.windowHandle();
  QTest::keyClick(window, Qt::Key_Space);
  EXPECT_FALSE(check->isChecked());
  QTest::mouseClick(window, Qt::LeftButton, {}, check->geometry().center());
  EXPECT_FALSE(check->isChecked());
}

TEST_F(Everywhere, WhatIsQueuedBehindAClosedMenuActsOnNothing) {
  QMenu menu;
  bool chosen = false;
  QMenu &submenu = *menu.addMenu(QStringLiteral("submenu"));
  QObject::connect(menu.addAction(QStringLiteral("entry")), &QAction::triggered,
                   [&chosen] { chosen = true; });
  submenu.addAction(QStringLiteral("entry"));
  menu.popup(QPoint());
  const QPoint entry = menu.rect().center() + QPoint(0, menu.height() / 4);
  menu.close();
  for (int i = 0; i < 2; ++i)
    QTest::keyClick(menu.windowHandle(), Qt::Key_Return); // to the first entry, and into it
  EXPECT_FALSE(submenu.isVisible());
  QTest::mouseClick(menu.windowHandle(), Qt::LeftButton, {}, entry);
  EXPECT_FALSE(chosen);
}

/// The field would else lack letters that are typed fast.
TEST_F(Everywhere, AHiddenListOfCompletionsHandsItsKeysOn) {
  QCompleter completer({QStringLiteral("abc")});
  box->setCompleter(&completer);
  box->setFocus();
  QTest::keyClick(form.windowHandle(), 'a');
  QWindow *list = completer.popup()->windowHandle();
  EXPECT_TRUE(list->isVisible());
  completer.popup()->hide();
  QTest::keyClick(list, 'b');
  EXPECT_EQ(box->text(), u"ab");
}

} // namespace
} // namespace vnb::test
