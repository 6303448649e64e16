// SPDX-License-Identifier: MIT
// What users do, step by step, and all that comes of it: in listings.
#include "gesture.h"
#include "listing.h"
#include "runtime/codepage.h"
#include "widgets/drag.h"

#include <map>
#include <optional>

namespace vnb::test {
namespace {

/// A line for each step, which says what a user does and, behind an arrow, all that this changes:
/// message boxes, panels, records, frames, lines, and what the pointer brings about.
class Session : public Gesture {
public:
  Session() {
    gestures().openMenu = [this](std::int32_t Index, QPoint) { m_menu = QString::number(Index); };
    m_known = state();
  }
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
    if (!m_menu.isEmpty())
      changes << u"menu of "_qs + std::exchange(m_menu, {});
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

  static QPoint point(const QString &text) {
    return {text.section(u',', 0, 0).toInt(), text.section(u',', 1).toInt()};
  }
  static Qt::MouseButton button(const QStringList &words) {
    return words.last() == u"right"    ? Qt::RightButton
           : words.last() == u"middle" ? Qt::MiddleButton
                                       : Qt::LeftButton;
  }
  static void turnWheel(QWidget &on, QPoint angle, QPoint pixels, const QString &key) {
    const QPointF at(1, 1);
    QWheelEvent wheel(at, on.mapToGlobal(at), pixels, angle, {},
                      key == u"Shift" ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(&on, &wheel);
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
        // Frames, as panels ask for them.
        {u"hint"_qs, [&] { main.selection().SelectItem(number(1), LinkSelColor, true); }},
        {u"lock"_qs, [&] { main.selection().showLock(number(1), number(2)); }},
        {u"valid"_qs, [&] { main.selection().showSubnet(number(1)); }},
        {u"pick"_qs, [&] { main.selection().pickSubnet(number(1)); }},
        {u"unlock"_qs, [&] { main.selection().ClearLockHilites(); }},
        {u"unpick"_qs, [&] { main.selection().ClearSubnetHilites(); }},
        // What only a file can bring about, or a slip.
        {u"record"_qs,
         [&] {
           vnb::at(Systems, number(1)) = {number(2), number(3), number(4), number(5),
                                          number(6), number(7), number(8), rest(9)};
         }},
        {u"text"_qs, [&] { DataItems.push_back({.lNum = number(1), .sText = rest(2)}); }},
        {u"level"_qs, [&] { vnb::at(Links, number(1)).lSecur = number(2); }},
        {u"spriteless"_qs, [&] { Systems.emplace_back().lType = number(1); }},
        {u"selected"_qs, [&] { lSelectedItem = number(1); }},
        // The pointer: a device or a control, and a place in it.
        {u"press"_qs, [&] { press(number(1), button(words), point(words.value(2))); }},
        {u"at"_qs, [&] { pressIn(child(words[1]), point(words[2]), button(words)); }},
        {u"again"_qs, [&] { pressOn(button(words)); }},
        {u"to"_qs, [&] { moveIn(child(words[1]), point(words[2])); }},
        {u"release"_qs, [&] { words.size() > 1 ? release(button(words)) : release(); }},
        {u"lose"_qs, [&] { pointer.loseRelease(); }},
        {u"wheel"_qs,
         [&] { turnWheel(child(words[1]), point(words[2]), point(words.value(3)), words.last()); }},
        {u"scroll"_qs, [&] { child<QScrollBar>(words[1]).setValue(number(2)); }},
        {u"put"_qs, [&] { put(number(1), number(2), number(3)); }},
        {u"toolbox"_qs, [&] { toolbox(number(1)); }}};
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
    std::map<QString, QString> out{
        {u"selected"_qs, QString::number(lSelectedItem)},
        {u"status"_qs, QString::fromStdString(status())},
        {u"scrolled"_qs, QStringLiteral("%1,%2").arg(surface().x()).arg(surface().y())},
        {u"band"_qs, QString::fromStdString(band())}};
    if (Drag::instance().isActive())
      out[u"drag"_qs] = u"on"_qs;
    main.forms().forEachLoaded([&](FormWindow &each) {
      if (!each.isVisible())
        return;
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

  std::map<QString, QString> m_known;
  QString m_menu;
};

class Sessions : public testing::TestWithParam<const char *> {};

TEST_P(Sessions, GoAsListed) {
  useCodePage(1252);
  std::optional<Session> session;
  QStringList now;
  for (const QString &line : listing(GetParam())) {
    if (line.startsWith(u"== "))
      session.emplace();
    now << (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u'=') ? line
                                                                             : session->line(line));
  }
  expectListed(GetParam(), now);
}

INSTANTIATE_TEST_SUITE_P(Of, Sessions, testing::Values("panels.txt", "gestures.txt"));

} // namespace
} // namespace vnb::test
