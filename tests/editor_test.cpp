// SPDX-License-Identifier: MIT
// What the main window does besides the steps of sessions: toolbar, start and end.
#include "editor/termination.h"
#include "gesture.h"
#include "shell/frmSplash.h"

#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include <csignal>

namespace vnb::test {
namespace {

class Editor : public Gesture {
protected:
  Editor() {
    for (const ToolbarButton &button : toolbarButtons())
      main.view().loadButtonImages(QString::fromLatin1(button.tag), QStringLiteral("||"));
  }
};

TEST_F(Editor, LettersCountByTheirKeyInAnyLayout) {
  const auto click = [this](int key, quint32 scanCode, Qt::KeyboardModifiers modifiers) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
      QCoreApplication::sendEvent(&main, &event);
    }
    return dialogs.size();
  };
  EXPECT_EQ(click(0x429, 32, Qt::ControlModifier), 1U) << "the key of O";
  EXPECT_EQ(click(Qt::Key_O, 40, Qt::ControlModifier), 2U) << "an O, wherever it is";
  EXPECT_EQ(click(0x429, 33, Qt::ShiftModifier), 2U) << "the key of P";
}

TEST_F(Editor, ButtonsShowTheirStateAndRunOnlyInside) {
  QWidget *button = &child("picLoad");
  const QImage off = button->grab().toImage();
  QTest::mousePress(button, Qt::RightButton);
  EXPECT_NE(button->grab().toImage(), off);
  QTest::mouseRelease(button, Qt::RightButton, {}, QPoint(50, 50));
  EXPECT_EQ(button->grab().toImage(), off);
  EXPECT_THAT(dialogs, IsEmpty());
  QTest::mouseClick(button, Qt::MiddleButton);
  EXPECT_EQ(dialogs.size(), 1U);

  QTest::mousePress(button, Qt::LeftButton);
  QMessageBox box(&main);
  box.open();
  EXPECT_EQ(button->grab().toImage(), off) << "the release goes to the box";
  box.close();
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_EQ(dialogs.size(), 1U);
}

TEST_F(Editor, ThinLinesPartTheToolbar) {
  BackgroundColor = 0x302010;
  SeparatorColor = 0x776655;
  main.view().UpdateColors();
  const QImage toolbar = child("picToolbar").grab().toImage();
  std::string separators;
  for (int x = 270; x < toolbar.width(); ++x)
    if (toolbar.pixelColor(x, 2) == toQColor(SeparatorColor))
      separators += std::to_string(x) + " ";
  EXPECT_EQ(separators, "289 290 ");
  for (const auto &[y, colour] :
       {std::pair(26, BackgroundColor), {27, SeparatorColor}, {28, BackgroundColor}})
    EXPECT_EQ(toolbar.pixelColor(0, y), toQColor(colour));
}

TEST(Start, ShowsTheWindowAndItsEndStoresWhatIsInForce) {
  const Folder folder;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path("")));
  folder.file("Main/PosX=300\nMain/PosY=450\n", "VNB.ini");
  const Boxes boxes(yes(1)); // no theme is beside this program
  frmMain main;
  const QPointer<frmSplash> form = &main.forms().get<frmSplash>();
  showMessageBox = [&form, answer = showMessageBox](const MessageBox &box) {
    EXPECT_TRUE(form->isVisible());
    return answer(box);
  };
  main.Form_Load();
  EXPECT_EQ(main.windowTitle(), u"Vantry Network Builder v6.2.5");
  EXPECT_TRUE(main.isVisible());
  EXPECT_FALSE(form->isVisible());
  main.move(40, 60);
  EXPECT_TRUE(main.close());
  EXPECT_FALSE(main.isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(form.isNull());
  EXPECT_THAT(Folder::bytes(folder.path("VNB.ini")).toStdString(),
              HasSubstr("PosX=600\nPosY=900\n"));
  EXPECT_THAT(boxes.texts, ElementsAre("53 frmMain.LoadSettings"));
}

/// Whoever waits gets No or nothing, asks in vain from then on, and is done before the end.
TEST(Termination, EndsOnlyWhenNobodyWaits) {
  QApplication::setQuitOnLastWindowClosed(false);
  for (const bool bySignal : {true, false}) {
    Words order;
    const auto ask = [&order] {
      const MessageBox question{.title = {}, .text = {}, .buttons = MessageBox::Buttons::YesNo};
      order.emplace_back(showMessageBox(question) == Answer::No ? "no" : "yes");
    };
    const Boxes boxes; // takes the place of the real ones in the end
    showMessageBox = showMessageWindow;
    const Termination termination([&] { order.emplace_back("end"); }, {});
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, ask);
      QMenu menu;
      menu.addAction(QStringLiteral("entry"));
      order.emplace_back(menu.exec(QPoint()) == nullptr ? "no entry" : "entry");
      ask();
    });
    QTimer::singleShot(50, [&] { bySignal ? void(std::raise(SIGTERM)) : QApplication::quit(); });
    QApplication::exec();
    EXPECT_THAT(order, testing::ElementsAre("no", "no entry", "no", "end"));
  }
}

} // namespace
} // namespace vnb::test
