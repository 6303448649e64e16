// SPDX-License-Identifier: MIT
#include "gesture.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"

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
  void use(const std::string &act) {
    test::use(form<F>(), act);
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

} // namespace
} // namespace vnb::test
