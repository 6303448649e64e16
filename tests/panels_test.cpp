// SPDX-License-Identifier: MIT
#include "gesture.h"
#include "listing.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"
#include "runtime/numbers.h"

#include <QClipboard>

#include <map>
#include <optional>

namespace vnb::test {
namespace {

/// A session with the panels: a line for each step, which says what a user does and, behind an
/// arrow, all that this changes: message boxes, panels, records, frames, lines.
class Session : public Gesture {
public:
  ~Session() override { lSelectedItem = nothing; } // the next test makes its forms without a device
  void TestBody() override {}

  /// Takes the step of a listed line, and returns the line as it is now.
  QString line(const QString &listed) {
    const QString step = listed.section(u" -> "_qs, 0, 0);
    take(step.split(u' '));
    QStringList changes;
    for (std::size_t i = 0; i < boxes.texts.size(); ++i) {
      const MessageBox &box = boxes.boxes[i];
      const bool report = box.icon == MessageBox::Icon::Critical;
      changes << u'"' + QString::fromStdString(boxes.texts[i]) + u'"';
      if (!report)
        changes << u"titled "_qs + box.title +
                       (box.buttons == MessageBox::Buttons::YesNo ? u", Yes or No"_qs : QString()) +
                       (box.icon == MessageBox::Icon::Question ? u", a question"_qs : QString());
    }
    boxes.boxes.clear();
    boxes.texts.clear();
    auto now = state();
    for (const auto &[name, value] : now)
      if (const auto before = m_known.find(name);
          before == m_known.end() || before->second != value)
        changes << name + u'=' + value;
    for (const auto &[name, value] : m_known)
      if (!now.contains(name))
        changes << u"no "_qs + name;
    m_known = std::move(now);
    return changes.empty() ? step : step + u" -> "_qs + changes.join(u" | "_qs);
  }

private:
  FormWindow &form(const QString &name) {
    FormWindow *found = nullptr;
    main.forms().forEachLoaded([&](FormWindow &each) {
      if (each.objectName() == name)
        found = &each;
    });
    if (found == nullptr)
      throw std::invalid_argument(name.toStdString());
    return *found;
  }

  void take(const QStringList &words) {
    const auto number = [&](int i) { return words.value(i).toInt(); };
    const auto rest = [&](int from) { return QStringList(words.mid(from)).join(u' '); };
    const std::map<QString, std::function<void()>> verbs{
        {u"select"_qs, [&] { main.selection().SelectItem(number(1), SelectedColor, false); }},
        {u"deselect"_qs, [&] { main.selection().Deselect(); }},
        {u"new"_qs, [&] { main.picNew_Click(); }},
        {u"add"_qs, [&] { add(number(1), number(2), number(3)); }},
        {u"remove"_qs, [&] { main.operations().RemoveSystem(number(1)); }},
        {u"link"_qs, [&] { link(number(1), number(2)); }},
        {u"subnet"_qs, [&] { main.operations().AddSubnet(number(1), number(2)); }},
        {u"close"_qs, [&] { form(words[1]).close(); }},
        {u"answer"_qs, [&] { boxes.otherwise = words[1] == u"Yes" ? Answer::Yes : Answer::No; }},
        // What only a file can bring about, or a slip.
        {u"record"_qs,
         [&] {
           vnb::at(Systems, number(1)) = {number(2), number(3), number(4), number(5),
                                          number(6), number(7), number(8), rest(9)};
         }},
        {u"text"_qs, [&] { DataItems.push_back({.lNum = number(1), .sText = rest(2)}); }},
        {u"level"_qs, [&] { vnb::at(Links, number(1)).lSecur = number(2); }},
        {u"spriteless"_qs, [&] { Systems.emplace_back().lType = number(1); }},
        {u"selected"_qs, [&] { lSelectedItem = number(1); }}};
    const auto verb = verbs.find(words[0]);
    const QString act = words.join(u' ');
    if (verb != verbs.end())
      verb->second();
    else if (act.startsWith(u"frmMain."))
      use(main, act.section(u'.', 1).toStdString());
    else
      use(form(act.section(u'.', 0, 0)), act.section(u'.', 1).toStdString());
  }

  std::map<QString, QString> state() {
    std::map<QString, QString> out{{u"selected"_qs, QString::number(lSelectedItem)}};
    main.forms().forEachLoaded([&](FormWindow &each) {
      for (const auto &[name, value] : facts(each))
        out[each.objectName() + u'.' + name] = value;
    });
    int number = 0;
    const auto enter = [&](const QString &name, const QString &value) {
      if (!value.isEmpty())
        out[name + u' ' + QString::number(number)] = value;
      ++number;
    };
    for (const auto &[name, first, rows] : {std::tuple(u"system"_qs, 0, dumpSystems()),
                                            {u"link"_qs, 1, dumpLinks()},
                                            {u"subnet"_qs, 1, dumpSubnets()},
                                            {u"text"_qs, 1, dumpData()}}) {
      number = first;
      for (const QString &row : QString::fromStdString(rows).split(u';'))
        enter(name, row);
    }
    for (const QString &frame : QString::fromStdString(frames()).split(u';', Qt::SkipEmptyParts))
      out[u"frame "_qs + frame.section(u' ', 0, 0)] = frame.section(u' ', 1);
    number = 1;
    for (std::int32_t i = 1; i <= surface().lneLink.UBound(); ++i) {
      const Line &each = surface().lneLink(i);
      enter(u"line"_qs, QStringLiteral("%1,%2-%3,%4%5")
                            .arg(each.X1)
                            .arg(each.Y1)
                            .arg(each.X2)
                            .arg(each.Y2)
                            .arg(each.BorderColor == LinkSelColor ? u"!" : u""));
    }
    return out;
  }

  std::map<QString, QString> m_known = state();
};

TEST(PanelSession, GoesAsListed) {
  useCodePage(1252);
  std::optional<Session> session;
  QStringList now;
  for (const QString &line : listing("panels.txt")) {
    if (line.startsWith(u"== "))
      session.emplace();
    now << (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u'=') ? line
                                                                             : session->line(line));
  }
  expectListed("panels.txt", now);
}

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
        EXPECT_THAT(shown<frmLinks>(), EndsWith(" optSecur=0 optPosition=" + spot.substr(11) +
                                                " txtX=" + doubleText(x).toStdString() +
                                                " txtY=" + doubleText(y).toStdString()));
      }
    }
  EXPECT_EQ(spots, 17);
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
