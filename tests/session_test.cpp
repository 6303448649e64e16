// SPDX-License-Identifier: MIT
// What users do, step by step, and all that comes of it: in listings.
#include "appearance/frmThemes.h"
#include "appearance/theme.h"
#include "gesture.h"
#include "listing.h"
#include "runtime/codepage.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "widgets/drag.h"
#include "widgets/longmenu.h"

#include <QClipboard>
#include <QDir>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <map>
#include <optional>

namespace vnb::test {
namespace {

constexpr std::array buttonTags{"NEW",   "LOAD",   "SAVE",   "ADD",      "INFO",
                                "LINK",  "DEVICE", "SUBNET", "SETTINGS", "THEMES",
                                "ABOUT", "ADDSUB", "DELSUB"};

/// A line for each step, which says what a user does and, behind an arrow, all that this changes:
/// message boxes, dialogs, panels, records, frames, lines, looks, and what the pointer brings
/// about.
class Session : public Gesture {
public:
  Session() {
    gestures().openMenu = [this](std::int32_t Index, QPoint) {
      m_changes << u"menu of "_qs + QString::number(Index);
    };
    showColourDialog = [this](const ColourDialog &dialog) {
      m_changes << u"a colour instead of "_qs + QColor(dialog.start).name();
      return colour;
    };
    BackgroundColor = 0;
    GridColor = 0x404040;
    GridRes = 20;
    ShowGrid = LoadLastFile = false;
    ThemeFile = ThemeName = QString();
    for (const char *tag : buttonTags)
      main.view().loadButtonImages(QString::fromLatin1(tag), u"||"_qs);
    main.view().linkColorChanged();
    m_known = state();
  }
  ~Session() override {
    lSelectedItem = nothing; // the next test makes its forms without a device
    showColourDialog = [](const ColourDialog &) { return std::nullopt; };
    QDir(themesFolder()).removeRecursively();
  }
  void TestBody() override {}

  /// From here on each line also tells where the surface is painted anew.
  void watchPainting() {
    surface().installEventFilter(&m_repaints);
    QCoreApplication::processEvents();
    m_repaints.area = {};
  }

  /// Takes the step of a listed line, and returns the line as it is now.
  QString line(const QString &listed) {
    const QString step = listed.section(u" -> "_qs, 0, 0);
    take({step.split(u' ')});
    QCoreApplication::processEvents();
    note();
    QString changes = std::exchange(m_changes, {}).join(u" | "_qs);
    for (const auto &[path, name] : {std::pair(store.path(""), u"~"_qs),
                                     {themesFolder(), u"themes"_qs},
                                     {QCoreApplication::applicationDirPath(), u"program"_qs},
                                     {QStringLiteral(VNB_SAMPLES), u"samples"_qs}})
      changes.replace(path, name);
    return changes.isEmpty() ? step : step + u" -> "_qs + changes.replace(u'\n', u"\\n"_qs);
  }

private:
  using State = std::map<QString, QString>;

  /// What is new since it was called last.
  void note() {
    for (const FileDialog &dialog : std::exchange(dialogs, {}))
      m_changes << dialog.owner->objectName() + u": "_qs + dialog.title + u" \""_qs +
                       dialog.fileName + u"\" of "_qs + dialog.filter +
                       (dialog.folder.isEmpty() ? QString() : u" in "_qs + dialog.folder) +
                       (dialog.askBeforeOverwriting ? u", asks"_qs : QString());
    for (const MessageBox &box : std::exchange(boxes.boxes, {})) {
      const bool report = box.icon == MessageBox::Icon::Critical;
      m_changes << u'"' + QString::fromStdString(boxes.texts.front()) + u'"';
      boxes.texts.erase(boxes.texts.begin());
      if (!report)
        m_changes << u"titled "_qs + box.title +
                         (box.buttons == MessageBox::Buttons::YesNo ? u", Yes or No"_qs
                                                                    : QString()) +
                         (box.icon == MessageBox::Icon::Question ? u", a question"_qs : QString());
    }
    if (const QRect area = std::exchange(m_repaints.area, {}).boundingRect(); !area.isEmpty())
      m_changes << u"painted "_qs + QString::fromStdString(areaText(area, seen())) + leftOver();
    State now = state();
    for (const auto &[name, value] : now)
      if (const auto before = m_known.find(name);
          before == m_known.end() || before->second != value)
        m_changes << name + u'=' + value;
    for (const auto &[name, value] : m_known)
      if (!now.contains(name) && (!name.contains(u'.') || now.contains(name.section(u'.', 0, 0))))
        m_changes << u"no "_qs + name;
    m_known = std::move(now);
  }

  QRect seen() { return surface().parentWidget()->rect().translated(-surface().pos()); }
  /// Whether the window shows what a fresh painting would.
  QString leftOver() {
    QImage fresh(seen().size(), QImage::Format_RGB32);
    QPainter painter(&fresh);
    painter.translate(-seen().topLeft());
    surface().paint(painter, seen());
    const QRect place(surface().parentWidget()->mapTo(&main, QPoint()), seen().size());
    return difference(onScreen(main).copy(place), fresh) > 8 ? u", with traces"_qs : QString();
  }

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
                                        : store.path(qUtf8Printable(name));
  }
  void key(QTest::KeyAction action, const QString &path, const QString &name) {
    QWidget *on = &target(path);
    if (on->isWindow() && on->focusWidget() != nullptr)
      on = on->focusWidget();
    const QKeyCombination keys = QKeySequence(name)[0];
    QTest::keyEvent(action, on, keys.key(), keys.keyboardModifiers());
  }
  /// Makes a theme's file; one that has a size is a picture, in the format that `bytes` name.
  static void themeFile(const QString &name, const QByteArray &bytes, QSize picture = {}) {
    const QString path = themesFolder() + u'/' + name;
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
        raised([&] { LoadTheme(path ? theme : themePath(theme), main.view()); });
    if (!error.empty())
      m_changes << QString::fromStdString(error);
  }

  static void turnWheel(QWidget &on, QPoint angle, QPoint pixels, const QString &key) {
    const QPointF at(1, 1);
    QWheelEvent wheel(at, on.mapToGlobal(at), pixels, angle, {},
                      key == u"Shift" ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase,
                      false);
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
           m_changes << (Folder::bytes(pathOf(step.word(1))) == Folder::bytes(pathOf(step.word(2)))
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
           const QByteArray whole = Folder::bytes(themesFolder() + u'/' + step.word(1));
           themeFile(step.word(2), whole.first(whole.size() / 2));
         }},
        {u"switch"_qs, [&] { switchTo(step.rest(1)); }},
        {u"gone"_qs, [&] { QDir(themesFolder() + u'/' + step.word(1)).removeRecursively(); }},
        {u"distance"_qs, [&] { GridRes = step.number(1); }},
        {u"keep"_qs, [&] { userColour(step.word(1)) = toColour(QColor(step.word(2))); }}};
  }
  /// A device's menu and one of its entries; what a place is called.
  Verbs placeVerbs(const Step &step) {
    return {{u"menu"_qs, [&] { useMenu(step.number(1), step.rest(2)); }},
            {u"tip"_qs, [&] { tellTip(step.point(1)); }},
            {u"double"_qs,
             [&] { QTest::mouseDClick(&target(step.word(1)), Qt::LeftButton, {}, step.point(2)); }},
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
         [&] { turnWheel(child(step.word(1)), step.point(2), step.point(3), step.words.last()); }},
        {u"scroll"_qs, [&] { child<QScrollBar>(step.word(1)).setValue(step.number(2)); }},
        {u"put"_qs, [&] { put(step.number(1), step.number(2), step.number(3)); }},
        {u"toolbox"_qs, [&] { toolbox(step.number(1)); }}};
  }

  void take(const Step &step) {
    for (const auto verbsOf :
         {&Session::documentVerbs, &Session::formVerbs, &Session::fileVerbs, &Session::placeVerbs,
          &Session::frameVerbs, &Session::slipVerbs, &Session::pointerVerbs})
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
    m_changes << told;
  }
  void tellTip(QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, surface().mapToGlobal(at));
    QCoreApplication::sendEvent(&surface(), &event);
    m_changes << QToolTip::text();
  }
  static Colour &userColour(const QString &key) {
    return *std::ranges::find(colourRows, key.toStdString(), &ColourRow::key)->colour;
  }

  State state() {
    State out{{u"selected"_qs, QString::number(lSelectedItem)},
              {u"status"_qs, QString::fromStdString(status())},
              {u"scrolled"_qs, QStringLiteral("%1,%2").arg(surface().x()).arg(surface().y())},
              {u"band"_qs, QString::fromStdString(band())},
              {u"file"_qs, Cdlg.FileName},
              {u"title"_qs, Cdlg.FileTitle},
              {u"view"_qs, QStringLiteral("%1x%2, goes to %3,%4")
                               .arg(surface().parentWidget()->width())
                               .arg(surface().parentWidget()->height())
                               .arg(child<QScrollBar>("hsbScroll").maximum())
                               .arg(child<QScrollBar>("vsbScroll").maximum())}};
    if (Drag::instance().isActive())
      out[u"drag"_qs] = u"on"_qs;
    addForms(out);
    addDocument(out);
    addDiagram(out);
    addLook(out);
    return out;
  }
  void addForms(State &out) {
    main.forms().forEachLoaded([&](FormWindow &each) {
      if (!each.isVisible())
        return;
      const bool themed = each.palette().color(QPalette::Window) == toQColor(BackgroundColor);
      out[each.objectName()] = themed ? u"open"_qs : u"unthemed"_qs;
      for (const auto &[name, value] : facts(each)) {
        QString &fact = out[each.objectName() + u'.' + name];
        fact += fact.isEmpty() ? value : u'+' + value;
      }
    });
  }
  static void addDocument(State &out) {
    for (const auto &[name, first, rows] : {std::tuple(u"system"_qs, 0, dumpSystems()),
                                            {u"link"_qs, 1, dumpLinks()},
                                            {u"subnet"_qs, 1, dumpSubnets()},
                                            {u"text"_qs, 1, dumpData()}})
      for (int number = first; const QString &row : QString::fromStdString(rows).split(u';')) {
        if (!row.isEmpty())
          out[name + u' ' + QString::number(number)] = row;
        ++number;
      }
    out[u"header"_qs] = QStringLiteral("%1,%2,%3,%4,%5")
                            .arg(LanHeader.NAME, LanHeader.COMPANY, LanHeader.IP)
                            .arg(LanHeader.XPOS)
                            .arg(LanHeader.YPOS);
  }
  void addDiagram(State &out) {
    for (const QString &frame : QString::fromStdString(frames()).split(u';', Qt::SkipEmptyParts))
      out[u"frame "_qs + frame.section(u' ', 0, 0)] = frame.section(u' ', 1);
    for (std::int32_t i = 1; i <= surface().lneLink.UBound(); ++i) {
      const Line &each = surface().lneLink(i);
      out[u"line "_qs + QString::number(i)] =
          QStringLiteral("%1,%2-%3,%4%5")
              .arg(each.X1)
              .arg(each.Y1)
              .arg(each.X2)
              .arg(each.Y2)
              .arg(each.BorderColor == LinkSelColor ? u"!"
                   : each.BorderColor == LinkColor  ? u""
                                                    : u" of another colour");
    }
  }
  /// The grid as it is drawn, far from all devices.
  void addLook(State &out) {
    out[u"theme"_qs] = ThemeFile;
    out[u"settings"_qs] = QStringLiteral("%1%2%3")
                              .arg(ShowGrid ? u"grid, "_qs : QString())
                              .arg(GridRes)
                              .arg(LoadLastFile ? u", last"_qs : QString());
    QStringList grid;
    QImage row(100, 1, QImage::Format_RGB32);
    QPainter painter(&row);
    painter.translate(-2001, -1999);
    surface().paint(painter, {2001, 1999, 100, 1});
    for (int x = 0; x < row.width(); ++x)
      if (row.pixel(x, 0) != row.pixel(1, 0))
        grid << QString::number(x + 2001);
    out[u"grid"_qs] =
        grid.mid(0, 2).join(u',') + (grid.empty() ? QString() : u' ' + toQColor(GridColor).name());
    out[u"ground"_qs] = row.pixelColor(1, 0).name();
    for (const ColourRow &each : colourRows)
      out[u"colour "_qs + QString::fromStdString(std::string(each.key))] =
          toQColor(*each.colour).name();
    for (const Line *each : {&surface().lneLink(0), &surface().lneXOR})
      if (each->BorderColor != LinkColor)
        out[u"another colour"_qs] = toQColor(each->BorderColor).name();
    QStringList pictures, buttons;
    for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
      const QSize size = DeviceImages(lType).size();
      pictures << QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    }
    for (const char *tag : buttonTags) {
      const ButtonImageSet &set = ButtonImages(QString::fromLatin1(tag));
      buttons << QStringLiteral("%1/%2/%3")
                     .arg(set.Off.width())
                     .arg(set.Over.width())
                     .arg(set.Down.width());
    }
    for (const ToolbarButton &button : toolbarButtons())
      if (child(button.name).sizeHint() != ButtonImages(QString::fromLatin1(button.tag)).Off.size())
        buttons << QLatin1String(button.name) + u" shows another"_qs;
    out[u"pictures"_qs] = pictures.join(u' ');
    out[u"buttons"_qs] = buttons.join(u' ');
  }

  std::optional<QRgb> colour; // that the next colour dialog answers; none for a cancel
  QStringList m_changes;
  State m_known;
  Repaints m_repaints;
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
                         testing::Values("panels.txt", "gestures.txt", "settings.txt", "themes.txt",
                                         "files.txt"));

} // namespace
} // namespace vnb::test
