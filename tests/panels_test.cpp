// SPDX-License-Identifier: MIT
#include "gesture.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"
#include "runtime/numbers.h"

#include <QClipboard>

namespace vnb::test {
namespace {

class Panels : public Gesture {
protected:
  Panels() { useCodePage(1252); }

  template <class F>
  F &form() {
    return main.forms().get<F>();
  }
  template <class F>
  TextBox &box(const char *name) {
    return controlOf<TextBox>(form<F>(), name);
  }
  template <class F>
  std::string shown() {
    return test::shown(form<F>());
  }
  template <class F>
  void use(const std::string &act) {
    test::use(form<F>(), act);
  }
  static std::string record(std::int32_t device) {
    return QString::fromStdString(dumpSystems()).section(u';', device, device).toStdString();
  }
  /// Selects without the pointer: panels lie over the layout.
  void pick(std::int32_t device) { main.selection().SelectItem(device, SelectedColor, false); }
};

TEST_F(Panels, ABoxHoldsToItsLimitAndRoundsItsNumber) {
  Systems[hub].lType = 14;
  Systems[hub].lData1 = 123456;
  pick(hub);
  TextBox &limited = box<frmDevice>("txtFreq0");
  EXPECT_EQ(limited.text(), u"123456") << "the limit binds typing only";
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
    limited.setContent(QString::fromLatin1(given));
    limited.setCursorPosition(from);
    limited.setSelection(from, count);
    limited.insert(QString::fromLatin1(entered));
    EXPECT_EQ(limited.text(), QString::fromLatin1(due)) << given << " + " << entered;
  }
  for (const char *keys : {"9", "98765"}) {
    limited.setContent(QStringLiteral("123456"));
    limited.selectAll();
    QTest::keyClicks(&limited, QString::fromLatin1(keys));
    EXPECT_EQ(limited.text(), QString::fromLatin1(keys).left(3));
    limited.undo();
    EXPECT_EQ(limited.text(), u"123456") << "after " << keys;
  }
  for (const auto &[typed, stored] :
       {std::pair("1.5", 2), {"2.5", 2}, {"12x", 12}, {"abc", 0}, {"", 0}}) {
    limited.setText(QString::fromLatin1(typed));
    box<frmLanInfo>("txtY").setText(QString::fromLatin1(typed));
    EXPECT_EQ(Systems[hub].lData1, stored) << typed;
    EXPECT_EQ(LanHeader.YPOS, stored) << typed;
  }
  {
    const Boxes told;
    limited.setText(QStringLiteral("9e9"));
    use<frmLanInfo>("txtX=9e9");
    use<frmLanInfo>("txtY=9e9");
    EXPECT_THAT(told.texts, ElementsAre("6 frmDevice.txtFreq_Change", "6 frmLanInfo.txtX_Change",
                                        "6 frmLanInfo.txtY_Change"));
  }
  for (const char *act : {"txtName=a \u2192", "txtCompany=b", "txtIP=", "txtX=7"})
    use<frmLanInfo>(act);
  EXPECT_EQ(dump().substr(0, dump().find('|')), "a ?,b,,7,0") << "one sees what is saved";
  QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo\u2192"));
  TextBox &data = box<frmDevice>("txtData");
  QTest::keyClick(&data, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(data.text(), u"one two?");
  data.undo();
  EXPECT_EQ(data.text(), u"");
  data.paste(); // as the box's own menu does
  EXPECT_EQ(data.text(), u"one two?");
  DataItems.push_back({.lNum = hub, .sText = QStringLiteral("second")}); // as a file may
  data.clear();
  EXPECT_EQ(data.text(), u"second") << "not to be overwritten unseen";
}

TEST_F(Panels, EachGroupShowsItsRecordAndStoresWhatIsEntered) {
  add(9, 400, 300);
  main.picDevice_Click();
  struct Case {
    std::int32_t lType;
    std::array<std::int32_t, 3> data;
    const char *shows;
    Words acts;
    const char *stored;
  };
  for (const auto &[lType, data, shows, acts, stored] : std::vector<Case>{
           {2, {7, 8, 9}, "", {"txtData=new", "optSecur2"}, "HUB 100 50 3 7 8 9 't'"},
           {13, {7, 8, 9}, "", {"txtData="}, "RADIOTRANSMITTER 100 50 2 7 8 9 't'"},
           {9, {0, 8, 9}, "", {"chkLocked"}, "LOCK 100 50 2 1 8 9 't'"},
           {9, {-1, 8, 9}, " chkLocked", {}, "LOCK 100 50 2 -1 8 9 't'"},
           {9, {5, 8, 9}, " chkLocked", {"chkLocked", "optSecur0"}, "LOCK 100 50 1 0 8 9 't'"},
           {5,
            {3, 5, -1},
            " cboLock0=3 cboLock1=5 cboLock2=None",
            {"cboLock0=5", "cboLock1=None", "cboLock2=3"},
            "MAINSERVER 100 50 2 5 -1 3 't'"},
           {8,
            {-1, 0, 4},
            " cboLock0= cboLock1=None cboLock2=",
            {"cboLock0=3"},
            "AUTHENTICATION 100 50 2 3 -1 4 't'"}, // 0 is None, and 4 is no lock
           {10,
            {5, 3, 9},
            " cboLock3=5 cboLock4=3",
            {"cboLock3=3", "cboLock4=5"},
            "ISOLATIONBRIDGE 100 50 2 3 5 9 't'"},
           {11, {7, 8, 9}, " txtPhone=t", {"txtPhone= 12-3 "}, "MODEM 100 50 2 7 8 9 ' 12-3 '"},
           {14,
            {-1, 25, 9},
            " txtFreq0=-1 txtFreq1=25",
            {"txtFreq0=101", "txtFreq1=05"},
            "RADIORECEIVER 100 50 2 101 5 9 't'"}}) {
    Systems[hub] = {lType, 100, 50, 2, data[0], data[1], data[2], QStringLiteral("t")};
    DataItems = {{}, {.lNum = hub, .sText = QStringLiteral("note")}};
    pick(hub);
    const std::string common = "txtData=note optSecur1";
    EXPECT_EQ(shown<frmDevice>(), common + shows);
    for (const std::string &act : acts)
      use<frmDevice>(act);
    EXPECT_EQ(record(hub), stored);
    EXPECT_EQ(dumpData(), lType == 2 ? "1='new'" : lType == 13 ? "" : "1='note'");
    const std::string now = shown<frmDevice>();
    pick(router);
    EXPECT_EQ(shown<frmDevice>(), "txtData= optSecur0");
    pick(hub);
    EXPECT_EQ(shown<frmDevice>(), lType == 14 ? common + " txtFreq0=101 txtFreq1=5" : now);
  }
  main.selection().Deselect();
  EXPECT_EQ(shown<frmDevice>(), "lblNoDevice=No Device Selected");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Panels, ALevelThatThereIsNotShowsAsTheFirst) {
  for (const auto &[level, due] : {std::pair(1, '0'), {2, '1'}, {3, '2'}, {0, '0'}, {4, '0'}}) {
    Systems[router].lSecur = level;
    pick(router);
    EXPECT_EQ(shown<frmDevice>(), std::string("txtData= optSecur") + due);
  }
}

TEST_F(Panels, EachSpotIsSetAndShownAtBothEnds) {
  link(router, hub);
  link(hub, terminal);
  main.picLink_Click();
  int spots = 0;
  for (const double y : {0., .25, .5, .75, 1.})
    for (const double x : {0., .25, .5, .75, 1.}) {
      if (x > 0 && x < 1 && y > 0 && y < 1 && (x != .5 || y != .5))
        continue;
      const std::string spot = "optPosition" + std::to_string(spots++);
      Links[1] = {0, .5, .5, 1, .3, .3, 1};
      Links[2] = {1, .3, .3, 2, .5, .5, 1};
      pick(hub);
      for (const char *row : {"lstLinks=0", "lstLinks=1"}) {
        use<frmLinks>(row);
        use<frmLinks>(spot);
      }
      const QString place = doubleText(x) + u',' + doubleText(y);
      EXPECT_EQ(dumpLinks(),
                QStringLiteral("0@0.5,0.5-1@%1/1;1@%1-2@0.5,0.5/1").arg(place).toStdString());
      const Line &to = surface().lneLink(1), &from = surface().lneLink(2);
      EXPECT_EQ(QPointF(to.X2, to.Y2), QPointF(100 + 48 * x, 50 + 20 * y));
      EXPECT_EQ(QPointF(from.X1, from.Y1), QPointF(to.X2, to.Y2));
      pick(hub);
      for (const char *row : {"lstLinks=1", "lstLinks=0"}) {
        use<frmLinks>(row);
        EXPECT_THAT(shown<frmLinks>(),
                    EndsWith(" optSecur0 " + spot + " txtX=" + doubleText(x).toStdString() +
                             " txtY=" + doubleText(y).toStdString()));
      }
    }
  EXPECT_EQ(spots, 17);
}

TEST_F(Panels, ALinkIsEditedAtTheSelectedEndAndRemovedOnYes) {
  link(router, hub);
  link(terminal, lock);
  link(hub, terminal);
  link(hub, hub);
  main.picLink_Click();
  pick(hub);
  const auto colours = [this] {
    std::string out;
    for (std::int32_t i = 1; i <= surface().lneLink.UBound(); ++i)
      out += surface().lneLink(i).BorderColor == LinkSelColor ? '!' : '-';
    return out;
  };
  EXPECT_EQ(
      shown<frmLinks>() + colours(),
      "lblLinks=Links for Hub 1: lstLinks=>Link from Router 0;Link to Terminal 2;Link to Hub 1 "
      "optSecur0 optPosition8 txtX=0.5 txtY=0.5!---");
  for (const char *act : {"lstLinks=1", "txtX=.3", "txtY=7"})
    use<frmLinks>(act);
  EXPECT_EQ(Links[3].dFromX, .5) << "typing stores nothing";
  for (const char *act : {"optPosition17", "optSecur2", "lstLinks=0", "lstLinks=1"})
    use<frmLinks>(act);
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-1@0.5,0.5/1;2@0.5,0.5-3@0.5,0.5/1;1@0.3,7-2@0.5,0.5/3;"
                         "1@0.5,0.5-1@0.5,0.5/1");
  EXPECT_EQ(surface().lneLink(3).Y1, 50 + 7 * 20);
  EXPECT_THAT(shown<frmLinks>() + colours(),
              EndsWith("optSecur2 optPosition17 txtX=0.3 txtY=7--!-"));
  const Boxes asked(yes(1));
  use<frmLinks>("cmdRemove");
  EXPECT_THAT(asked.texts, ElementsAre("Are you sure you want to remove the link to Terminal 2?"));
  EXPECT_THAT(shown<frmLinks>() + colours(),
              StartsWith("lblLinks=Links for Hub 1: lstLinks=Link from Router 0;Link to "
                         "Hub 1 optSecur2"));
  EXPECT_EQ(colours(), "---");
  use<frmLinks>("cmdRemove"); // none is picked
  use<frmLinks>("lstLinks=1");
  EXPECT_EQ(colours(), "--!") << "it has another number now";
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-1@0.5,0.5/1;2@0.5,0.5-3@0.5,0.5/1;1@0.5,0.5-1@0.5,0.5/1");
  use<frmLinks>("optPosition0");
  pick(server);
  EXPECT_EQ(shown<frmLinks>() + colours(), "lblLinks=Links for Main server 4: lstLinks= optSecur0 "
                                           "optPosition8 txtX=0.5 txtY=0.5---");
}

TEST_F(Panels, SubnetsMoveBetweenTheListsAndAreFramed) {
  for (const auto &[owner, listed] : {std::pair(hub, server), {terminal, hub}, {hub, router}})
    main.operations().AddSubnet(owner, listed);
  main.picSubnet_Click();
  pick(hub);
  const std::string heading = "lblSubnets=Valid subnets for Hub 1: ";
  EXPECT_EQ(shown<frmSubnet>(),
            heading + "lstSubnets=Router 0;Main server 4 lstSystems=Terminal 2;Lock 3");
  EXPECT_EQ(frames(), "0 solid 2 8000;1 solid 2 FFFFFF #1;4 solid 2 8000;");
  use<frmSubnet>("lstSubnets=1");
  EXPECT_EQ(frames(), "0 solid 2 8000;1 solid 2 FFFFFF #1;4 solid 2 FF00;");
  use<frmSubnet>("lstSubnets=0");
  EXPECT_EQ(frames(), "0 solid 2 FF00;1 solid 2 FFFFFF #1;4 solid 2 8000;");
  use<frmSubnet>("picRemove");
  use<frmSubnet>("picRemove"); // none is picked any more
  EXPECT_EQ(shown<frmSubnet>() + dumpSubnets(),
            heading + "lstSubnets=Main server 4 lstSystems=Terminal 2;Lock 3;Router 01<4;2<1");
  use<frmSubnet>("picAdd");
  use<frmSubnet>("lstSystems=1");
  use<frmSubnet>("picAdd");
  EXPECT_EQ(shown<frmSubnet>() + dumpSubnets(),
            heading + "lstSubnets=Main server 4;Lock 3 lstSystems=Terminal 2;Router 01<4;2<1;1<3");
  pick(hub);
  EXPECT_EQ(shown<frmSubnet>(),
            heading + "lstSubnets=Lock 3;Main server 4 lstSystems=Router 0;Terminal 2");
  EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;3 dotted 1 8000;4 solid 2 8000;");
  use<frmSubnet>("lstSubnets=0");
  pick(terminal);
  use<frmSubnet>("lstSubnets=0");
  EXPECT_EQ(frames(), "1 solid 2 FF00;2 solid 2 FFFFFF #2;") << "none of the device before";
}

TEST_F(Panels, LocksOfTheSelectedServerAreFramed) {
  add(9, 400, 300);
  Systems[server].lData1 = lock;
  Systems[server].lData2 = 5;
  pick(server);
  const std::string first = "3 dotted 1 FFFF;4 solid 2 FFFFFF #4;";
  const std::string second = "4 solid 2 FFFFFF #4;5 dotted 1 FFFF;";
  const std::string both = first + "5 dotted 1 FFFF;";
  EXPECT_EQ(frames(), both);
  for (const auto &[act, due] : std::vector<std::pair<const char *, std::string>>{
           {"cboLock1=None", first},
           {"cboLock1=5", both},
           {"cboLock0=5", second}, // of both boxes: the later one frames
           {"cboLock2=3", both}}) {
    use<frmDevice>(act);
    EXPECT_EQ(frames(), due) << act;
  }
  add(9, 0, 0);
  EXPECT_EQ(frames(), second) << "refilled boxes that show None frame nothing";
  EXPECT_EQ(record(server), "MAINSERVER 100 250 1 5 5 3") << "but keep their records";
}

TEST_F(Panels, RowsOfLockBoxesFollowTheirDevices) {
  add(9, 400, 300);
  Systems[server].lData2 = 5;
  pick(server);
  auto &cboLock1 = controlOf<QComboBox>(form<frmDevice>(), "cboLock1");
  const auto state = [&](std::int32_t device) {
    std::string text = cboLock1.currentText().toStdString() + " of";
    for (int i = 0; i < cboLock1.count(); ++i)
      text += ' ' + cboLock1.itemText(i).toStdString();
    return text + ", stored " + std::to_string(vnb::at(Systems, device).lData2);
  };
  main.operations().RemoveSystem(terminal);
  EXPECT_EQ(state(3), "4 of None 2 4, stored 4");
  add(2, 0, 0);
  main.operations().RemoveSystem(5);
  EXPECT_EQ(state(3), "4 of None 2 4, stored 4") << "below the gap";
  main.operations().RemoveSystem(2);
  pick(2);
  EXPECT_EQ(state(2), "3 of None 2 3, stored 3");
  use<frmDevice>("cboLock1=2");
  EXPECT_THAT(boxes.texts, ElementsAre("340 frmDevice.cboLock_Click"));
  EXPECT_EQ(state(2), "3 of None 2 3, stored 3") << "the row of a lock that is gone";
  add(9, 0, 0);
  EXPECT_EQ(state(2), "None of None 3 4, stored 3");
  use<frmDevice>("cboLock1=None");
  EXPECT_EQ(state(2), "None of None 3 4, stored -1");
}

/// What had the focus in a panel can't act once there is no device, nor on the next document.
TEST_F(Panels, WithoutADeviceNothingActs) {
  main.operations().AddSubnet(hub, terminal);
  link(hub, terminal);
  Systems[hub].lType = 11;
  main.picDevice_Click();
  main.picLink_Click();
  main.picSubnet_Click();
  for (const bool anew : {false, true}) {
    pick(hub);
    box<frmDevice>("txtPhone").setFocus();
    controlOf(form<frmLinks>(), "cmdRemove").setFocus();
    use<frmSubnet>("lstSystems=0");
    controlOf(form<frmSubnet>(), "picAdd").setFocus();
    anew ? main.picNew_Click() : main.selection().Deselect();
    const std::string before = dump();
    for (QWidget *panel : std::initializer_list<QWidget *>{&form<frmDevice>(), &form<frmLinks>(),
                                                           &form<frmSubnet>()}) {
      for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_7})
        QTest::keyClick(panel->focusWidget() != nullptr ? panel->focusWidget() : panel, key);
      EXPECT_EQ(test::shown(*panel), "lblNoDevice=No Device Selected");
    }
    EXPECT_EQ(dump(), before);
    EXPECT_TRUE(controlOf<NumberList>(form<frmSubnet>(), "lstSubnets").rows().empty());
    EXPECT_THAT(boxes.texts, IsEmpty());
  }
  // assistive technology reaches what no key does
  controlOf<QAbstractButton>(form<frmDevice>(), "chkLocked").toggle();
  EXPECT_THAT(boxes.texts, ElementsAre("9 frmDevice.chkLocked_Click"));
  for (const auto &[name, due] :
       sides({"txtData -> txtData", "txtPhone -> txtPhone", "txtFreq1 -> txtFreq"})) {
    const Boxes told;
    box<frmDevice>(name.c_str()).setText(QStringLiteral("7"));
    EXPECT_THAT(told.texts, ElementsAre("9 frmDevice." + due + "_Change"));
  }
}

TEST_F(Panels, TheLinkPanelTellsAndAsksAndIsFilledWhenMadeAnew) {
  main.operations().AddLink(router, .5, .5, hub, .25, 0, 1);
  form<frmLinks>().show();
  pick(hub);
  // numbers within reach of a line, both
  for (const char *act : {"txtX=x", "optPosition17", "txtX=9e99", "optPosition17", "txtX=1",
                          "txtY=9e99", "optPosition17"})
    use<frmLinks>(act);
  use<frmLinks>("cmdRemove");
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-1@0.25,0/1");
  const char *const told =
      "X and Y must be numbers within reach, such as 0.5. The link stays where it is.";
  EXPECT_THAT(boxes.texts, ElementsAre(told, told, told,
                                       "Are you sure you want to remove the link from Router 0?"));
  EXPECT_EQ(boxes.boxes[0].title + boxes.boxes[3].title, u"LinksReally remove?");
  EXPECT_EQ(boxes.boxes[0].icon, MessageBox::Icon::Exclamation);
  EXPECT_EQ(boxes.boxes[3].buttons, MessageBox::Buttons::YesNo);
  form<frmLinks>().close();
  EXPECT_THAT(shown<frmLinks>(), HasSubstr("lstLinks=Link from Router 0")) << "made anew";
  form<frmDevice>().close();
  main.picNew_Click();
  EXPECT_EQ(main.forms().loaded<frmDevice>(), nullptr) << "New makes no panels";
}

} // namespace
} // namespace vnb::test
