// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"
#include "forms/numberlist.h"
#include "forms/textbox.h"
#include "look.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"
#include "support.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace vnb::test {
namespace {

template <class F>
class Panel {
public:
  template <class T = QWidget>
  static T *control(const char *name) {
    return dynamic_cast<T *>(
        Form<F>::instance().template findChild<QWidget *>(QString::fromLatin1(name)));
  }
  static bool shows(const char *name) { return !control(name)->isHidden(); }
  static QString text(const char *name) { return control<TextBox>(name)->text(); }
  static void type(const char *name, const QString &text) {
    auto *box = control<TextBox>(name);
    box->selectAll();
    if (text.isEmpty())
      QTest::keyClick(box, Qt::Key_Delete);
    else
      box->insert(text); // as a key or the clipboard does
  }
  static void click(const char *name) { QTest::mouseClick(control(name), Qt::LeftButton); }
  static std::string rows(const char *name) {
    std::string result;
    for (const NumberRow &row : control<NumberList>(name)->rows())
      result += row.text.toStdString() + ";";
    return result;
  }
};
using Device = Panel<frmDevice>;
using LinkPanel = Panel<frmLinks>;
using SubnetPanel = Panel<frmSubnet>;
using Info = Panel<frmLanInfo>;

std::string box(int number) {
  const auto *combo = Device::control<QComboBox>(("cboLock" + std::to_string(number)).c_str());
  return combo->currentIndex() < 0 ? "-" : combo->currentText().toStdString();
}
std::string boxes012() {
  return box(0) + "," + box(1) + "," + box(2);
}

class Panels : public testing::Test {
protected:
  Panels() {
    useCodePage(1252);
    main.operations().ClearLAN();
  }
  ~Panels() override {
    Form<frmDevice>::unload();
    Form<frmLinks>::unload();
    Form<frmSubnet>::unload();
    Form<frmLanInfo>::unload();
  }

  std::int32_t add(std::int32_t lType, std::int32_t lData1 = -1, std::int32_t lData2 = -1,
                   std::int32_t lData3 = -1, const char *sDataX = "") {
    main.operations().AddSystem(lType, 100 * UBound(Systems), 50, 1, lData1, lData2, lData3,
                                QString::fromUtf8(sDataX));
    return UBound(Systems);
  }
  void link(std::int32_t lFrom, std::int32_t lTo, double x = .5, double y = .5) {
    main.operations().AddLink(lFrom, x, y, lTo, .5, .5, 1);
  }
  void select(std::int32_t lIndex) { main.selection().SelectItem(lIndex, SelectedColor, false); }
  static SystemRec &record(std::int32_t lIndex) {
    return Systems[static_cast<std::size_t>(lIndex)];
  }
  SpriteTag tag(std::int32_t lIndex) { return main.picLayout().picSystem(lIndex).Tag; }
  Colour frame(std::int32_t lIndex) {
    const SpriteLayer &layer = main.picLayout().picSystem(lIndex).layer;
    return layer.frameWidth == 0 ? -1 : layer.colour;
  }

  const Look look;
  Boxes boxes;
  frmMain main;
};

TEST_F(Panels, EachTypeShowsItsGroup) {
  for (std::int32_t lType = 2; lType <= SystemType::Last; ++lType)
    add(lType);
  const std::map<std::int32_t, int> groups{{9, 0}, {5, 1}, {8, 1}, {11, 2}, {10, 3}, {14, 4}};
  for (std::int32_t i = 0; i <= UBound(Systems); ++i) {
    select(i);
    const auto due = groups.find(record(i).lType);
    for (int group = 0; group < 5; ++group)
      EXPECT_EQ(Device::shows(("picSpecific" + std::to_string(group)).c_str()),
                due != groups.end() && due->second == group)
          << record(i).lType;
    EXPECT_TRUE(Device::shows("txtData"));
    EXPECT_FALSE(Device::shows("lblNoDevice"));
  }
  main.selection().Deselect();
  EXPECT_FALSE(Device::shows("txtData"));
  EXPECT_FALSE(Device::shows("optSecur1"));
  EXPECT_TRUE(Device::shows("lblNoDevice"));
  EXPECT_TRUE(LinkPanel::shows("lblNoDevice"));
  EXPECT_TRUE(SubnetPanel::shows("lblNoDevice"));
}

TEST_F(Panels, ChooseTakesTheRowOfTheNumber) {
  const std::int32_t first = add(9);
  const std::int32_t hub = add(2);
  const std::int32_t second = add(9);
  struct Case {
    std::array<std::int32_t, 3> data;
    const char *shown;
    std::array<std::int32_t, 3> stored;
  };
  for (const auto &[data, shown, stored] :
       std::vector<Case>{{{first, second, -1}, "1,3,None", {first, second, -1}},
                         {{-1, -1, second}, "-,None,3", {-1, -1, second}},
                         {{hub, hub, hub}, "-,-,-", {hub, hub, hub}}, // no lock: the number stays
                         {{0, 0, 0}, "-,None,None", {0, -1, -1}},     // "None" has the value 0
                         {{99, -7, 3}, "-,-,3", {99, -7, 3}}}) {
    const std::int32_t server = add(5, data[0], data[1], data[2]);
    select(0);
    select(server);
    EXPECT_EQ(boxes012(), shown);
    EXPECT_THAT((std::array{record(server).lData1, record(server).lData2, record(server).lData3}),
                testing::ElementsAreArray(stored));
  }
}

TEST_F(Panels, LocksOfTheSelectedServerAreFramed) {
  const std::int32_t a = add(9);
  const std::int32_t b = add(9);
  const std::int32_t server = add(8, a, b, -1);
  select(server);
  EXPECT_EQ(tag(a), SpriteTag::Yellow0);
  EXPECT_EQ(tag(b), SpriteTag::Yellow1);
  EXPECT_EQ(frame(a), LockColor);
  EXPECT_TRUE(main.picLayout().picSystem(a).layer.dotted);
  Device::control<QComboBox>("cboLock1")->setCurrentIndex(0); // "None"
  EXPECT_EQ(record(server).lData2, -1);
  EXPECT_EQ(tag(b), SpriteTag::None);
  EXPECT_EQ(frame(b), -1);
  Device::control<QComboBox>("cboLock2")->setCurrentIndex(1); // the lock of box 0 as well
  EXPECT_EQ(record(server).lData3, a);
  EXPECT_EQ(tag(a), SpriteTag::Yellow2); // one reason only
  const std::int32_t bridge = add(10, b, a);
  select(bridge);
  EXPECT_EQ(box(3) + box(4), "21");
  EXPECT_EQ(tag(b), SpriteTag::Yellow3);
  Device::control<QComboBox>("cboLock4")->setCurrentIndex(1);
  EXPECT_EQ(record(bridge).lData2, b);
}

TEST_F(Panels, RefillingTheBoxesTouchesNoRecord) {
  const std::int32_t lock = add(9);
  const std::int32_t server = add(5, lock, lock, lock);
  select(server);
  EXPECT_EQ(boxes012(), "1,1,1");
  add(9);
  EXPECT_EQ(boxes012(), "-,None,None");
  EXPECT_EQ(dumpSystems().substr(dumpSystems().find("MAIN")),
            "MAINSERVER 100 50 1 1 1 1;LOCK 200 50 1 -1 -1 -1");
  select(server);
  EXPECT_EQ(boxes012(), "1,1,1");
  select(3);
  EXPECT_EQ(Device::control<QComboBox>("cboLock0")->count(), 2);
  main.operations().RemoveSystem(3); // removal doesn't refill
  EXPECT_EQ(Device::control<QComboBox>("cboLock0")->count(), 2);
  select(server);
  Device::control<QComboBox>("cboLock0")->setCurrentIndex(1);
  EXPECT_THAT(boxes.texts, ElementsAre("340 frmMain.SelectItem", "340 frmDevice.cboLock_Click"));
}

TEST_F(Panels, ALockIsTickedUnlessItIsZero) {
  const std::int32_t fresh = add(9);
  const std::int32_t open = add(9, 0);
  select(fresh); // ticked at design already: nothing changes, nothing is stored
  EXPECT_EQ(record(fresh).lData1, -1);
  select(open);
  EXPECT_FALSE(Device::control<QCheckBox>("chkLocked")->isChecked());
  select(fresh); // now the tick changes the box, and the record
  EXPECT_EQ(record(fresh).lData1, 1);
  Device::control<QCheckBox>("chkLocked")->click();
  EXPECT_EQ(record(fresh).lData1, 0);
}

TEST_F(Panels, FrequencyTakesTheNumberAtTheStart) {
  const std::int32_t radio = add(14);
  select(radio);
  EXPECT_EQ(Device::text("txtFreq0") + Device::text("txtFreq1"), u"-1-1");
  for (const auto &[typed, stored] : std::vector<std::pair<const char *, int>>{{"104", 104},
                                                                               {"05", 5},
                                                                               {"abc", 0},
                                                                               {"2.5", 2},
                                                                               {"1.5", 2},
                                                                               {"12x", 12},
                                                                               {"1234", 123}}) {
    Device::type("txtFreq1", QString::fromLatin1(typed));
    EXPECT_EQ(record(radio).lData2, stored) << typed;
  }
  Device::type("txtFreq1", QStringLiteral("05"));
  EXPECT_EQ(Device::text("txtFreq1"), u"05");
  select(0);
  select(radio);
  EXPECT_EQ(Device::text("txtFreq1"), u"5");
  record(radio).lData1 = 123456;
  select(radio);
  EXPECT_EQ(Device::text("txtFreq0"), u"123456"); // the limit binds typing only
  EXPECT_EQ(record(radio).lData1, 123456);
}

TEST_F(Panels, TextsGoStraightIntoTheirRecords) {
  const std::int32_t modem = add(11, -1, -1, -1, "555");
  select(modem);
  EXPECT_EQ(Device::text("txtPhone"), u"555");
  Device::type("txtPhone", QStringLiteral(" 5\u2192€"));
  EXPECT_EQ(record(modem).sDataX, QStringLiteral(" 5?€")); // one sees what is saved
  Device::type("txtData", QStringLiteral("x"));
  EXPECT_EQ(dumpData(), "1='x'");
  Device::type("txtData", QStringLiteral("xy"));
  EXPECT_EQ(dumpData(), "1='xy'");
  Device::type("txtData", QString());
  EXPECT_EQ(dumpData(), "");
  main.operations().AddData(modem, QStringLiteral("a"));
  main.operations().AddData(modem, QStringLiteral("b"));
  select(modem);
  EXPECT_EQ(Device::text("txtData"), u"a");
  Device::type("txtData", QString());
  EXPECT_EQ(dumpData(), "1='b'");
  select(modem);
  EXPECT_EQ(Device::text("txtData"), u"b");
}

TEST_F(Panels, WhatIsEnteredHoldsToTheLimit) {
  auto *box = Device::control<TextBox>("txtFreq0");
  struct {
    const char *given;
    int from, count;
    const char *entered, *due;
  } constexpr cases[] = {
      {"12", 2, 0, "345", "123"},       {"12", 1, 1, "345", "134"},
      {"123456", 0, 6, "98765", "987"}, {"123456", 1, 4, "xyz", "1x6"},
      {"123456", 2, 2, "x", "1256"},    {"123456", 6, 0, "7", "123456"},
  };
  for (const auto &[given, from, count, entered, due] : cases) {
    box->setContent(QString::fromLatin1(given));
    box->setCursorPosition(from);
    box->setSelection(from, count);
    box->insert(QString::fromLatin1(entered));
    EXPECT_EQ(box->text(), QString::fromLatin1(due)) << given << " + " << entered;
  }
  box->setContent(QStringLiteral("123456"));
  box->selectAll();
  box->insert(QStringLiteral("9"));
  box->undo();
  EXPECT_EQ(box->text(), u"123456");
}

TEST_F(Panels, ALevelIsStoredByItsButton) {
  const std::int32_t hub = add(2);
  select(hub);
  Device::click("optSecur2");
  EXPECT_EQ(record(hub).lSecur, 3);
  select(0);
  EXPECT_EQ(record(0).lSecur, 1);
  select(hub);
  EXPECT_TRUE(Device::control<QAbstractButton>("optSecur2")->isChecked());
  EXPECT_EQ(record(hub).lSecur, 3);
}

TEST_F(Panels, TheLinkPanelEditsTheEndAtTheDevice) {
  add(2);
  add(4);
  link(1, 2, .25, 0);
  link(0, 1);
  main.show();
  Form<frmLinks>::instance().show();
  select(1);
  EXPECT_EQ(LinkPanel::rows("lstLinks"), "Link to Terminal 2;Link from Router 0;");
  EXPECT_EQ(LinkPanel::control<QLabel>("lblLinks")->text(), u"Links for Hub 1:");
  EXPECT_EQ(main.picLayout().lneLink(1).BorderColor, LinkSelColor);
  EXPECT_TRUE(LinkPanel::control<QAbstractButton>("optPosition1")->isChecked());
  EXPECT_EQ(LinkPanel::text("txtX") + LinkPanel::text("txtY"), u"0.250");
  LinkPanel::click("optPosition16");
  EXPECT_EQ(dumpLinks(), "1@1,1-2@0.5,0.5/1;0@0.5,0.5-1@0.5,0.5/1");
  EXPECT_EQ(main.picLayout().lneLink(1).X1, 48.F);
  LinkPanel::control<NumberList>("lstLinks")->setListIndex(1);
  LinkPanel::type("txtX", QStringLiteral(".3"));
  LinkPanel::type("txtY", QStringLiteral("2"));
  EXPECT_EQ(Links[2].dToX, .5); // typing alone changes nothing
  LinkPanel::click("optPosition17");
  LinkPanel::type("txtX", QStringLiteral("-1"));
  LinkPanel::click("optPosition17"); // it takes the values also when it is on
  LinkPanel::click("optSecur1");
  EXPECT_EQ(dumpLinks(), "1@1,1-2@0.5,0.5/1;0@0.5,0.5-1@-1,2/2");
  for (const char *wrong : {"x", "", "1,5"}) {
    LinkPanel::type("txtX", QString::fromLatin1(wrong));
    LinkPanel::click("optPosition17");
  }
  EXPECT_EQ(Links[2].dToX, -1);
  EXPECT_THAT(boxes.texts, SizeIs(3));
}

TEST_F(Panels, PositionsOfTheGridAndOthers) {
  frmLinks &panel = Form<frmLinks>::instance();
  for (const auto &[x, y, button] : std::vector<std::tuple<double, double, int>>{{0, 0, 0},
                                                                                 {.25, 0, 1},
                                                                                 {1, 0, 4},
                                                                                 {0, .25, 5},
                                                                                 {1, .25, 6},
                                                                                 {0, .5, 7},
                                                                                 {.5, .5, 8},
                                                                                 {1, .75, 11},
                                                                                 {0, 1, 12},
                                                                                 {.75, 1, 15},
                                                                                 {1, 1, 16},
                                                                                 {.3, .6, 17},
                                                                                 {.25, .5, 17}}) {
    panel.PositionSelect(x, y);
    EXPECT_TRUE(
        LinkPanel::control<QAbstractButton>(("optPosition" + std::to_string(button)).c_str())
            ->isChecked())
        << x << ',' << y;
  }
}

TEST_F(Panels, AHiddenLinkPanelPicksNoRow) {
  add(2);
  link(0, 1);
  select(1);
  EXPECT_EQ(LinkPanel::rows("lstLinks"), "Link from Router 0;");
  EXPECT_EQ(LinkPanel::control<NumberList>("lstLinks")->ListIndex(), -1);
  EXPECT_EQ(main.picLayout().lneLink(1).BorderColor, LinkColor);
  Form<frmLinks>::instance().show();
  LinkPanel::click("optPosition0");
  LinkPanel::click("optSecur2");
  LinkPanel::click("cmdRemove");
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-1@0.5,0.5/1");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Panels, ALevelOutOfRangeIsReportedAndMarksNothing) {
  main.operations().AddLink(0, 0, 0, 0, 1, 1, 7);
  Form<frmLinks>::instance().show();
  select(0);
  EXPECT_THAT(boxes.texts, ElementsAre("340 frmLinks.lstLinks_Click"));
  EXPECT_EQ(Links[1].lSecur, 7);
  EXPECT_TRUE(LinkPanel::control<QAbstractButton>("optPosition0")->isChecked());
  for (const char *option : {"optSecur0", "optSecur1", "optSecur2"})
    EXPECT_FALSE(LinkPanel::control<QAbstractButton>(option)->isChecked());
}

TEST_F(Panels, RemovingALinkKeepsTheOtherRowsTrue) {
  add(2);
  for (int i = 0; i < 3; ++i)
    link(1, 0, i / 4.0, 0);
  Form<frmLinks>::instance().show();
  select(1);
  {
    Boxes yesses(yes(1));
    LinkPanel::click("cmdRemove");
    EXPECT_THAT(yesses.texts, ElementsAre("Are you sure you want to remove the link to Router 0?"));
    EXPECT_EQ(yesses.boxes[0].title, u"Really remove?");
  }
  EXPECT_EQ(LinkPanel::control<NumberList>("lstLinks")->ListIndex(), -1);
  LinkPanel::control<NumberList>("lstLinks")->setListIndex(1);
  LinkPanel::click("optSecur2");
  EXPECT_EQ(dumpLinks(), "1@0.25,0-0@0.5,0.5/1;1@0.5,0-0@0.5,0.5/3");
}

/// The row that moves up is not picked: its number is still that of another link.
TEST_F(Panels, RemovingALinkPicksNoOtherRow) {
  add(2);
  add(2);
  link(1, 2, 0, 0);
  link(0, 1);
  link(1, 0, 1, 1);
  Form<frmLinks>::instance().show();
  select(2); // its only link goes
  for (const int device : {2, 1, 1}) {
    select(device);
    Boxes yesses(yes(1));
    const QString x = LinkPanel::text("txtX");
    LinkPanel::click("cmdRemove");
    EXPECT_THAT(yesses.texts, SizeIs(1));
    EXPECT_EQ(LinkPanel::control<NumberList>("lstLinks")->ListIndex(), -1);
    EXPECT_EQ(LinkPanel::text("txtX"), x) << "what the removed link had";
  }
  EXPECT_EQ(dumpLinks(), "");
}

TEST_F(Panels, AButtonOfThePickerIsWhereItShows) {
  link(0, 0);
  select(0);
  auto *panel = LinkPanel::control("picLinks");
  for (int i = 0; i < 17; ++i) {
    const auto *option = LinkPanel::control(("optPosition" + std::to_string(i)).c_str());
    EXPECT_EQ(option->size(), QSize(12, 12));
    EXPECT_EQ(panel->childAt(option->geometry().topLeft()), option) << i;
    EXPECT_EQ(panel->childAt(option->geometry().bottomRight()), option) << i;
  }
}

TEST_F(Panels, ARemovedSubnetKeepsItsFrameAndPicksNoOther) {
  const std::int32_t owner = add(2);
  const std::int32_t a = add(4);
  const std::int32_t b = add(4);
  main.operations().AddSubnet(owner, a);
  main.operations().AddSubnet(owner, b);
  Form<frmSubnet>::instance().show();
  select(owner);
  SubnetPanel::control<NumberList>("lstSubnets")->setListIndex(0);
  SubnetPanel::click("picRemove");
  EXPECT_EQ(tag(a), SpriteTag::Green);
  EXPECT_EQ(frame(a), SubnetSelColor);
  EXPECT_EQ(tag(b), SpriteTag::GreenDk);
  EXPECT_EQ(SubnetPanel::control<NumberList>("lstSubnets")->ListIndex(), -1);
}

/// A closed panel that Deselect makes anew has not been filled; one that a press makes has.
TEST_F(Panels, DeselectMakesClosedPanelsAnew) {
  const std::int32_t first = add(9);
  const std::int32_t server = add(5, first);
  select(server);
  Form<frmDevice>::instance().close();
  Form<frmSubnet>::instance().close();
  main.selection().Deselect();
  EXPECT_TRUE(Form<frmDevice>::isLoaded());
  EXPECT_TRUE(Form<frmLinks>::isLoaded());
  EXPECT_TRUE(Form<frmSubnet>::isLoaded());
  EXPECT_FALSE(Form<frmDevice>::instance().isVisible());
  main.operations().ClearLAN();
  Form<frmDevice>::instance().close();
  main.operations().ClearLAN();
  EXPECT_FALSE(Form<frmDevice>::isLoaded()) << "New speaks only to those that are there";
}

TEST_F(Panels, SubnetsMoveBetweenTheLists) {
  add(2);
  add(4);
  add(9);
  main.operations().AddSubnet(1, 3);
  main.operations().AddSubnet(1, 3);
  Form<frmSubnet>::instance().show();
  select(1);
  EXPECT_EQ(SubnetPanel::rows("lstSubnets"), "Lock 3;");
  EXPECT_EQ(SubnetPanel::rows("lstSystems"), "Router 0;Terminal 2;");
  EXPECT_EQ(tag(3), SpriteTag::GreenDk);
  EXPECT_EQ(frame(3), SubnetColor);
  SubnetPanel::click("picAdd"); // no row picked
  SubnetPanel::control<NumberList>("lstSystems")->setListIndex(0);
  SubnetPanel::click("picAdd");
  SubnetPanel::click("picAdd"); // the moved row is gone, and none is picked
  EXPECT_EQ(SubnetPanel::rows("lstSubnets"), "Lock 3;Router 0;");
  EXPECT_EQ(dumpSubnets(), "1<3;1<3;1<0");
  EXPECT_EQ(tag(0), SpriteTag::None); // framed at the next selection
  SubnetPanel::control<NumberList>("lstSubnets")->setListIndex(0);
  EXPECT_EQ(frame(3), SubnetSelColor);
  SubnetPanel::control<NumberList>("lstSubnets")->setListIndex(1);
  EXPECT_EQ(tag(3), SpriteTag::GreenDk);
  EXPECT_EQ(frame(3), SubnetColor);
  EXPECT_EQ(tag(0), SpriteTag::Green);
  SubnetPanel::control<NumberList>("lstSubnets")->setListIndex(0);
  SubnetPanel::click("picRemove");
  EXPECT_EQ(dumpSubnets(), "1<3;1<0");
  EXPECT_EQ(SubnetPanel::rows("lstSystems"), "Terminal 2;Lock 3;");
  select(1);
  EXPECT_EQ(SubnetPanel::rows("lstSubnets"), "Router 0;Lock 3;");
  Form<frmSubnet>::instance().close();
  EXPECT_TRUE(SubnetPanel::shows("lblNoDevice")); // made anew, and filled at the next selection
}

TEST_F(Panels, TheHeaderFollowsTheBoxes) {
  const auto all = [] {
    return (Info::text("txtName") + u'|' + Info::text("txtCompany") + u'|' + Info::text("txtIP") +
            u'|' + Info::text("txtX") + u'|' + Info::text("txtY"))
        .toStdString();
  };
  EXPECT_EQ(all(), "Unnamed Network|Unknown Company|123.123.123.123|0|0");
  for (const auto &[typed, stored] : std::vector<std::pair<const char *, int>>{
           {"1.5", 2}, {"2.5", 2}, {"12x", 12}, {"abc", 0}, {"", 0}, {"7", 7}}) {
    Info::type("txtX", QString::fromLatin1(typed));
    EXPECT_EQ(LanHeader.XPOS, stored) << typed;
  }
  Info::type("txtName", QString());
  EXPECT_EQ(LanHeader.NAME, u"");
  main.operations().ClearLAN();
  EXPECT_EQ(Info::text("txtX"), u"7"); // it keeps the old text
  EXPECT_EQ(LanHeader.XPOS, 0);
  Info::type("txtY", QStringLiteral("9"));
  EXPECT_EQ(LanHeader.YPOS, 9);
  EXPECT_EQ(LanHeader.XPOS, 0);
}

TEST_F(Panels, ReopenedPanelsAreFilledAsTheyWereMade) {
  const std::int32_t lock = add(9);
  const std::int32_t bridge = add(10, lock, lock);
  link(0, bridge);
  select(bridge);
  Form<frmDevice>::instance().close();
  Form<frmLinks>::instance().close();
  EXPECT_EQ(box(3) + box(4), "11");
  EXPECT_TRUE(Device::shows("txtData"));
  EXPECT_EQ(LinkPanel::rows("lstLinks"), "Link from Router 0;");
  main.operations().ClearLAN();
  EXPECT_TRUE(Device::shows("lblNoDevice"));
  EXPECT_TRUE(LinkPanel::shows("lblNoDevice"));
}

/// Whatever is typed or pasted, a file holds it: from the second save on nothing changes.
TEST_F(Panels, RandomTextsAreAFixpointOfSavingAndOpening) {
  std::mt19937 random(5);
  const Folder folder;
  const QString path = folder.path("lan.txt");
  const auto saved = [&] {
    SaveLAN(path);
    return Folder::bytes(path);
  };
  DiagramReaderView view(main.operations());
  for (int round = 0; round < 30; ++round) {
    main.operations().ClearLAN();
    const std::int32_t modem = add(11);
    add(14);
    link(0, 1);
    select(modem);
    for (auto [panel, name] : std::vector<std::pair<QWidget *, const char *>>{
             {Device::control("txtData"), "txtData"},
             {Device::control("txtPhone"), "txtPhone"},
             {Info::control("txtName"), "txtName"},
             {Info::control("txtCompany"), "txtCompany"},
             {Info::control("txtIP"), "txtIP"},
             {Info::control("txtX"), "txtX"}}) {
      QString text;
      const auto length = round == 0 ? 100000U : random() % 40;
      for (unsigned i = 0; i < length; ++i)
        text += QChar(static_cast<char16_t>(random() % (random() % 2 ? 0x100 : 0x10000)));
      static_cast<TextBox *>(panel)->insert(text);
    }
    saved();
    OpenLANFile(path, main.operations(), view);
    const QByteArray second = saved();
    OpenLANFile(path, main.operations(), view);
    EXPECT_TRUE(saved() == second) << round;
  }
}

} // namespace
} // namespace vnb::test
