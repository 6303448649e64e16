// SPDX-License-Identifier: MIT
// What users do, step by step, and all that comes of it: in listings.
#include "appearance/frmThemes.h"
#include "changes.h"
#include "listing.h"
#include "runtime/codepage.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "widgets/longmenu.h"

#include <QAccessible>
#include <QClipboard>
#include <QDir>
#include <QHelpEvent>
#include <QMenu>
#include <QTimer>
#include <QToolTip>

#include <map>
#include <optional>

#include <sys/stat.h>

namespace vnb::test {
namespace {

/// A line for each step, which says what a user does and, behind an arrow, all that this changes.
class Session : public Changes {
public:
  Session() {
    gestures().openMenu = [this](std::int32_t Index, QPoint) {
      changes << u"menu of "_qs + QString::number(Index);
    };
    showColourDialog = [this](const ColourDialog &dialog) {
      changes << u"a colour instead of "_qs + QColor(dialog.start).name();
      return colour;
    };
  }
  ~Session() override {
    lSelectedItem = nothing; // the next test makes its forms without a device
    showColourDialog = [](const ColourDialog &) { return std::nullopt; };
    for (const QFileInfo &own :
         QDir(themesFolder()).entryInfoList({u'*' + themeMark()}, QDir::AllEntries | QDir::Hidden))
      own.isDir() ? QDir(own.filePath()).removeRecursively() : QFile::remove(own.filePath());
  }
  void TestBody() override {}

  /// Takes the step of a listed line, and returns the line as it is now.
  QString line(const QString &listed) {
    const QString step = listed.section(u" -> "_qs, 0, 0);
    take({step.split(u' ')});
    QCoreApplication::processEvents();
    note();
    QString told = std::exchange(changes, {}).join(u" | "_qs);
    for (const auto &[path, name] : {std::pair(store.path(""), u"~"_qs),
                                     {themesFolder(), u"themes"_qs},
                                     {themeMark(), QString()},
                                     {QCoreApplication::applicationDirPath(), u"program"_qs},
                                     {QStringLiteral(VNB_SAMPLES), u"samples"_qs}})
      told.replace(path, name);
    return told.isEmpty() ? step : step + u" -> "_qs + told.replace(u'\n', u"\\n"_qs);
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

  /// A form, one of its controls, or what the main window has.
  QWidget &target(const QString &path) {
    if (path.contains(u'.'))
      return controlOf(form(path.section(u'.', 0, 0)), path.section(u'.', 1).toStdString());
    return path.startsWith(u"frm") && path != u"frmMain" ? form(path) : child(path);
  }
  QString pathOf(const QString &name) const {
    return name.startsWith(u"samples/") ? QStringLiteral(VNB_SAMPLES) + name.mid(7)
           : name.startsWith(u'/')      ? name
                                        : store.path(qUtf8Printable(name));
  }
  void key(QTest::KeyAction action, const QString &path, const QString &name) {
    QWidget *on = &target(path);
    if (on->isWindow() && on->focusWidget() != nullptr)
      on = on->focusWidget();
    const bool altGr = name.startsWith(u"AltGr+");
    const QKeyCombination keys = QKeySequence(altGr ? name.mid(6) : name)[0];
    QTest::keyEvent(action, on, keys.key(),
                    keys.keyboardModifiers() | (altGr ? Qt::GroupSwitchModifier : Qt::NoModifier));
  }
  /// A theme's folder or a file in it.
  static QString ownTheme(const QString &name) {
    const qsizetype end = name.indexOf(u'/');
    return themesFolder() + u'/' + name.left(end) + themeMark() +
           (end < 0 ? QString() : name.mid(end));
  }
  /// Makes a theme's file; one that has a size is a picture, in the format that `bytes` name.
  static void themeFile(const QString &name, const QByteArray &bytes, QSize picture = {}) {
    const QString path = ownTheme(name);
    EXPECT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
    QFile file(path);
    QImage image(picture, QImage::Format_RGB32);
    image.fill(Qt::red);
    if (picture.isValid())
      EXPECT_TRUE(image.save(path, bytes.isEmpty() ? nullptr : bytes.constData()));
    else if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly))
      file.write(bytes);
  }
  /// To a theme by its name, or by a path as it stands.
  void switchTo(const QString &theme) {
    const bool path = theme.contains(u':') || theme.contains(u'/');
    const std::string error =
        raised([&] { LoadTheme(path ? theme : themePath(theme + themeMark()), main.view()); });
    if (!error.empty())
      changes << QString::fromStdString(error);
  }

  static Qt::KeyboardModifiers modifiersOf(const QString &key) {
    return key == u"Shift"  ? Qt::ShiftModifier
           : key == u"Ctrl" ? Qt::ControlModifier
                            : Qt::NoModifier;
  }
  /// -1 for the free space behind the last row.
  static void clickRow(QWidget &control, int row, Qt::KeyboardModifiers modifiers) {
    const auto &list = dynamic_cast<NumberList &>(control);
    QWidget *rows = list.viewport();
    QTest::mouseClick(rows, Qt::LeftButton, modifiers,
                      row < 0 ? rows->rect().bottomLeft()
                              : list.visualRect(list.model()->index(row, 0)).center());
  }
  static void turnWheel(QWidget &on, QPoint angle, QPoint pixels, const QString &key) {
    const QPointF at(1, 1);
    QWheelEvent wheel(at, on.mapToGlobal(at), pixels, angle, {}, modifiersOf(key),
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(&on, &wheel);
  }

  /// A step's verb, and what it is told.
  struct Step {
    QStringList words;

    QString word(int i) const { return words.value(i); }
    int number(int i) const { return word(i).toInt(); }
    QString rest(int from) const { return QStringList(words.mid(from)).join(u' '); }
    QPoint point(int i) const {
      return {word(i).section(u',', 0, 0).toInt(), word(i).section(u',', 1).toInt()};
    }
    Qt::MouseButton button() const {
      return words.last() == u"right"    ? Qt::RightButton
             : words.last() == u"middle" ? Qt::MiddleButton
                                         : Qt::LeftButton;
    }
  };
  using Verbs = std::map<QString, std::function<void()>>;

  Verbs documentVerbs(const Step &step) {
    return {
        {u"select"_qs, [&] { main.selection().SelectItem(step.number(1), SelectedColor, false); }},
        {u"deselect"_qs, [&] { main.selection().Deselect(); }},
        {u"new"_qs, [&] { main.picNew_Click(); }},
        {u"add"_qs, [&] { add(step.number(1), step.number(2), step.number(3)); }},
        {u"remove"_qs, [&] { main.operations().RemoveSystem(step.number(1)); }},
        {u"link"_qs, [&] { link(step.number(1), step.number(2)); }},
        {u"unlink"_qs,
         [&] { main.operations().RemoveLink(step.number(1), step.words.size() > 2); }},
        {u"retype"_qs, [&] { main.operations().ReplaceSystem(step.number(1), step.number(2)); }},
        {u"end"_qs,
         [&] {
           vnb::at(Links, step.number(1)).dToY = step.word(2).toDouble();
           main.operations().RefreshLine(step.number(1));
         }},
        {u"subnet"_qs, [&] { main.operations().AddSubnet(step.number(1), step.number(2)); }},
        {u"answer"_qs,
         [&] { boxes.otherwise = step.word(1) == u"Yes" ? Answer::Yes : Answer::No; }}};
  }
  /// Forms and their controls, and what is answered in dialogs.
  Verbs formVerbs(const Step &step) {
    return {
        {u"show"_qs, [&] { show(step.word(1)); }},
        {u"close"_qs, [&] { form(step.word(1)).close(); }},
        {u"dialog"_qs, [&] { within(step.word(1), step.words.mid(2)); }},
        {u"focus"_qs, [&] { target(step.word(1)).setFocus(); }},
        {u"focused"_qs, [&] { changes << target(step.word(1)).focusWidget()->objectName(); }},
        {u"row"_qs,
         [&] { clickRow(target(step.word(1)), step.number(2), modifiersOf(step.word(3))); }},
        {u"key"_qs, [&] { key(QTest::Click, step.word(1), step.word(2)); }},
        {u"keydown"_qs, [&] { key(QTest::Press, step.word(1), step.word(2)); }},
        {u"keyup"_qs, [&] { key(QTest::Release, step.word(1), step.word(2)); }},
        {u"type"_qs, [&] { QTest::keyClicks(&target(step.word(1)), step.rest(2)); }},
        {u"content"_qs,
         [&] { dynamic_cast<TextBox &>(target(step.word(1))).setContent(step.rest(2)); }},
        {u"copy"_qs,
         [&] { QGuiApplication::clipboard()->setText(step.rest(1).replace(u"\\n"_qs, u"\n"_qs)); }},
        {u"paste"_qs, [&] { dynamic_cast<TextBox &>(target(step.word(1))).paste(); }},
        {u"toggle"_qs, [&] { dynamic_cast<QAbstractButton &>(target(step.word(1))).toggle(); }},
        {u"colour"_qs, [&] {
           colour =
               step.words.size() > 1 ? std::optional(QColor(step.word(1)).rgb()) : std::nullopt;
         }}};
  }
  /// Files and themes.
  Verbs fileVerbs(const Step &step) {
    return {
        {u"file"_qs,
         [&] {
           store.file(step.rest(2).replace(u"\\n"_qs, u"\r\n"_qs).toUtf8(),
                      qUtf8Printable(step.word(1)));
         }},
        {u"open"_qs,
         [&] {
           fileName = step.words.size() > 1 ? pathOf(step.word(1)) : QString(),
           main.picLoad_Click();
         }},
        {u"save"_qs,
         [&] {
           fileName = step.words.size() > 1 ? pathOf(step.word(1)) : QString(),
           main.picSave_Click();
         }},
        {u"compare"_qs,
         [&] {
           changes << (Folder::bytes(pathOf(step.word(1))) == Folder::bytes(pathOf(step.word(2)))
                           ? u"the same"_qs
                           : u"another"_qs);
         }},
        {u"theme"_qs, [&] { themeFile(step.word(1) + u"/theme.xml"_qs, step.rest(2).toUtf8()); }},
        {u"picture"_qs,
         [&] {
           themeFile(step.word(1), step.rest(4).toLatin1(), {step.number(2), step.number(3)});
         }},
        {u"pictures"_qs,
         [&] {
           for (int i = 2; i < step.words.size(); ++i)
             themeFile(step.word(1) + u'/' + step.word(i) + u".png"_qs, {}, {i - 1, 1});
         }},
        {u"bytes"_qs,
         [&] { themeFile(step.word(1), QByteArray::fromHex(step.rest(2).toLatin1())); }},
        {u"half"_qs,
         [&] {
           const QByteArray whole = Folder::bytes(ownTheme(step.word(1)));
           themeFile(step.word(2), whole.first(whole.size() / 2));
         }},
        {u"switch"_qs, [&] { switchTo(step.rest(1)); }},
        {u"gone"_qs, [&] { QDir(ownTheme(step.word(1))).removeRecursively(); }},
        {u"distance"_qs, [&] { GridRes = step.number(1); }},
        {u"keep"_qs, [&] { userColour(step.word(1)) = toColour(QColor(step.word(2))); }}};
  }
  /// The settings store, and what lies where it is looked for. "¶" is a line's end.
  Verbs storeVerbs(const Step &step) {
    const auto path = [&](int word) { return pathOf(step.word(word)); };
    const auto fill = [&](QString text) {
      text.replace(u'¶', u'\n').replace(u'~', store.path(""));
      store.file(text.toUtf8(), "VNB.ini");
    };
    return {
        {u"store"_qs, [=, &step] { fill(step.rest(1)); }},
        {u"start"_qs,
         [=, this, &step] {
           if (step.words.size() > 1)
             fill(QString::fromUtf8(Folder::bytes(path(1))));
           main.Form_Load();
         }},
        {u"setting"_qs,
         [=, this, &step] {
           fill(u"Main/Theme=~/theme.xml¶"_qs + step.rest(1));
           main.Form_Load();
         }},
        {u"finish"_qs, [&] { main.saveSettings(); }},
        {u"stored"_qs,
         [=, this] { changes << QString::fromUtf8(Folder::bytes(path(1))).replace(u'\n', u'¶'); }},
        {u"config"_qs, [=] { qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(1))); }},
        {u"alias"_qs, [=, &step] { EXPECT_TRUE(QFile::link(step.word(2), path(1))); }},
        {u"pipe"_qs, [=] { EXPECT_EQ(::mkfifo(QFile::encodeName(path(1)), 0600), 0); }},
        {u"grow"_qs, [=, &step] { EXPECT_TRUE(QFile::resize(path(1), step.number(2))); }},
        {u"delete"_qs, [=] { EXPECT_TRUE(QFile::remove(path(1))); }},
        {u"allow"_qs,
         [=, &step] {
           EXPECT_TRUE(QFile::setPermissions(
               path(1), QFile::Permissions::fromInt(step.word(2).toUInt(nullptr, 16))));
         }},
        {u"mode"_qs, [=, this] {
           const QFileInfo info(path(1));
           changes << QString::number((info.permissions() & 0x7077).toInt(), 16) +
                          (info.isSymLink() ? u", a link"_qs : QString());
         }}};
  }
  /// A device's menu and one of its entries; what a place is called.
  Verbs placeVerbs(const Step &step) {
    return {{u"menu"_qs, [&] { useMenu(step.number(1), step.rest(2)); }},
            {u"tip"_qs, [&] { tellTip(step.point(1)); }},
            {u"double"_qs,
             [&] { QTest::mouseDClick(&target(step.word(1)), Qt::LeftButton, {}, step.point(2)); }},
            {u"heard"_qs, [&] { tellHeard(); }},
            {u"act"_qs, [&] { act(step.word(1), step.word(2)); }},
            {u"moved"_qs, [&] { main.move(step.point(1)); }},
            {u"resize"_qs, [&] { main.resize(step.number(1), step.number(2)); }}};
  }
  /// Frames, as panels ask for them.
  Verbs frameVerbs(const Step &step) {
    return {{u"hint"_qs, [&] { main.selection().SelectItem(step.number(1), LinkSelColor, true); }},
            {u"lock"_qs, [&] { main.selection().showLock(step.number(1), step.number(2)); }},
            {u"valid"_qs, [&] { main.selection().showSubnet(step.number(1)); }},
            {u"line"_qs, [&] { main.selection().pickLink(step.number(1)); }},
            {u"pick"_qs, [&] { main.selection().pickSubnet(step.number(1)); }},
            {u"unlock"_qs, [&] { main.selection().ClearLockHilites(); }},
            {u"unpick"_qs, [&] { main.selection().ClearSubnetHilites(); }}};
  }
  /// What only a file can bring about, or a slip.
  Verbs slipVerbs(const Step &step) {
    return {
        {u"record"_qs,
         [&] {
           vnb::at(Systems, step.number(1)) = {step.number(2), step.number(3), step.number(4),
                                               step.number(5), step.number(6), step.number(7),
                                               step.number(8), step.rest(9)};
         }},
        {u"text"_qs, [&] { DataItems.push_back({.lNum = step.number(1), .sText = step.rest(2)}); }},
        {u"level"_qs, [&] { vnb::at(Links, step.number(1)).lSecur = step.number(2); }},
        {u"spriteless"_qs, [&] { Systems.emplace_back().lType = step.number(1); }},
        {u"selected"_qs, [&] { lSelectedItem = step.number(1); }}};
  }
  /// The pointer: a device or a control, and a place in it.
  Verbs pointerVerbs(const Step &step) {
    return {
        {u"press"_qs, [&] { press(step.number(1), step.button(), step.point(2)); }},
        {u"at"_qs, [&] { pressIn(child(step.word(1)), step.point(2), step.button()); }},
        {u"again"_qs, [&] { pressOn(step.button()); }},
        {u"to"_qs, [&] { moveIn(child(step.word(1)), step.point(2)); }},
        {u"release"_qs, [&] { step.words.size() > 1 ? release(step.button()) : release(); }},
        {u"lose"_qs, [&] { pointer.loseRelease(); }},
        {u"wheel"_qs,
         [&] { turnWheel(target(step.word(1)), step.point(2), step.point(3), step.words.last()); }},
        {u"scroll"_qs, [&] { child<QScrollBar>(step.word(1)).setValue(step.number(2)); }},
        {u"put"_qs, [&] { put(step.number(1), step.number(2), step.number(3)); }},
        {u"toolbox"_qs, [&] { toolbox(step.number(1)); }}};
  }

  void take(const Step &step) {
    for (const auto verbsOf :
         {&Session::documentVerbs, &Session::formVerbs, &Session::fileVerbs, &Session::storeVerbs,
          &Session::placeVerbs, &Session::frameVerbs, &Session::slipVerbs, &Session::pointerVerbs})
      if (const Verbs verbs = (this->*verbsOf)(step); verbs.contains(step.word(0)))
        return verbs.at(step.word(0))();
    const QString act = step.rest(0);
    const QString name = act.section(u'.', 0, 0);
    use(name == u"frmMain" ? main : static_cast<QWidget &>(form(name)),
        act.section(u'.', 1).toStdString());
  }

  /// A form that is shown by its name, as a dialog without its loop.
  void show(const QString &name) {
    FormTable &forms = main.forms();
    FormWindow *const form = name == u"frmAbout" ? static_cast<FormWindow *>(&forms.get<frmAbout>())
                             : name == u"frmSettings"
                                 ? static_cast<FormWindow *>(&forms.get<frmSettings>())
                                 : &forms.get<frmThemes>();
    form->showOwned(&main);
  }
  /// Presses a button of the toolbar that opens a dialog, uses that, and closes it.
  void within(const QString &button, const QStringList &acts) {
    QTimer::singleShot(0, &main, [this, acts] {
      const QPointer<QWidget> dialog = QApplication::activeModalWidget();
      EXPECT_EQ(dialog->parentWidget(), &main);
      note();
      for (const QString &act : acts)
        use(*dialog, act.toStdString());
      note();
      if (dialog)
        dialog->close();
    });
    use(main, button.toStdString());
  }
  /// Captions, with what is greyed and what is checked.
  static QString entries(const QMenu &menu) {
    QStringList out;
    if (const auto *links = dynamic_cast<const LongMenu *>(&menu))
      for (const NumberRow &row : links->rows())
        out << row.text();
    else
      for (const QAction *action : menu.actions())
        out << (action->isSeparator() ? u"---"_qs : action->text()) +
                   (action->isEnabled() ? QString() : u"(off)"_qs) +
                   (action->isChecked() ? u"(on)"_qs : QString());
    return out.join(u", "_qs);
  }
  /// Tells all entries, or runs the one of that text.
  void useMenu(std::int32_t Index, const QString &entry) {
    const auto menu = contextMenu.build(Index, main);
    QStringList told{entries(*menu)};
    for (QMenu *sub : menu->findChildren<QMenu *>()) {
      Q_EMIT sub->aboutToShow();
      Q_EMIT sub->aboutToShow(); // built anew, not added to
      told << entries(*sub);
      auto *links = dynamic_cast<LongMenu *>(sub);
      if (links == nullptr)
        continue;
      const auto row = std::ranges::find(links->rows(), entry, &NumberRow::text);
      if (row != links->rows().end())
        return links->Click(*row);
    }
    for (QAction *action : menu->findChildren<QAction *>())
      if (!entry.isEmpty() && action->text() == entry)
        return action->trigger();
    changes << told;
  }
  void tellTip(QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, surface().mapToGlobal(at));
    QCoreApplication::sendEvent(&surface(), &event);
    changes << QToolTip::text();
  }
  /// What assistive technology reads, and what has gone since it read last.
  void tellHeard() {
    QAccessibleInterface &list = *QAccessible::queryAccessibleInterface(&surface());
    const QPoint corner = surface().mapToGlobal(QPoint());
    for (const QAccessibleInterface *before : std::exchange(heard, {})) {
      EXPECT_NE(before->isValid(), before->state().invalid);
      if (!before->isValid())
        changes << u"one is gone: "_qs + before->text(QAccessible::Name);
    }
    for (int i = 0; i < list.childCount(); ++i) {
      QAccessibleInterface *item = heard.emplace_back(list.child(i));
      EXPECT_TRUE(item->parent() == &list && list.indexOfChild(item) == i);
      const QAccessible::State state = item->state();
      const QRect at = item->rect().translated(-corner);
      changes << item->text(QAccessible::Name) +
                     QStringLiteral(" at %1,%2 %3x%4%5%6%7")
                         .arg(at.x())
                         .arg(at.y())
                         .arg(at.width())
                         .arg(at.height())
                         .arg(state.selectable ? u" selectable"_qs : QString(),
                              state.selected ? u" selected"_qs : QString(),
                              state.offscreen ? u" offscreen"_qs : QString()) +
                     (list.childAt(item->rect().x(), item->rect().y()) == item ? QString()
                                                                               : u" not found"_qs);
    }
  }
  /// As assistive technology does: a device by its number, or a control.
  void act(const QString &on, const QString &action) {
    QAccessibleInterface &all = *QAccessible::queryAccessibleInterface(&surface());
    bool number = false;
    QAccessibleInterface *item = all.child(on.toInt(&number));
    QAccessibleActionInterface &actions =
        *(number ? item : QAccessible::queryAccessibleInterface(&target(on)))->actionInterface();
    actions.doAction(action);
    note();
    changes << u"later, of "_qs + actions.actionNames().join(u'/'); // the caller doesn't wait
  }
  static Colour &userColour(const QString &key) {
    return *std::ranges::find(colourRows, key.toStdString(), &ColourRow::key)->colour;
  }

  std::vector<QAccessibleInterface *> heard;
  std::optional<QRgb> colour; // that the next colour dialog answers; none for a cancel
};

class Sessions : public testing::TestWithParam<const char *> {};

TEST_P(Sessions, GoAsListed) {
  useCodePage(1252);
  std::optional<Session> session;
  QStringList now;
  for (const QString &line : listing(GetParam())) {
    if (line.startsWith(u"== "))
      session.emplace();
    if (line.contains(u"painted anew"))
      session->watchPainting();
    now << (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u'=') ? line
                                                                             : session->line(line));
  }
  expectListed(GetParam(), now);
}

INSTANTIATE_TEST_SUITE_P(Of, Sessions,
                         testing::Values("panels.txt", "controls.txt", "accessible.txt",
                                         "gestures.txt", "settings.txt", "store.txt", "themes.txt",
                                         "files.txt"));

} // namespace
} // namespace vnb::test
