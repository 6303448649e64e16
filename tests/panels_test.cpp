// SPDX-License-Identifier: MIT
#include "gesture.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"
#include "widgets/numberlist.h"
#include "widgets/textbox.h"

#include <QClipboard>

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace vnb::test {
namespace {

class Panels : public Gesture {
protected:
  Panels() { useCodePage(1252); }

  template <class F>
  QWidget &control(const char *name) {
    return *main.forms().get<F>().template findChild<QWidget *>(QString::fromLatin1(name));
  }
  template <class F>
  TextBox &box(const char *name) {
    return dynamic_cast<TextBox &>(control<F>(name));
  }
  /// The numbers of a list's rows.
  std::string numbers(const char *list) {
    std::string result;
    for (const NumberRow &row : dynamic_cast<NumberList &>(control<frmSubnet>(list)).rows())
      result += std::to_string(row.number);
    return result;
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
  for (const auto &[typed, stored] : std::vector<std::pair<const char *, int>>{
           {"1.5", 2}, {"2.5", 2}, {"12x", 12}, {"abc", 0}, {"", 0}}) {
    limited.setText(QString::fromLatin1(typed));
    box<frmLanInfo>("txtY").setText(QString::fromLatin1(typed));
    EXPECT_EQ(Systems[hub].lData1, stored) << typed;
    EXPECT_EQ(LanHeader.YPOS, stored) << typed;
  }
  Systems[hub].lType = 11;
  pick(hub);
  box<frmDevice>("txtPhone").insert(QStringLiteral(" 5\u2192€"));
  EXPECT_EQ(Systems[hub].sDataX, QStringLiteral(" 5?€")) << "one sees what is saved";
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

TEST_F(Panels, LocksOfTheSelectedServerAreFramed) {
  add(9, 400, 300);
  Systems[server].lData1 = lock;
  Systems[server].lData2 = 5;
  pick(server);
  const std::string first = "3 dotted 1 FFFF;4 solid 2 FFFFFF #4;";
  const std::string second = "4 solid 2 FFFFFF #4;5 dotted 1 FFFF;";
  const std::string both = first + "5 dotted 1 FFFF;";
  EXPECT_EQ(frames(), both);
  for (const auto &[name, row, due] : std::vector<std::tuple<const char *, int, std::string>>{
           {"cboLock1", 0, first},
           {"cboLock1", 2, both},
           {"cboLock0", 1, second}, // of both boxes: the later one frames
           {"cboLock2", 1, both}}) {
    test::pick(dynamic_cast<QComboBox &>(control<frmDevice>(name)), row);
    EXPECT_EQ(frames(), due) << name;
  }
  add(9, 0, 0);
  EXPECT_EQ(frames(), second) << "refilled boxes that show None frame nothing";
  EXPECT_EQ(dumpSystems().substr(dumpSystems().find("MAIN")),
            "MAINSERVER 100 250 1 5 5 3;LOCK 400 300 1 -1 -1 -1;LOCK 0 0 1 -1 -1 -1")
      << "but keep their records";
}

TEST_F(Panels, RowsOfLockBoxesFollowTheirDevices) {
  add(9, 400, 300);
  Systems[server].lData2 = 5;
  pick(server);
  auto &cboLock1 = dynamic_cast<QComboBox &>(control<frmDevice>("cboLock1"));
  const auto state = [&](std::int32_t device) {
    std::string text = cboLock1.currentText().toStdString() + " of";
    for (int i = 0; i < cboLock1.count(); ++i)
      text += ' ' + cboLock1.itemText(i).toStdString();
    return text + ", stored " + std::to_string(vnb::at(Systems, device).lData2);
  };
  main.operations().RemoveSystem(terminal);
  EXPECT_EQ(state(3), "4 of None 2 4, stored 4");
  main.operations().RemoveSystem(2);
  pick(2);
  EXPECT_EQ(state(2), "3 of None 2 3, stored 3");
  test::pick(cboLock1, 1);
  EXPECT_THAT(boxes.texts, ElementsAre("340 frmDevice.cboLock_Click"));
  EXPECT_EQ(state(2), "3 of None 2 3, stored 3") << "the row of a lock that is gone";
  add(9, 0, 0);
  EXPECT_EQ(state(2), "None of None 3 4, stored 3");
  test::pick(cboLock1, 0);
  EXPECT_EQ(state(2), "None of None 3 4, stored -1");
}

/// What had the focus in a panel can't act once there is no device, nor on the next document.
TEST_F(Panels, WithoutADeviceNothingActs) {
  main.operations().AddSubnet(hub, terminal);
  link(hub, terminal);
  Systems[hub].lType = 11;
  const auto keysInAll = [this] {
    for (QWidget *panel : {static_cast<QWidget *>(&main.forms().get<frmDevice>()),
                           static_cast<QWidget *>(&main.forms().get<frmLinks>()),
                           static_cast<QWidget *>(&main.forms().get<frmSubnet>())})
      for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_7})
        QTest::keyClick(panel->focusWidget() != nullptr ? panel->focusWidget() : panel, key);
  };
  main.picDevice_Click();
  main.picLink_Click();
  main.picSubnet_Click();
  for (const bool anew : {false, true}) {
    pick(hub);
    control<frmDevice>("txtPhone").setFocus();
    control<frmLinks>("cmdRemove").setFocus();
    test::pick(dynamic_cast<NumberList &>(control<frmSubnet>("lstSystems")), 0);
    control<frmSubnet>("picAdd").setFocus();
    if (anew)
      main.picNew_Click();
    else
      main.selection().Deselect();
    const std::string before = dump();
    keysInAll();
    EXPECT_EQ(dump(), before);
    EXPECT_THAT(boxes.texts, IsEmpty());
    EXPECT_EQ(numbers("lstSubnets") + numbers("lstSystems"), "");
  }
}

TEST_F(Panels, TheLinkPanelTellsAndAsksAndIsFilledWhenMadeAnew) {
  main.operations().AddLink(router, .5, .5, hub, .25, 0, 1);
  main.forms().get<frmLinks>().show();
  pick(hub);
  for (const char *wrong : {"x", "9e99"}) { // the latter is farther than any line reaches
    box<frmLinks>("txtX").selectAll();
    box<frmLinks>("txtX").insert(QString::fromLatin1(wrong));
    QTest::mouseClick(&control<frmLinks>("optPosition17"), Qt::LeftButton);
  }
  QTest::mouseClick(&control<frmLinks>("cmdRemove"), Qt::LeftButton);
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-1@0.25,0/1");
  const char *const told =
      "X and Y must be numbers within reach, such as 0.5. The link stays where it is.";
  EXPECT_THAT(boxes.texts, ElementsAre(told, told,
                                       "Are you sure you want to remove the link from "
                                       "Router 0?"));
  EXPECT_EQ(boxes.boxes[0].title + boxes.boxes[2].title, u"LinksReally remove?");
  EXPECT_EQ(boxes.boxes[0].icon, MessageBox::Icon::Exclamation);
  EXPECT_EQ(boxes.boxes[2].buttons, MessageBox::Buttons::YesNo);
  main.forms().get<frmLinks>().close();
  EXPECT_EQ(dynamic_cast<NumberList &>(control<frmLinks>("lstLinks")).rows().size(), 1U)
      << "made anew, it shows the selected device";
  main.forms().get<frmDevice>().close();
  main.picNew_Click();
  EXPECT_EQ(main.forms().loaded<frmDevice>(), nullptr)
      << "New speaks only to panels that are there";
}

TEST_F(Panels, AButtonOfThePickerIsWhereItShows) {
  pick(hub);
  const QWidget &panel = control<frmLinks>("picLinks");
  for (int i = 0; i < 17; ++i) {
    const QWidget &option = control<frmLinks>(("optPosition" + std::to_string(i)).c_str());
    EXPECT_EQ(option.size(), QSize(12, 12));
    EXPECT_EQ(panel.childAt(option.geometry().topLeft()), &option) << i;
    EXPECT_EQ(panel.childAt(option.geometry().bottomRight()), &option) << i;
  }
}

/// Whatever is typed or pasted, a file holds it: from the second save on nothing changes.
TEST_F(Panels, RandomTextsAreAFixpointOfSavingAndOpening) {
  std::mt19937 random(5);
  const Folder folder;
  const QString path = folder.path("lan.txt");
  ReaderView view;
  const auto savedAndOpened = [&] {
    SaveLAN(path);
    OpenLANFile(path, main.operations(), view);
    return Folder::bytes(path);
  };
  for (int round = 0; round < 30; ++round) {
    main.operations().ClearLAN();
    add(11, 0, 0);
    pick(hub);
    for (TextBox *entry :
         {&box<frmDevice>("txtData"), &box<frmDevice>("txtPhone"), &box<frmLanInfo>("txtName"),
          &box<frmLanInfo>("txtCompany"), &box<frmLanInfo>("txtIP"), &box<frmLanInfo>("txtX")}) {
      QString text;
      const auto length = round == 0 ? 100000U : random() % 40;
      for (unsigned i = 0; i < length; ++i)
        text += QChar(static_cast<char16_t>(random() % (random() % 2 ? 0x100 : 0x10000)));
      entry->insert(text);
    }
    savedAndOpened();
    const QByteArray second = savedAndOpened();
    EXPECT_TRUE(savedAndOpened() == second) << round;
  }
}

} // namespace
} // namespace vnb::test
