// SPDX-License-Identifier: MIT
#include "appearance/frmThemes.h"
#include "appearance/images.h"
#include "formtest.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "shell/swatch.h"
#include "shellsupport.h"
#include "widgets/dialogs.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QPlainTextEdit>
#include <QTimer>

namespace vnb::test {
namespace {

class SettingsDialog : private EditorView, public FormTest<frmSettings> {
protected:
  SettingsDialog() : FormTest(static_cast<EditorView &>(*this)) {
    forgetAll();
    ShowGrid = true;
    GridRes = 20;
    Colour next = 0x100001;
    for (Colour *colour : {&GridColor, &SelectedColor, &LockColor, &SubnetColor, &SubnetSelColor,
                           &LinkColor, &LinkSelColor})
      *colour = next++;
    BackgroundColor = 0x302010;
    showColourDialog = [this](const ColourDialog &dialog) {
      EXPECT_EQ(dialog.owner, &form());
      starts.push_back(dialog.start);
      return answer;
    };
  }
  ~SettingsDialog() override {
    showColourDialog = [](const ColourDialog &) { return std::nullopt; };
  }

  void linkColorChanged() override { recoloured.push_back(LinkColor); }

  Swatch &swatch(int index) { return control<Swatch>("picColor" + std::to_string(index)); }
  TextBox &box() { return control<TextBox>("txtGridRes"); }
  std::string shown() { return test::shown(form()); }
  void paste(const std::string &text) {
    QApplication::clipboard()->setText(QString::fromStdString(text));
    box().selectAll();
    box().paste();
  }
  /// Another value in every control.
  void changeAll() {
    paste("33");
    click("chkGrid");
    click("chkLoadLast");
    for (int i = 0; i < 7; ++i) {
      answer = qRgb(i, 2, 3);
      click("picColor" + std::to_string(i));
    }
  }

  std::optional<QRgb> answer;
  std::vector<QRgb> starts;
  std::vector<Colour> recoloured;
};

TEST_F(SettingsDialog, ShowsWhatIsInForce) {
  EXPECT_EQ(shown(), "chkGrid=on txtGridRes=20");
  for (int i = 0; i < 7; ++i)
    EXPECT_EQ(swatch(i).BackColor(), 0x100001 + i);
  GridRes = 12345;
  ShowGrid = false;
  LoadLastFile = true;
  BackgroundColor = 0xFF0000;
  TextColor = 0x00FF00;
  form().Form_Load();
  EXPECT_EQ(shown(), "txtGridRes=12345 chkLoadLast=on") << "the limit binds the user alone";
  EXPECT_EQ(seen("picColor0"), QColor(1, 0, 16)) << "a theme changes all but the swatches";
  EXPECT_EQ(control("lblGridRes").palette().color(QPalette::WindowText), QColor(Qt::green));
  EXPECT_EQ(form().palette().color(QPalette::Window), QColor(Qt::blue));
  EXPECT_EQ(box().palette().color(QPalette::Base), QColor(Qt::blue));
}

TEST_F(SettingsDialog, TheGridBoxHoldsANumber) {
  for (const auto &[typed, due] :
       sides({"7 -> 7", "999 -> 999", "1234 -> 123", "12abc -> 12", "abc -> 0", "007 -> 7",
              " 8 -> 8", "1.5 -> 1.5, 2", "2.5 -> 2.5, 2", ".5 -> 0.5, 0", "-5 -> -5", "-0 -> 0",
              "9e9 -> 900", "\u0416 -> 0"})) {
    paste(typed);
    std::string outcome = box().text().toStdString();
    click("cmdOK");
    if (const std::string taken = std::to_string(GridRes); taken != outcome)
      outcome.append(", ").append(taken);
    EXPECT_EQ(outcome, due) << typed;
  }
}

TEST_F(SettingsDialog, AClickOnASwatchAsksForItsColour) {
  Cdlg.flags = CdlgEx::LongNames | CdlgEx::HideReadOnly;
  answer = qRgb(1, 2, 3);
  click("picColor5");
  answer = std::nullopt;
  click("picColor5");
  click("picColor1");
  EXPECT_EQ(swatch(5).BackColor(), 0x030201) << "then cancelled";
  EXPECT_EQ(swatch(1).BackColor(), 0x100002);
  EXPECT_THAT(starts, ElementsAre(qRgb(0x06, 0, 0x10), qRgb(1, 2, 3), qRgb(0x02, 0, 0x10)));
  EXPECT_EQ(Cdlg.flags, CdlgEx::LongNames | CdlgEx::HideReadOnly | CdlgEx::StartOnColour |
                            CdlgEx::ShowCustomColours);
  EXPECT_EQ(LinkColor, 0x100006) << "nothing is in force before OK";
}

TEST_F(SettingsDialog, OkPutsAllIntoForce) {
  const Words before = values();
  click("cmdOK");
  EXPECT_EQ(values(), before);
  changeAll();
  QTest::keyClick(&box(), Qt::Key_Return); // as OK
  EXPECT_THAT(values(), ElementsAre("no grid", "33", "unread", "last", "30200", "30205", "30206",
                                    "30202", "30201", "30203", "30204"));
  EXPECT_THAT(recoloured, ElementsAre(0x100006, 0x030205)) << "once LinkColor is new";
  EXPECT_FALSE(isLoaded());

  const Boxes boxes(yes(1));
  box().setContent(QStringLiteral("9000000000")); // as a stored one can be made by editing
  control<QCheckBox>("chkGrid").setChecked(true);
  click("cmdOK");
  EXPECT_THAT(boxes.texts, ElementsAre("6 frmSettings.cmdOK_Click"));
  EXPECT_TRUE(GridRes == 33 && ShowGrid) << "the rest is taken";
}

TEST_F(SettingsDialog, OtherWaysOutChangeNothingAndDestroyTheForm) {
  const Words before = values();
  for (const std::function<void()> &leave : std::vector<std::function<void()>>{
           [this] { click("cmdCancel"); }, [this] { form().close(); },
           [this] { QTest::keyClick(&box(), Qt::Key_Escape); }}) {
    const QPointer<frmSettings> dialog = &form();
    EXPECT_EQ(shown(), "chkGrid=on txtGridRes=20");
    changeAll();
    QTimer::singleShot(0, &form(), leave);
    form().showModal(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull() && !isLoaded());
  }
  EXPECT_EQ(values(), before);
  EXPECT_THAT(recoloured, IsEmpty());
}

/// The picker over themes of its own. Their folders stand beside the program, where other tests may
/// have some as well, and are hidden ones.
class ThemePicker : protected EditorView, public FormTest<frmThemes> {
protected:
  ThemePicker() : FormTest(static_cast<EditorView &>(*this)) {
    forgetAll();
    theme("good", "<T><INFO><TITLE>\n Good\n &lt;b&gt; </TITLE><AUTHOR>Ann</AUTHOR>"
                  "<DESCRIPTION>Fine.</DESCRIPTION></INFO><INFO><TITLE>No</TITLE></INFO><COLORS>"
                  "<c for='grid' color='#010000'/><c for='text' color='#020000'/></COLORS>"
                  "<BUTTONS/><DEVICES><d name='router' image='a.png'/></DEVICES></T>");
    EXPECT_TRUE(QImage(5, 7, QImage::Format_RGB32).save(folder("good") + QStringLiteral("/a.png")));
  }
  ~ThemePicker() override {
    for (const QString &folder : m_folders)
      QDir(folder).removeRecursively();
  }

  QString name(const QByteArray &theme) const { return m_prefix + QString::fromUtf8(theme); }
  QString folder(const QByteArray &theme) const { return themesFolder() + u'/' + name(theme); }
  /// Makes a theme's folder, with a theme.xml of these bytes if there are any.
  void theme(const QByteArray &name, const QByteArray &bytes = {}) {
    m_folders << folder(name);
    EXPECT_TRUE(QDir().mkpath(folder(name)));
    QFile file(folder(name) + QStringLiteral("/theme.xml"));
    if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly))
      file.write(bytes);
  }

  NumberList &list() { return control<NumberList>("lstThemes"); }
  /// The lines of this test's own themes without their prefix, or that of them that is selected.
  Words lines(bool selectedOnly = false) {
    Words lines;
    for (const NumberRow &line : list().rows())
      if (line.text().startsWith(m_prefix) && (!selectedOnly || &line == list().picked()))
        lines.push_back(line.text().mid(m_prefix.size()).toStdString());
    return lines;
  }
  Words selectedLines() { return lines(true); }
  void pick(const QByteArray &theme) {
    const auto row = std::ranges::find(list().rows(), name(theme), &NumberRow::text);
    ASSERT_NE(row, list().rows().end()) << theme.toStdString();
    list().setListIndex(static_cast<int>(row - list().rows().begin()));
  }
  /// What the picker tells of the theme picked.
  std::string info() {
    return text("lblName") + "|" + text("lblAuthor") + "|" +
           control<QPlainTextEdit>("txtDescription").toPlainText().toStdString();
  }
  void expectInForce(const QByteArray &theme) {
    EXPECT_EQ(ThemeName, name(theme));
    EXPECT_EQ(ThemeFile, folder(theme) + QStringLiteral("/theme.xml"));
    EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  }

  void linkColorChanged() override { calls.emplace_back("linkColorChanged"); }
  void UpdateColors() override {
    calls.push_back("UpdateColors " + toQColor(GridColor).name().toStdString());
    form().UpdateColors();
  }
  void loadButtonImages(const QString & /*tag*/, const QString & /*files*/) override {}
  void deviceImagesChanged() override { calls.emplace_back("devices"); }
  std::function<void()> keepDrawn() override {
    return [this, now = calls.size()] { calls.push_back("redrawn as at " + std::to_string(now)); };
  }

  Words calls;

private:
  const QString m_prefix = QStringLiteral(".picker|%1:").arg(QCoreApplication::applicationPid());
  QStringList m_folders;
};

TEST_F(ThemePicker, ListsTheFoldersAndSelectsTheThemeInForce) {
  theme("empty");
  QFile file(themesFolder() + u'/' + name("file"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ThemeName = name("good");
  EXPECT_THAT(lines(), UnorderedElementsAre("good", "empty"));
  EXPECT_THAT(selectedLines(), ElementsAre("good"));
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_EQ(info(), "Name: Good <b>|Author: Ann|Fine.");
  for (const NumberRow &line : list().rows())
    EXPECT_TRUE(line.text() != u"." && line.text() != u"..");
  file.remove();

  forms.unload();
  ThemeName = name("GOOD");
  EXPECT_THAT(selectedLines(), IsEmpty()) << "names are compared with case";
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_EQ(info(), "Name:|Author: |");
}

TEST_F(ThemePicker, ShowsWhatAThemeSaysOfItself) {
  theme("untitled", "<T><INFO><AUTHOR>Bob<b>by</b></AUTHOR><TITLE/><title>no</title></INFO></T>");
  theme("anonymous", "<T><INFO/></T>");
  theme("silent", "<T><X><INFO><TITLE>no</TITLE></INFO></X></T>");
  theme("empty");
  theme("broken", "<T>\n<INFO>");
  const std::string unreadable = "|Author: |The theme.xml of this folder can't be read. ";
  for (const auto &[theme, due] : std::vector<std::pair<QByteArray, std::string>>{
           {"good", "Name: Good <b>|Author: Ann|Fine."},
           {"untitled", "Name: |Author: Bobby|Fine."},
           {"anonymous", "Name: |Author: Bobby|Fine."},
           {"empty", "Name: " + unreadable + "File not found"},
           {"good", "Name: Good <b>|Author: Ann|Fine."},
           {"broken", "Name: " + unreadable + "Line 2, column "},
           {"silent", "Name: |Author: |This theme says nothing about itself."}}) {
    pick(theme);
    EXPECT_THAT(info(), StartsWith(due)) << theme.toStdString();
  }
  EXPECT_TRUE(control<QPlainTextEdit>("txtDescription").isReadOnly());
  EXPECT_THAT(calls, IsEmpty()) << "a look at a theme is no switch";
}

TEST_F(ThemePicker, SwitchesAndGoesBackWhereASwitchFails) {
  theme("bad", "<T><COLORS><c for='link' color='#000009'/><c for='grid' color='#000009'/></COLORS>"
               "<BUTTONS/><DEVICES><d name='HUB'/></DEVICES></T>");
  const Boxes boxes;
  RedTextColor = 0x0000FF;
  click("cmdSwitch");
  EXPECT_THAT(calls, IsEmpty());
  pick("bad");
  click("cmdSwitch");
  EXPECT_EQ(ThemeFile + ThemeName, u"") << "none was in force";
  pick("good");
  calls.clear();
  click("cmdSwitch");
  EXPECT_THAT(calls, ElementsAre("UpdateColors #010000", "devices"));
  expectInForce("good");
  EXPECT_THAT(selectedLines(), ElementsAre("good")) << "the picker stays open";
  EXPECT_EQ(control("lblCurTheme").palette().color(QPalette::WindowText), QColor(Qt::red));
  GridColor = 0x445566; // the user's own
  LinkColor = 0x112233;
  const Words before = values();
  for (const bool there : {true, false}) {
    const std::size_t at = calls.size();
    if (!there)
      QDir(folder("good")).removeRecursively();
    pick("bad");
    click("cmdSwitch");
    EXPECT_EQ(values(), before);
    EXPECT_EQ(
        Words(calls.end() - 3, calls.end()),
        (Words{"linkColorChanged", "UpdateColors #665544", "redrawn as at " + std::to_string(at)}));
    EXPECT_EQ(DeviceImages(1).size(), QSize(5, 7));
    expectInForce("good"); // also when it is there no more
    EXPECT_THAT(selectedLines(), ElementsAre("bad"));
  }
  Words due(4, "The theme \"" + name("bad").toStdString() +
                   "\" can't be loaded.\nPath/File access error\n" + folder("bad").toStdString() +
                   "/\nThe entry \"hub\" names no picture for \"image\".");
  due[0] = "Pick a theme in the list first.";
  EXPECT_EQ(boxes.texts, due);
}

TEST(Dialogs, AskBeforeTheyOverwriteAndGoOnAfterNo) {
  const Folder folder;
  const QString path = folder.file("old", "<i>a.txt");
  Boxes boxes;
  QTimer::singleShot(0, [&] {
    auto *dialog = dynamic_cast<QDialog *>(QApplication::activeModalWidget());
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    boxes.otherwise = Answer::Yes;
    dialog->accept();
  });
  EXPECT_EQ(showFileDialog(
                {.kind = FileDialog::Kind::Save, .fileName = path, .askBeforeOverwriting = true}),
            path);
  EXPECT_EQ(boxes.texts, Words(2, "<i>a.txt already exists.\nDo you want to replace it?"));
  EXPECT_EQ(boxes.boxes[0].preset, Answer::No);
}

TEST(Dialogs, AreCancelledWhenTheirOwnerEnds) {
  const MessageBox question{.title = {}, .text = {}, .buttons = MessageBox::Buttons::YesNo};
  for (int kind = 0; kind < 3; ++kind) {
    auto *owner = new QWidget;
    owner->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(owner));
    QTimer::singleShot(0, [owner] { delete owner; });
    EXPECT_TRUE(kind == 0   ? showMessageWindow(question) == Answer::No
                : kind == 1 ? !showFileDialog({.owner = owner})
                            : !showColourDialog({.owner = owner}));
  }
}

TEST(Splash, TheDotsGoRoundWhileItShows) {
  frmSplash splash;
  const auto *label = splash.findChild<QLabel *>(QStringLiteral("lblLoading"));
  auto *tmrDots = splash.findChild<QTimer *>();
  ASSERT_TRUE(tmrDots->isActive());
  Words texts{label->text().toStdString()};
  while (texts.size() < 6) {
    QTimerEvent tick(tmrDots->timerId());
    QCoreApplication::sendEvent(tmrDots, &tick);
    texts.push_back(label->text().toStdString());
  }
  EXPECT_THAT(texts, ElementsAre("Loading...", "Loading", "Loading.", "Loading..", "Loading...",
                                 "Loading"));
  splash.show();
  splash.hide();
  EXPECT_FALSE(tmrDots->isActive());
  splash.show();
  EXPECT_TRUE(tmrDots->isActive());
}

} // namespace
} // namespace vnb::test
