// SPDX-License-Identifier: MIT
// What a step of a session doesn't tell: drags cut short, the toolbox, the context menu, the keys.
#include "gesture.h"
#include "panels/frmLinks.h"
#include "widgets/drag.h"
#include "widgets/longmenu.h"
#include "widgets/pictures.h"

#include <QListView>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>

#include <map>

namespace vnb::test {
namespace {

TEST_F(Gesture, ADragThatIsCutShortDropsNothing) {
  QMessageBox box;
  box.setModal(true);
  for (const auto &[what, cut] : std::vector<std::pair<const char *, std::function<void()>>>{
           {"Escape", [&] { QTest::keyClick(main.windowHandle(), Qt::Key_Escape); }},
           {"the release was lost",
            [&] {
              pointer.loseRelease();
              moveTo(150, 80);
            }},
           {"a box over the window", [&] { box.show(); }},
           {"the window is closed", [&] { main.close(); }}}) {
    press(hub).moveTo(200, 90);
    EXPECT_TRUE(Drag::instance().isActive()) << what;
    cut();
    QCoreApplication::processEvents();
    EXPECT_FALSE(Drag::instance().isActive()) << what;
    box.hide();
    moveTo(210, 90).release();
    EXPECT_EQ(at(hub), "100,50") << what;
    EXPECT_EQ(lSelectedItem, hub) << what << ": nor was the release a click";
  }
  QTest::mousePress(&surface(), Qt::LeftButton, {}, QPoint(110, 60)); // queued behind the close
  QTest::keyClick(&main, Qt::Key_Delete);
  EXPECT_FALSE(Drag::instance().isActive());
  EXPECT_THAT(boxes.texts, IsEmpty());
}

// The toolbox.

TEST_F(Gesture, ToolboxAndSurfaceShowThePictureOfEachType) {
  put(router, 400, 400);
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    main.operations().ReplaceSystem(hub, lType);
    const QImage due = DeviceImages(lType).toImage().convertToFormat(QImage::Format_RGB32);
    const QRect place(QPoint(100, 50), surface().spriteRect(hub).size());
    const auto expectDue = [&](const QPixmap &seen) {
      EXPECT_EQ(seen.toImage().convertToFormat(QImage::Format_RGB32), due) << lType;
    };
    expectDue(surface().grab(place));
    if (const int row = lType - SystemType::FirstToPick; row >= 0) {
      toolbox(row);
      expectDue(preview().grab());
    }
    const QString sharp = QStringLiteral(":/pictures/%1@2x.png").arg(ResIDFromType(lType));
    EXPECT_EQ(QImage(sharp).size(), due.size() * 2) << lType;
  }
  EXPECT_THROW(LoadResPicture(QStringLiteral("NOSUCH")), RuntimeError);
}

// The context menu.

/// Its links are a list of our own, however many they are.
TEST_F(Gesture, TheLinksOfTheMenuAreWalkedAndPickedAsInAnyMenu) {
  std::vector<std::int32_t> picked;
  LongMenu menu(QStringLiteral("Links"), nullptr);
  menu.Click = [&](const NumberRow &row) { picked.push_back(row.number); };
  menu.setRows(
      {{u"Link to Hub"_qs, 5, 1}, {u"Link to Hub"_qs, 6, 2}, {u"Link from Lock"_qs, 7, 3}});
  auto &list = *menu.findChild<QListView *>();
  const auto rowAt = [&](int row) { return list.visualRect(list.model()->index(row, 0)).center(); };
  struct Case {
    std::vector<Qt::Key> keys;
    std::int32_t due;
  };
  for (const auto &[keys, due] :
       std::vector<Case>{{{Qt::Key_Down, Qt::Key_Return}, 5},
                         {{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, 6},
                         {{Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Enter}, 7},
                         {{Qt::Key_Down, Qt::Key_Up, Qt::Key_Enter}, 7},
                         {{Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, 5},
                         {{Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape}, nothing}}) {
    menu.setRows(menu.rows()); // as at each opening
    menu.popup({});
    picked.clear();
    for (const Qt::Key key : keys)
      QTest::keyClick(&menu, key);
    EXPECT_EQ(picked, due == nothing ? std::vector<std::int32_t>() : std::vector{due});
    EXPECT_FALSE(menu.isVisible());
  }
  menu.popup({});
  const QImage none = list.grab().toImage();
  QTest::mouseMove(list.viewport(), rowAt(2));
  EXPECT_EQ(list.currentIndex().row(), 2);
  EXPECT_NE(list.grab().toImage(), none) << "highlighted";
  int ink = 0;
  for (int x = 0; x < none.width(); ++x)
    ink += none.pixel(x, none.height() / 6) == none.pixel(0, 0) ? 0 : 1;
  EXPECT_GT(ink, 9) << "the text of the first entry";
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, rowAt(1));
  EXPECT_THAT(picked, ElementsAre(6));
  EXPECT_EQ(list.height() / list.visualRect(list.model()->index(0, 0)).height(), 3);
  std::vector<NumberRow> rows(5000, {u"Link from Hub"_qs, 1, 9});
  rows[7].shown = 1234567890;
  menu.setRows(rows);
  menu.popup({});
  EXPECT_LT(menu.height(), main.screen()->size().height());
  EXPECT_LE(list.height(), menu.height());
  EXPECT_GT(list.viewport()->width(),
            menu.fontMetrics().horizontalAdvance(u"Link from Hub 1234567890"_qs));
}

TEST_F(Gesture, TheMenuOpensAtARightClickAndRunsItsEntry) {
  const Boxes yesses(yes(1));
  press(hub, Qt::RightButton, {3, 4});
  QTimer::singleShot(0, [&] { // within the menu's own loop
    auto *popup = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->objectName(), u"mnuPopup");
    EXPECT_EQ(popup->geometry().topLeft(), surface().mapToGlobal(QPoint(103, 54)));
    popup->setActiveAction(popup->actions().constLast());
    QTest::keyClick(popup, Qt::Key_Return);
  });
  release();
  EXPECT_THAT(yesses.texts, ElementsAre("Really remove this hub?"));
  EXPECT_EQ(UBound(Systems), server - 1);
  select(terminal); // no button is stuck
  EXPECT_EQ(lSelectedItem, terminal);
}

/// A program that had no time gets all at once: the answer, and what was done behind the box.
TEST_F(Gesture, WhatFollowsAnAnswerWaitsForItsWork) {
  showMessageBox = showMessageWindow;
  link(hub, terminal);
  select(hub);
  main.picLink_Click();
  auto &panel = main.forms().get<frmLinks>();
  use(panel, "lstLinks=0");
  QTimer::singleShot(0, [&] {
    QWindow *box = QApplication::activeModalWidget()->windowHandle();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      qt_handleKeyEvent(box, type, Qt::Key_Return, {}, {}, false, 1);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
      qt_handleMouseEvent(main.windowHandle(), QPoint(400, 300), QPoint(400, 300),
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::LeftButton, type, {}, 0);
  });
  use(panel, "cmdRemove");
  EXPECT_EQ(lSelectedItem, hub);
  EXPECT_EQ(dumpLinks(), "");
  EXPECT_TRUE(controlOf<NumberList>(panel, "lstLinks").rows().empty());
}

// The keys.

TEST_F(Gesture, KeysRunWhatTheirModifiersSayAndNothingElse) {
  // What a key brings about, in a word; empty for nothing.
  const auto happens = [this](const QKeyCombination &keys) {
    std::string happened;
    dialogs.clear();
    const Boxes asked;
    const std::int32_t before = UBound(Systems);
    const auto closeOthers = [&] {
      for (QWidget *window : QApplication::topLevelWidgets())
        if (window->isVisible() && window != &main) {
          happened += window->objectName().toStdString();
          window->close();
        }
    };
    QTimer closer; // within the loop of a modal one
    closer.callOnTimeout(closeOthers);
    closer.start();
    QTest::keyClick(main.windowHandle(), keys.key(), keys.keyboardModifiers());
    closeOthers();
    QCoreApplication::processEvents();
    for (const FileDialog &dialog : dialogs)
      happened += dialog.title.toStdString();
    for (const std::string &text : asked.texts)
      happened += text;
    return UBound(Systems) == before ? happened : happened + "new";
  };
  const auto table = sides({"Ctrl+N -> new", "Ctrl+O -> Open LAN", "Ctrl+S -> Save LAN",
                            "Ctrl+T -> frmThemes", "Ctrl+P -> frmSettings", "Ctrl+A -> frmAbout",
                            "Alt+T -> frmToolbox", "Alt+I -> frmLanInfo", "Alt+L -> frmLinks",
                            "Alt+D -> frmDevice", "Alt+S -> frmSubnet"});
  std::map<std::string, std::string> rows(table.begin(), table.end());
  for (const std::string keys :
       {"", "Shift+", "Ctrl+Shift+", "Alt+Shift+", "Ctrl+Alt+", "Ctrl+Alt+Shift+"})
    rows[keys + "Del"] = "Really remove this hub?";
  for (const Qt::Key key : {Qt::Key_T, Qt::Key_I, Qt::Key_L, Qt::Key_D, Qt::Key_S, Qt::Key_N,
                            Qt::Key_O, Qt::Key_P, Qt::Key_A, Qt::Key_Delete, Qt::Key_Backspace})
    for (int state = 0; state < 8; ++state)
      for (const std::int32_t device : {nothing, router, hub}) {
        // Shift, Ctrl and Alt are neighbours
        const QKeyCombination keys(Qt::KeyboardModifiers(state * int{Qt::ShiftModifier}), key);
        const std::string name = QKeySequence(keys).toString().toStdString();
        add(2, 400, 300);
        main.selection().Deselect();
        if (device != nothing)
          main.selection().SelectItem(device, SelectedColor, false);
        EXPECT_EQ(happens(keys), key == Qt::Key_Delete && device != hub ? "" : rows[name]) << name;
      }
}

} // namespace
} // namespace vnb::test
