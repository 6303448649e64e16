// SPDX-License-Identifier: MIT
// Moving, linking and adding devices with the pointer, driven through the windows as a display
// server would.
#include "forms/drag.h"
#include "gesture.h"

#include <QMessageBox>
#include <QPushButton>

using testing::ElementsAre;
using testing::IsEmpty;

namespace vnb::test {
namespace {

// Select and move.

TEST_F(Gesture, APressSelectsAndOnlyTheLeftButtonDrags) {
  std::vector<std::int32_t> menus;
  gestures().openMenu = [&](std::int32_t Index, QPoint) { menus.push_back(Index); };
  press(terminal);
  EXPECT_EQ(lSelectedItem, terminal);
  EXPECT_TRUE(Drag::instance().isActive());
  moveTo(210, 160);
  EXPECT_EQ(at(terminal), "200,150"); // moves only when it is dropped
  release();
  EXPECT_EQ(at(terminal), "210,160");
  EXPECT_EQ(lSelectedItem, terminal);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    press(hub, button);
    EXPECT_EQ(lSelectedItem, hub);
    EXPECT_FALSE(Drag::instance().isActive());
    moveTo(200, 90).release();
    EXPECT_EQ(at(hub), "100,50");
    EXPECT_EQ(lSelectedItem, hub); // the release was no click on the surface
    select(lock);
  }
  EXPECT_THAT(menus, ElementsAre(hub));
}

TEST_F(Gesture, ADeviceLandsWhereItIsDropped) {
  struct Case {
    const char *what;
    QPoint grab; // within the hub
    QPoint scrolled;
    const char *target; // the surface if null
    QPoint to;          // within the target
    const char *due;
  };
  const QRect square(522, 451, 16, 16); // of the form, between the scroll bars
  for (const auto &[what, grab, scrolled, target, to, due] : std::vector<Case>{
           {"on the surface", {}, {}, nullptr, {200, 90}, "200,90"},
           {"without a snap", {7, 3}, {}, nullptr, {203, 91}, "196,88"},
           {"past the corner", {40, 15}, {}, nullptr, {3, 1}, "-37,-14"},
           {"on another device", {7, 3}, {}, nullptr, {310, 60}, "303,57"},
           {"on itself", {7, 3}, {}, nullptr, {120, 60}, "113,57"},
           {"in place", {7, 3}, {}, nullptr, {107, 53}, "100,50"},
           {"on a scrolled surface", {2, 2}, {60, 40}, nullptr, {570, 450}, "568,448"},
           {"on the bare form", {2, 2}, {}, "frmMain", square.topLeft(), "520,449"},
           {"on the bare form, scrolled", {}, {60, 40}, "frmMain", square.center(), "529,458"},
           {"on the tool bar", {}, {}, "picToolbar", {300, 10}, "100,50"},
           {"on a button", {}, {}, "picNew", {10, 10}, "100,50"},
           {"on a scroll bar", {}, {}, "vsbScroll", {5, 200}, "100,50"},
           {"outside all windows", {}, {}, "frmMain", {-20, -20}, "100,50"},
           {"outside, over hidden surface", {}, {}, nullptr, {700, 300}, "100,50"}}) {
    put(hub, 100, 50);
    scrollTo(scrolled.x(), scrolled.y());
    const std::string name = target == nullptr ? "picLayout" : target;
    press(hub, Qt::LeftButton, grab);
    moveIn(name == "frmMain" ? main : child(name.c_str()), to).release();
    EXPECT_EQ(at(hub), due) << what;
    EXPECT_EQ(lSelectedItem, hub) << what;
    EXPECT_EQ(UBound(Systems), server) << what;
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Gesture, LinesFollowAtTheDropAndOnlyThose) {
  link(hub, terminal);
  link(terminal, hub);
  link(terminal, router);
  press(hub).moveTo(100, 90);
  EXPECT_EQ(lines(), "124,60-219,168.5;219,168.5-124,60;219,168.5-24,16;");
  surface().lneLink(3).X1 = 7; // no end of the hub: must not be laid again
  release();
  EXPECT_EQ(lines(), "124,100-219,168.5;219,168.5-124,100;7,168.5-24,16;");
  surface().picSystem(hub).Width = 100;
  press(hub).release(); // a drop on itself is a drop
  EXPECT_EQ(lines(), "150,100-219,168.5;219,168.5-150,100;7,168.5-24,16;");
}

TEST_F(Gesture, ADropChangesNoStackingOrder) {
  press(server).moveTo(210, 160).release();
  EXPECT_EQ(surface().spriteAt({215, 165}), server);
  press(terminal, Qt::LeftButton, {0, 0}).moveTo(220, 170).release();
  EXPECT_EQ(surface().spriteAt({225, 175}), server); // still above the terminal
  EXPECT_EQ(lines(), "");
}

TEST_F(Gesture, ADragThatIsCutShortDropsNothing) {
  struct Case {
    const char *what;
    std::function<void()> cut;
  };
  QMessageBox box;
  box.setModal(true);
  for (const auto &[what, cut] :
       std::vector<Case>{{"Escape", [&] { QTest::keyClick(main.windowHandle(), Qt::Key_Escape); }},
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
    EXPECT_EQ(lSelectedItem, hub) << what; // nor was the release a click
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Gesture, PressesDuringADragAreSwallowed) {
  int menus = 0;
  gestures().openMenu = [&](std::int32_t, QPoint) { ++menus; };
  press(hub).moveTo(305, 55).pressOn(Qt::RightButton).release(Qt::RightButton);
  moveIn(child("picLoad"), {5, 5}).pressOn(Qt::MiddleButton).release(Qt::MiddleButton);
  moveTo(200, 90).release(Qt::LeftButton);
  EXPECT_EQ(at(hub), "200,90");
  EXPECT_EQ(lSelectedItem, hub);
  EXPECT_EQ(menus, 0);
  EXPECT_THAT(dialogs, IsEmpty());
}

TEST_F(Gesture, ClicksOnBareSurfaceAndFormDeselect) {
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    select(hub);
    click(400, 300, button);
    EXPECT_EQ(lSelectedItem, nothing);
    select(hub);
    pressIn(main, {530, 460}, button).release();
    EXPECT_EQ(lSelectedItem, nothing);
  }
  EXPECT_EQ(frames(), "");
}

TEST_F(Gesture, WhatIsNoClickOnThemKeepsTheSelection) {
  select(hub);
  pressAt(400, 300).moveTo(400, -10).release();
  EXPECT_EQ(lSelectedItem, hub) << "released outside";
  pressIn(child("vsbScroll"), {5, 300}).release();
  EXPECT_EQ(lSelectedItem, hub) << "a scroll bar";
  pressIn(child("picAdd"), {5, 5}).moveTo(400, 300).release();
  EXPECT_EQ(lSelectedItem, hub) << "a button, released over the surface";
  pressIn(child("picToolbar"), {500, 10}).release();
  EXPECT_EQ(lSelectedItem, hub) << "bare tool bar";
  pressIn(child("picToolbar"), {500, 10}).moveIn(main, {530, 460}).release();
  EXPECT_EQ(lSelectedItem, hub) << "bare tool bar, released over the bare form";
}

TEST_F(Gesture, TheStatusLineTellsWhatThePointerIsOver) {
  struct Case {
    const char *target;
    QPoint to;
    const char *due;
  };
  for (const auto &[target, to, due] : std::vector<Case>{{"picLayout", {101, 51}, "Hub 1"},
                                                         {"picLayout", {400, 300}, ""},
                                                         {"picLayout", {5, 5}, "Router 0"},
                                                         {"vsbScroll", {5, 50}, "Router 0"},
                                                         {"frmMain", {530, 460}, ""},
                                                         {"picNew", {5, 5}, "New LAN"},
                                                         {"picSettings", {5, 5}, "Settings"},
                                                         {"picToolbar", {290, 5}, ""},
                                                         {"picLayout", {150, 280}, "Main server 4"},
                                                         {"lblStatus", {2, 5}, ""}}) {
    moveIn(std::string(target) == "frmMain" ? main : child(target), to);
    EXPECT_EQ(status(), due) << target << ' ' << to.x();
  }
  pressAt(310, 60, Qt::MiddleButton).moveTo(400, 300);
  EXPECT_EQ(status(), "Lock 3") << "a pressed device keeps the pointer";
  release();
}

// Link.

TEST_F(Gesture, TwoDoubleClicksMakeALink) {
  doubleClick(hub);
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(lSelectedItem, hub);
  doubleClick(terminal);
  EXPECT_EQ(lSelectedItem, terminal);
  EXPECT_EQ(dumpLinks(), "1@0.5,0.5-2@0.5,0.5/1");
  doubleClick(terminal); // the other direction, and once more
  doubleClick(hub);
  doubleClick(hub);
  doubleClick(terminal);
  EXPECT_EQ(dumpLinks(), "1@0.5,0.5-2@0.5,0.5/1;2@0.5,0.5-1@0.5,0.5/1;1@0.5,0.5-2@0.5,0.5/1");
  EXPECT_EQ(lines(), "124,60-219,168.5;219,168.5-124,60;124,60-219,168.5;");
  doubleClick(router);
  doubleClick(router); // cancels
  doubleClick(lock);
  doubleClick(router);
  EXPECT_EQ(UBound(Links), 4);
  EXPECT_EQ(Links.back().lFrom, lock);
  EXPECT_EQ(Links.back().lTo, router);
  EXPECT_EQ(at(hub) + " " + at(terminal), "100,50 200,150");
}

TEST_F(Gesture, OnlyTwoQuickLeftClicksOnOneDeviceAreADoubleClick) {
  gestures().openMenu = [](std::int32_t, QPoint) {};
  const auto linking = [this] {
    moveTo(400, 300);
    const bool shown = band() != "hidden";
    gestures().endLinking();
    return shown;
  };
  doubleClick(hub);
  EXPECT_TRUE(linking());
  doubleClick(hub, Qt::RightButton);
  EXPECT_FALSE(linking());
  press(hub).release().press(hub).release();
  EXPECT_FALSE(linking()) << "slow";
  put(lock, 148, 50);
  press(hub, Qt::LeftButton, {47, 5}).release().moveTo(148, 55).pressOn();
  EXPECT_EQ(lSelectedItem, lock);
  EXPECT_TRUE(Drag::instance().isActive()) << "an ordinary press on the neighbour";
  release();
  EXPECT_FALSE(linking());
  doubleClick(hub).pressOn().release(); // three clicks: the third is a press of its own
  EXPECT_TRUE(linking());
  click(400, 300).pressOn().release();
  EXPECT_FALSE(linking());
}

TEST_F(Gesture, TheBandRunsFromTheFirstDeviceToThePointer) {
  moveTo(400, 300);
  EXPECT_EQ(band(), "hidden");
  doubleClick(hub);
  moveTo(130, 65);
  EXPECT_EQ(band(), "hidden") << "first shows on the bare surface";
  moveTo(170, 100);
  EXPECT_EQ(band(), "124,60-170,100");
  moveTo(210, 160);
  EXPECT_EQ(band(), "124,60-210,160") << "over a device";
  moveIn(main, {530, 460});
  EXPECT_EQ(band(), "124,60-530,460") << "the form's coordinates as they come";
  press(hub).moveTo(300, 200).release();
  click(400, 300);
  EXPECT_EQ(lSelectedItem, nothing);
  EXPECT_EQ(band(), "124,60-400,300") << "goes on, and the fixed end stays";
  scrollTo(30, 20);
  moveTo(410, 310);
  EXPECT_EQ(band(), "124,60-410,310");
  doubleClick(terminal);
  EXPECT_EQ(band(), "hidden");
  EXPECT_EQ(lines(), "324,210-219,168.5;");
  doubleClick(hub);
  moveTo(400, 350);
  doubleClick(hub);
  EXPECT_EQ(band(), "hidden");
}

TEST_F(Gesture, TheBandStartsAtTheRoundedCentre) {
  for (const auto &[x, y, due] : std::vector<std::tuple<int, int, const char *>>{
           {100, 250, "136,276-400,300"}, // 51 / 2 and 250: 275.5, to the even neighbour
           {100, 251, "136,276-400,300"}, // 276.5
           {-35, -24, "1,2-400,300"}}) {  // 1.5
    put(server, x, y);
    pressAt(std::max(x, 0) + 30, std::max(y, 0) + 20).release().pressOn().release();
    moveTo(400, 300);
    EXPECT_EQ(band(), due);
    gestures().endLinking();
  }
}

TEST_F(Gesture, NewOpenAndRemovalEndLinkDrawing) {
  struct Case {
    const char *what;
    std::function<void()> act;
    bool ends = true;
  };
  fileName = sample("five-devices.txt");
  for (const auto &[what, act, ends] : std::vector<Case>{
           {"Open", [this] { main.picLoad_Click(); }},
           {"removal", [this] { main.operations().RemoveSystem(4); }},
           {"removal of a link", [this] { main.operations().RemoveLink(1, false); }, false},
           {"another device", [this] { add(2, 400, 200); }, false},
           {"New", [this] { main.picNew_Click(); }}}) {
    doubleClick(router);
    moveTo(450, 350);
    ASSERT_NE(band(), "hidden") << what;
    act();
    EXPECT_EQ(band() == "hidden", ends) << what;
    moveTo(455, 355);
    EXPECT_EQ(band() == "hidden", ends) << what;
    gestures().endLinking();
  }
}

// The toolbox.

TEST_F(Gesture, ThePreviewIsDroppedLessItsGrabPoint) {
  struct Case {
    const char *target;
    QPoint to;
    const char *due; // empty for no device
  };
  select(hub);
  toolbox();
  for (const auto &[target, to, due] : std::vector<Case>{{"picLayout", {400, 300}, "390,295"},
                                                         {"picLayout", {3, 2}, "-7,-3"},
                                                         {"picLayout", {310, 60}, "300,55"},
                                                         {"frmMain", {530, 460}, "520,455"},
                                                         {"picToolbar", {400, 5}, ""},
                                                         {"hsbScroll", {50, 5}, ""},
                                                         {"frmToolbox", {5, 5}, ""},
                                                         {"frmMain", {-9, 500}, ""}}) {
    const std::string name = target;
    const std::int32_t before = UBound(Systems);
    pressIn(preview(), {10, 5});
    EXPECT_TRUE(Drag::instance().isActive());
    moveIn(name == "frmMain"      ? main
           : name == "frmToolbox" ? Form<frmToolbox>::instance()
                                  : child(target),
           to)
        .release();
    EXPECT_EQ(UBound(Systems) == before ? "" : at(before + 1), due) << target;
  }
  EXPECT_EQ(lSelectedItem, hub);
  EXPECT_EQ(dumpSystems().substr(dumpSystems().rfind(';')), ";HUB 520 455 1 -1 -1 -1");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Gesture, EveryEntryButTheSwitchIsAddedByButtonAndByDrag) {
  frmToolbox &form = toolbox();
  auto &list = *form.findChild<QComboBox *>();
  auto &cmdAdd = *form.findChild<QPushButton *>();
  std::vector<std::string> entries;
  for (int item = 0; item < list.count(); ++item) {
    entries.push_back(list.itemText(item).toStdString());
    list.setCurrentIndex(item);
    const std::int32_t before = UBound(Systems);
    QTest::mouseClick(&cmdAdd, Qt::LeftButton);
    pressIn(preview(), {1, 1}).moveTo(401, 301).release();
    if (item == 1) {
      EXPECT_EQ(UBound(Systems), before);
      continue;
    }
    ASSERT_EQ(UBound(Systems), before + 2) << entries.back();
    EXPECT_EQ(at(before + 1) + " " + at(before + 2), "0,0 400,300");
    EXPECT_EQ(Systems.back().lType, item + 2);
    EXPECT_EQ(Systems[Systems.size() - 2].lType, item + 2);
    EXPECT_EQ(surface().spriteAt({1, 1}), before + 1) << "the newest lies on top";
  }
  EXPECT_THAT(entries, ElementsAre("Hub", "Switch*", "Terminal", "Main Server", "Mail Server*",
                                   "File Server", "Authentication", "Lock", "Isolation Bridge",
                                   "Modem", "Session Key Server*", "Radio Transmitter",
                                   "Radio Receiver", "Fax Printer*", "Log Server"));
  EXPECT_THAT(boxes.texts, ElementsAre("This item cannot be added!", "This item cannot be added!"));
  EXPECT_EQ(boxes.boxes[1].title, u"Non-addable item");
  EXPECT_EQ(boxes.boxes[1].icon, MessageBox::Icon::Exclamation);
  EXPECT_EQ(boxes.boxes[1].buttons, MessageBox::Buttons::Ok);
}

TEST_F(Gesture, TheSwitchIsRefusedOnlyWhereADropCounts) {
  toolbox(1);
  pressIn(preview(), {1, 1}).moveIn(child("picToolbar"), {400, 5}).release();
  EXPECT_THAT(boxes.texts, IsEmpty());
  pressIn(preview(), {1, 1}).moveIn(main, {530, 460}).release();
  pressIn(preview(), {1, 1}).moveTo(101, 51).release();
  EXPECT_EQ(boxes.texts.size(), 2U);
}

TEST_F(Gesture, ThePreviewIsDraggedWithTheLeftButtonWhileItsWindowStands) {
  toolbox();
  pressIn(preview(), {1, 1}, Qt::RightButton);
  EXPECT_FALSE(Drag::instance().isActive());
  moveTo(400, 300).release();
  pressIn(preview(), {1, 1}).moveTo(400, 300);
  Form<frmToolbox>::instance().close();
  QCoreApplication::processEvents();
  EXPECT_FALSE(Drag::instance().isActive());
  release();
  EXPECT_EQ(UBound(Systems), server);
}

TEST_F(Gesture, ADoubleClickOnThePreviewIsOneDrag) {
  toolbox();
  pressIn(preview(), {1, 1}).release();
  pressOn();
  EXPECT_FALSE(Drag::instance().isActive());
  release();
}

/// A box that comes up in mid-press gets the release; the surface must not wait for it for ever.
TEST_F(Gesture, ALostReleaseHoldsNoDevice) {
  doubleClick(hub);
  press(terminal, Qt::RightButton);
  pointer.loseRelease();
  moveTo(400, 300);
  EXPECT_THAT(band(), testing::EndsWith("-400,300"));
}

TEST_F(Gesture, TheToolboxStartsAtHubAtEachOpening) {
  const auto entry = [] {
    return Form<frmToolbox>::instance().findChild<QComboBox *>()->currentText().toStdString();
  };
  const auto previewSize = [this] { return preview().size(); };
  toolbox(7);
  EXPECT_EQ(entry(), "Lock");
  EXPECT_EQ(previewSize(), QSize(32, 32));
  main.picAdd_Click(); // open already: stays as it is
  EXPECT_EQ(entry(), "Lock");
  Form<frmToolbox>::instance().close();
  EXPECT_FALSE(Form<frmToolbox>::isLoaded());
  main.picAdd_Click();
  EXPECT_EQ(entry(), "Hub");
  EXPECT_EQ(previewSize(), QSize(48, 20));
  EXPECT_EQ(preview().geometry().center(), QRect(142, 8, 84, 66).center());
  EXPECT_TRUE(Form<frmToolbox>::instance().isVisible());
  EXPECT_EQ(Form<frmToolbox>::instance().parentWidget(), &main);
}

} // namespace
} // namespace vnb::test
