// SPDX-License-Identifier: MIT
// Highlights, the context menu and the keys.
#include "gesture.h"

#include <QPainter>
#include <QTimer>

#include <map>

using testing::ElementsAre;
using testing::IsEmpty;

namespace vnb::test {
namespace {

// Highlights.

TEST_F(Gesture, AFrameTellsWhyItIsThere) {
  struct Case {
    std::int32_t device;
    Colour colour;
    bool doNotSelect;
    const char *due;
  };
  for (const auto &[device, colour, doNotSelect, due] :
       std::vector<Case>{{hub, SelectedColor, false, "1 solid 2 FFFFFF #1;"},
                         {hub, 0, false, "1 solid 2 0 #1;"},
                         {hub, SubnetColor, true, "1 solid 2 8000;"},
                         {lock, SelectedColor, false, "3 solid 2 FFFFFF #3;"},
                         {lock, SelectedColor, true, "3 solid 2 FFFFFF;"},
                         {lock, LockColor, true, "3 dotted 1 FFFF;"},
                         {lock, SubnetColor, true, "3 dotted 1 8000;"},
                         {lock, 0, false, "3 dotted 1 0 #3;"}}) {
    lSelectedItem = nothing;
    main.selection().SelectItem(device, colour, doNotSelect);
    EXPECT_EQ(frames(), due);
    EXPECT_EQ(lSelectedItem, doNotSelect ? nothing : device);
    lSelectedItem = device;
    main.selection().Deselect();
  }
  LockColor = SelectedColor;
  main.selection().SelectItem(lock, LockColor, true);
  EXPECT_EQ(frames(), "3 solid 2 FFFFFF;");
}

TEST_F(Gesture, AHighlightWipesAllButTaggedOnesAndTheSelected) {
  Selection &selection = main.selection();
  select(hub);
  selection.SelectItem(terminal, SubnetColor, true);
  surface().picSystem(terminal).Tag = SpriteTag::GreenDk;
  selection.SelectItem(lock, LockColor, true);
  selection.SelectItem(server, SubnetColor, true);
  EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;2 solid 2 8000;4 solid 2 8000;");
  selection.SelectItem(server, SubnetSelColor, true);
  selection.SelectItem(terminal, LockColor, true); // the frame of the last one shows
  EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;2 solid 2 FFFF;");
  press(hub).release(); // the same device again: only its own frame is left
  EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;");
  select(terminal);
  EXPECT_EQ(frames(), "2 solid 2 FFFFFF #2;");
  EXPECT_EQ(surface().picSystem(terminal).Tag, SpriteTag::None);
}

TEST_F(Gesture, HighlightsAreClearedByTheirReason) {
  struct Case {
    const char *what;
    void (Selection::*clear)();
    const char *due;
  };
  for (const auto &[what, clear, due] : std::vector<Case>{
           {"locks", &Selection::ClearLockHilites, "0 solid 2 FFFFFF #0;1 solid 2 7;2 solid 2 7;"},
           {"subnets", &Selection::ClearSubnetHilites,
            "0 solid 2 FFFFFF #0;3 dotted 1 7;4 solid 2 7;"},
           {"all", &Selection::ClearAllHilites, "0 solid 2 FFFFFF #0;"}}) {
    select(router);
    const std::map<std::int32_t, SpriteTag> tags{{hub, SpriteTag::Green},
                                                 {terminal, SpriteTag::GreenDk},
                                                 {lock, SpriteTag::Yellow0},
                                                 {server, SpriteTag::Yellow4}};
    for (const auto &[device, tag] : tags) {
      surface().picSystem(device).Tag = tag;
      main.selection().SelectItem(device, 7, true);
    }
    surface().picSystem(router).Tag = SpriteTag::Green;
    (main.selection().*clear)();
    EXPECT_EQ(frames(), due) << what;
    for (std::int32_t i = router; i <= server; ++i)
      EXPECT_EQ(surface().picSystem(i).Tag != SpriteTag::None,
                surface().picSystem(i).layer.frameWidth > 0 &&
                    (i != router || clear == &Selection::ClearLockHilites))
          << what << i;
  }
}

TEST_F(Gesture, DeselectWipesEverythingOnce) {
  link(hub, terminal);
  select(hub);
  surface().picSystem(lock).Tag = SpriteTag::Yellow0;
  main.selection().SelectItem(lock, LockColor, true);
  surface().lneLink(1).BorderColor = LinkSelColor;
  main.selection().Deselect();
  EXPECT_EQ(frames(), "");
  EXPECT_EQ(surface().picSystem(lock).Tag, SpriteTag::None);
  EXPECT_EQ(surface().lneLink(1).BorderColor, LinkColor);
  EXPECT_EQ(lSelectedItem, nothing);
  main.selection().SelectItem(lock, LockColor, true);
  surface().lneLink(1).BorderColor = LinkSelColor;
  main.selection().Deselect(); // with nothing selected nothing is touched
  EXPECT_EQ(frames(), "3 dotted 1 FFFF;");
  EXPECT_EQ(surface().lneLink(1).BorderColor, LinkSelColor);
  select(terminal); // a selection takes the colour off all lines
  EXPECT_EQ(surface().lneLink(1).BorderColor, LinkColor);
}

TEST_F(Gesture, FramesArePaintedAlongTheEdge) {
  constexpr QRgb colour = 0xFFFF00FF;
  const auto painted = [this](std::int32_t device) {
    main.selection().SelectItem(device, 0xFF00FF, true);
    const Sprite &sprite = surface().picSystem(device);
    QImage image(sprite.Width, sprite.Height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.translate(-sprite.Left, -sprite.Top);
    surface().paint(painter, {sprite.Left, sprite.Top, sprite.Width, sprite.Height});
    return image;
  };
  const QImage solid = painted(hub);
  int pixels = 0;
  for (int y = 0; y < solid.height(); ++y)
    for (int x = 0; x < solid.width(); ++x)
      if (solid.pixel(x, y) == colour) {
        ++pixels;
        EXPECT_TRUE(std::min({x, y, solid.width() - 1 - x, solid.height() - 1 - y}) < 2)
            << x << ',' << y;
      }
  EXPECT_EQ(pixels, 2 * 2 * (48 + 20) - 16);
  const QImage dotted = painted(lock);
  int dots = 0;
  for (int x = 1; x < dotted.width() - 1; ++x)
    dots += dotted.pixel(x, 1) == colour ? 1 : 0;
  EXPECT_GE(dots, 8);
  EXPECT_LE(dots, 20);
  EXPECT_NE(dotted.pixel(15, 0), colour);
  EXPECT_NE(dotted.pixel(15, 2), colour);
}

// The context menu.

/// "Links(off)|---|Hub(on)|...": captions with what is greyed and what is checked.
std::string entries(const QMenu &menu) {
  std::ostringstream out;
  for (const QAction *action : menu.actions())
    out << (action == menu.actions().constFirst() ? "" : "|")
        << (action->isSeparator() ? "---" : action->text().toStdString())
        << (action->isEnabled() ? "" : "(off)") << (action->isChecked() ? "(on)" : "");
  return out.str();
}

class DeviceMenu : public Gesture {
protected:
  /// The menu of a device that has just been pressed.
  QMenu &open(std::int32_t device) {
    select(device);
    m_menu = contextMenu.build(device, main);
    return *m_menu;
  }
  QMenu &submenu(const char *name) {
    QMenu &menu = *m_menu->findChild<QMenu *>(QString::fromLatin1(name));
    menu.aboutToShow();
    return menu;
  }
  static void choose(const QMenu &menu, const char *caption) {
    for (QAction *action : menu.actions())
      if (action->text() == QLatin1String(caption))
        return action->trigger();
    FAIL() << "no entry " << caption;
  }

private:
  std::unique_ptr<QMenu> m_menu;
};

TEST_F(DeviceMenu, NamesLinksTypesAndTheDevice) {
  link(hub, lock);
  link(server, hub);
  link(hub, hub);
  link(hub, lock);
  link(router, terminal);
  EXPECT_EQ(entries(open(hub)), "Links|---|&Change type|Remove this hub");
  EXPECT_EQ(entries(submenu("mnuLinks")),
            "Link to Lock 3|Link from Main server 4|Link to Hub 1|Link to Lock 3");
  EXPECT_EQ(entries(submenu("mnuLinks")).size(), 67U) << "built anew, not added to";
  EXPECT_EQ(entries(submenu("mnuChange")),
            "Hub(on)|Switch|Terminal|Main server|Mail server|File server|Authentication server|"
            "Lock|Isolation Bridge|Modem|Session key server|Radio transmitter|Radio receiver|"
            "Fax printer|Log server");
  EXPECT_EQ(entries(open(server)), "Links|---|&Change type|Remove this main server");
  EXPECT_EQ(entries(submenu("mnuLinks")), "Link to Hub 1");
  EXPECT_EQ(entries(open(router)), "Links|---|&Change type(off)|Remove this router(off)");
  EXPECT_EQ(entries(submenu("mnuChange")).find("(on)"), std::string::npos);
  main.operations().RemoveLink(5, false);
  EXPECT_EQ(entries(open(terminal)), "Links(off)|---|&Change type|Remove this terminal");
}

TEST_F(DeviceMenu, RemovesALinkOnYesAndFramesInBlackOnBoth) {
  link(hub, lock);
  link(server, hub);
  for (const auto &[answer, due] : std::vector<std::pair<Answer, const char *>>{
           {Answer::No, "1@0.5,0.5-3@0.5,0.5/1;4@0.5,0.5-1@0.5,0.5/1"},
           {Answer::Yes, "1@0.5,0.5-3@0.5,0.5/1"}}) {
    Boxes asked({answer});
    open(hub);
    choose(submenu("mnuLinks"), "Link from Main server 4");
    EXPECT_EQ(dumpLinks(), due);
    EXPECT_EQ(frames(), "1 solid 2 0 #1;");
    EXPECT_THAT(asked.texts,
                ElementsAre("Are you sure you want to remove the link from Main server 4?"));
    EXPECT_EQ(asked.boxes[0].title, u"Really remove it?");
    EXPECT_EQ(asked.boxes[0].icon, MessageBox::Icon::Question);
    EXPECT_EQ(asked.boxes[0].buttons, MessageBox::Buttons::YesNo);
    select(hub);
    EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;");
  }
  EXPECT_EQ(lines(), "124,60-316,66;");
}

TEST_F(DeviceMenu, RemovesTheDeviceOnYesAndSelectsWhatMovesUp) {
  link(router, lock);
  {
    Boxes no;
    choose(open(hub), "Remove this hub");
    EXPECT_THAT(no.texts, ElementsAre("Really remove this hub?"));
    EXPECT_EQ(no.boxes[0].title, u"Really remove it?");
    EXPECT_EQ(UBound(Systems), server);
    EXPECT_EQ(frames(), "1 solid 2 0 #1;");
  }
  Boxes yesses(yes(2));
  choose(open(terminal), "Remove this terminal");
  EXPECT_EQ(lSelectedItem, 2);
  EXPECT_EQ(surface().picSystem(2).ToolTipText(), u"Lock");
  EXPECT_EQ(at(2) + " " + at(3), "300,50 100,250");
  EXPECT_EQ(frames(), "2 dotted 1 0 #2;") << "a lock that isn't in the colour of selection";
  EXPECT_EQ(lines(), "24,16-316,66;");
  choose(open(3), "Remove this main server"); // the highest number: nothing moves up
  EXPECT_EQ(lSelectedItem, nothing);
  EXPECT_EQ(frames(), "");
  EXPECT_EQ(UBound(Systems), 2);
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(DeviceMenu, RetypingKeepsDataLinesAndFrame) {
  main.operations().AddSystem(5, 300, 250, 3, lock, -1, 7, QStringLiteral("x"));
  const std::int32_t device = server + 1;
  link(hub, device);
  open(device);
  const std::string before = lines();
  choose(submenu("mnuChange"), "Terminal");
  EXPECT_EQ(surface().picSystem(device).ToolTipText(), u"Terminal");
  EXPECT_EQ(surface().picSystem(device).Width, 38);
  EXPECT_EQ(surface().picSystem(device).Picture.cacheKey(), DeviceImages(4).cacheKey());
  EXPECT_EQ(lines(), before) << "until the device is moved";
  EXPECT_EQ(frames().substr(frames().rfind("5 ")), "5 solid 2 FFFFFF #5;");
  select(device);
  EXPECT_EQ(lines(), "124,60-319,268.5;");
  open(device);
  EXPECT_EQ(entries(submenu("mnuChange")).find("Terminal(on)"), 11U);
  choose(submenu("mnuChange"), "Switch");
  EXPECT_EQ(Systems.back().lType, SystemType::Switch);
  choose(submenu("mnuChange"), "Main server");
  EXPECT_EQ(dumpSystems().substr(dumpSystems().rfind(';')), ";MAINSERVER 300 250 3 3 -1 7 'x'");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(DeviceMenu, OpensAtARightClickAndRunsItsEntry) {
  Boxes yesses(yes(1));
  std::string shown;
  press(hub, Qt::RightButton, {3, 4});
  QTimer::singleShot(0, [&] { // within the menu's own loop
    auto *popup = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    shown = entries(*popup);
    EXPECT_EQ(popup->geometry().topLeft(), surface().mapToGlobal(QPoint(103, 54)));
    popup->setActiveAction(popup->actions().constLast());
    QTest::keyClick(popup, Qt::Key_Return);
  });
  release();
  EXPECT_EQ(shown, "Links(off)|---|&Change type|Remove this hub");
  EXPECT_THAT(yesses.texts, ElementsAre("Really remove this hub?"));
  EXPECT_EQ(UBound(Systems), server - 1);
  select(terminal); // no button is stuck
  EXPECT_EQ(lSelectedItem, terminal);
}

// The keys.

class Keys : public Gesture {
protected:
  /// What a key brings about, in a word; empty for nothing.
  std::string happens(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    std::string happened;
    dialogs.clear();
    Boxes asked;
    add(2, 400, 300);
    const std::int32_t before = UBound(Systems);
    QTimer closer;
    closer.callOnTimeout([&] {
      if (QWidget *window = QApplication::activeModalWidget()) {
        happened += window->objectName().toStdString();
        window->close();
      }
    });
    closer.start();
    QTest::keyClick(main.windowHandle(), key, modifiers);
    for (QWidget *window : QApplication::topLevelWidgets())
      if (window->isVisible() && window != &main) {
        happened += window->objectName().toStdString();
        window->close();
      }
    QCoreApplication::processEvents();
    for (const std::string &title : dialogs)
      happened += title;
    for (const std::string &text : asked.texts)
      happened += text;
    if (UBound(Systems) != before)
      happened += "new";
    return happened;
  }
};

TEST_F(Keys, RunWhatTheirModifiersSayAndNothingElse) {
  const std::map<std::pair<Qt::Key, int>, std::string> due{
      {{Qt::Key_N, Qt::ControlModifier}, "new"},
      {{Qt::Key_O, Qt::ControlModifier}, "Open LAN"},
      {{Qt::Key_S, Qt::ControlModifier}, "Save LAN"},
      {{Qt::Key_T, Qt::ControlModifier}, "frmThemes"},
      {{Qt::Key_P, Qt::ControlModifier}, "frmSettings"},
      {{Qt::Key_A, Qt::ControlModifier}, "frmAbout"},
      {{Qt::Key_T, Qt::AltModifier}, "frmToolbox"},
      {{Qt::Key_I, Qt::AltModifier}, "frmLanInfo"},
      {{Qt::Key_L, Qt::AltModifier}, "frmLinks"},
      {{Qt::Key_D, Qt::AltModifier}, "frmDevice"},
      {{Qt::Key_S, Qt::AltModifier}, "frmSubnet"},
  };
  const std::vector<Qt::KeyboardModifiers> states{{},
                                                  Qt::ShiftModifier,
                                                  Qt::ControlModifier,
                                                  Qt::AltModifier,
                                                  Qt::ShiftModifier | Qt::ControlModifier,
                                                  Qt::ShiftModifier | Qt::AltModifier,
                                                  Qt::ControlModifier | Qt::AltModifier,
                                                  Qt::ShiftModifier | Qt::ControlModifier |
                                                      Qt::AltModifier};
  for (const Qt::Key key : {Qt::Key_T, Qt::Key_I, Qt::Key_L, Qt::Key_D, Qt::Key_S, Qt::Key_N,
                            Qt::Key_O, Qt::Key_P, Qt::Key_A, Qt::Key_Delete, Qt::Key_Backspace})
    for (const Qt::KeyboardModifiers modifiers : states) {
      lSelectedItem = nothing;
      const auto row = due.find({key, static_cast<int>(modifiers)});
      EXPECT_EQ(happens(key, modifiers), row == due.end() ? "" : row->second)
          << key << ' ' << modifiers.toInt();
    }
}

TEST_F(Keys, DeleteRemovesButNotWithCtrlOrAltAlone) {
  const std::vector<std::pair<Qt::KeyboardModifiers, bool>> rows{
      {{}, true},
      {Qt::ShiftModifier, true},
      {Qt::ControlModifier, false},
      {Qt::AltModifier, false},
      {Qt::ShiftModifier | Qt::ControlModifier, true},
      {Qt::ShiftModifier | Qt::AltModifier, true},
      {Qt::ControlModifier | Qt::AltModifier, true}};
  for (const auto &[modifiers, removes] : rows) {
    select(hub);
    EXPECT_EQ(happens(Qt::Key_Delete, modifiers), removes ? "Really remove this hub?" : "")
        << modifiers.toInt();
    select(router);
    EXPECT_EQ(happens(Qt::Key_Delete, modifiers), "");
    click(450, 100);
    EXPECT_EQ(happens(Qt::Key_Delete, modifiers), "");
  }
  select(hub);
  Boxes yesses(yes(1));
  const std::int32_t before = UBound(Systems);
  QTest::keyClick(main.windowHandle(), Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(UBound(Systems), before - 1);
  EXPECT_EQ(frames(), "1 solid 2 0 #1;");
}

} // namespace
} // namespace vnb::test
