// SPDX-License-Identifier: MIT
#include "appearance/frmThemes.h"
#include "appearance/images.h"
#include "forms/dialogs.h"
#include "forms/textbox.h"
#include "formtest.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "shell/swatch.h"
#include "shellsupport.h"
#include "support.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace vnb::test {
namespace {

class SettingsDialog : public FormTest<frmSettings> {
protected:
  SettingsDialog() {
    forgetAll();
    ShowGrid = true;
    GridRes = 20;
    Colour next = 0x100001;
    for (Colour *colour : {&GridColor, &SelectedColor, &LockColor, &SubnetColor, &SubnetSelColor,
                           &LinkColor, &LinkSelColor})
      *colour = next++;
    BackgroundColor = 0x302010;
    frmSettings::LinkColorChanged = [this] { recoloured.push_back(LinkColor); };
    showColourDialog = [this](const ColourDialog &dialog) {
      requests.push_back(dialog);
      return answer;
    };
  }
  ~SettingsDialog() override {
    showColourDialog = [](const ColourDialog &) { return std::nullopt; };
    frmSettings::LinkColorChanged = [] {};
  }

  static Swatch &swatch(int index) {
    return control<Swatch>(("picColor" + std::to_string(index)).c_str());
  }
  static std::vector<Colour> swatches() {
    std::vector<Colour> colours;
    colours.reserve(7);
    for (int i = 0; i < 7; ++i)
      colours.push_back(swatch(i).BackColor());
    return colours;
  }
  static TextBox &box() { return control<TextBox>("txtGridRes"); }
  static bool isTicked(const char *name) { return control<QCheckBox>(name).isChecked(); }
  static void paste(const char16_t *text) {
    QApplication::clipboard()->setText(QString::fromUtf16(text));
    box().selectAll();
    box().paste();
  }
  /// Another value in every control.
  void changeAll() {
    paste(u"33");
    control<QCheckBox>("chkGrid").click();
    control<QCheckBox>("chkLoadLast").click();
    answer = qRgb(1, 2, 3);
    for (int i = 0; i < 7; ++i)
      QTest::mouseClick(&swatch(i), Qt::LeftButton);
  }

  std::optional<QRgb> answer;
  std::vector<ColourDialog> requests;
  std::vector<Colour> recoloured;
};

TEST_F(SettingsDialog, ShowsWhatIsInForce) {
  EXPECT_EQ(box().text(), u"20");
  EXPECT_TRUE(isTicked("chkGrid"));
  EXPECT_FALSE(isTicked("chkLoadLast"));
  EXPECT_THAT(swatches(),
              ElementsAre(0x100001, 0x100002, 0x100003, 0x100004, 0x100005, 0x100006, 0x100007));
  Words captions;
  for (int i = 0; i < 7; ++i)
    captions.push_back(text(("lblColor" + std::to_string(i)).c_str()));
  EXPECT_THAT(captions, ElementsAre("Grid:", "Selected item:", "Lock:", "Subnet:",
                                    "Selected subnet:", "Link:", "Selected link:"));
  GridRes = 12345;
  ShowGrid = false;
  LoadLastFile = true;
  LinkSelColor = 0xABCDEF;
  form().Form_Load();
  EXPECT_EQ(box().text(), u"12345") << "the limit binds the user alone";
  EXPECT_FALSE(isTicked("chkGrid"));
  EXPECT_TRUE(isTicked("chkLoadLast"));
  EXPECT_EQ(swatch(6).BackColor(), 0xABCDEF);
}

TEST_F(SettingsDialog, TheGridBoxHoldsANumber) {
  struct Case {
    const char16_t *typed;
    const char16_t *shown;
    std::int32_t due;
  };
  for (const auto &[typed, shown, due] : std::vector<Case>{
           {u"7", u"7", 7},
           {u"999", u"999", 999},
           {u"1234", u"123", 123},
           {u"12abc", u"12", 12},
           {u"abc", u"0", 0},
           {u"007", u"7", 7},
           {u" 8", u"8", 8},
           {u"1.5", u"1.5", 2},
           {u"2.5", u"2.5", 2},
           {u".5", u"0.5", 0},
           {u"-5", u"-5", -5},
           {u"-0", u"0", 0},
           {u"\u0416", u"0", 0},
       }) {
    form();
    paste(typed);
    EXPECT_EQ(box().text(), shown);
    click("cmdOK");
    EXPECT_EQ(GridRes, due) << QString::fromUtf16(typed).toStdString();
  }
}

TEST_F(SettingsDialog, TheGridBoxCanBeTypedInto) {
  form().show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form()));
  box().setFocus();
  box().clear();
  EXPECT_EQ(box().text(), u"0");
  box().selectAll();
  QTest::keyClicks(&box(), QStringLiteral("4a56"));
  EXPECT_EQ(box().text(), u"456") << "letters vanish as they are typed";
  box().setCursorPosition(1);
  QTest::keyClick(&box(), Qt::Key_Delete);
  QTest::keyClicks(&box(), QStringLiteral("78"));
  EXPECT_EQ(box().text(), u"476") << "in the middle, and no more than three";
  QTest::keyClick(&box(), Qt::Key_Return);
  EXPECT_EQ(GridRes, 476);
}

TEST_F(SettingsDialog, SwatchesKeepTheirColoursThroughAThemeSwitch) {
  swatch(0).setBackColor(0x0000FF);
  BackgroundColor = 0xFF0000;
  TextColor = 0x00FF00;
  form().UpdateColors();
  EXPECT_EQ(seen("picColor0"), QColor(Qt::red));
  EXPECT_EQ(control("lblGridRes").palette().color(QPalette::WindowText), QColor(Qt::green));
  EXPECT_EQ(form().palette().color(QPalette::Window), QColor(Qt::blue));
  EXPECT_EQ(box().palette().color(QPalette::Base), QColor(Qt::blue));
}

TEST_F(SettingsDialog, AClickOnASwatchAsksForItsColour) {
  Cdlg.flags = CdlgEx::LongNames | CdlgEx::HideReadOnly;
  answer = qRgb(1, 2, 3);
  click("picColor5");
  EXPECT_EQ(swatch(5).BackColor(), 0x030201);
  answer = std::nullopt;
  click("picColor5");
  click("picColor1");
  EXPECT_EQ(swatch(5).BackColor(), 0x030201) << "cancelled";
  EXPECT_EQ(swatch(1).BackColor(), 0x100002);
  ASSERT_EQ(requests.size(), 3U);
  EXPECT_EQ(requests[0].start, qRgb(0x06, 0, 0x10));
  EXPECT_EQ(requests[1].start, qRgb(1, 2, 3));
  EXPECT_EQ(requests[2].start, qRgb(0x02, 0, 0x10));
  EXPECT_EQ(requests[2].owner, &form());
  EXPECT_EQ(Cdlg.flags, CdlgEx::LongNames | CdlgEx::HideReadOnly | CdlgEx::StartOnColour |
                            CdlgEx::ShowCustomColours);
  EXPECT_EQ(LinkColor, 0x100006) << "nothing is in force before OK";
}

TEST_F(SettingsDialog, OkPutsAllIntoForce) {
  changeAll();
  swatch(2).setBackColor(0xABCDEF);
  click("cmdOK");
  EXPECT_THAT(values(), ElementsAre("no grid", "33", "unread", "last", "30201", "30201", "30201",
                                    "abcdef", "30201", "30201", "30201"));
  EXPECT_THAT(recoloured, ElementsAre(0x030201)) << "once LinkColor is new";
  EXPECT_FALSE(Form<frmSettings>::isLoaded());
}

TEST_F(SettingsDialog, OkAloneWritesTheSameBackAndRecolours) {
  const Words before = values();
  click("cmdOK");
  EXPECT_EQ(values(), before);
  EXPECT_THAT(recoloured, ElementsAre(0x100006));
}

TEST_F(SettingsDialog, ADistanceBeyondALongIsReportedAndTheRestTaken) {
  const Boxes boxes(yes(1));
  box().setContent(QStringLiteral("9000000000")); // as a stored one can be made by editing
  control<QCheckBox>("chkGrid").setChecked(false);
  click("cmdOK");
  EXPECT_THAT(boxes.texts, ElementsAre("6 frmSettings.cmdOK_Click"));
  EXPECT_EQ(GridRes, 20);
  EXPECT_FALSE(ShowGrid);
}

TEST_F(SettingsDialog, OtherWaysOutChangeNothingAndDestroyTheForm) {
  const Words before = values();
  const auto leave = [this](auto act) {
    const QPointer<frmSettings> dialog = &form();
    changeAll();
    QTimer::singleShot(0, &form(), act);
    form().showModal(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return dialog.isNull() && !Form<frmSettings>::isLoaded();
  };
  EXPECT_TRUE(leave([] { click("cmdCancel"); }));
  EXPECT_TRUE(leave([] { form().close(); }));
  EXPECT_TRUE(leave([] { QTest::keyClick(&form(), Qt::Key_Escape); }));
  EXPECT_TRUE(leave([] { QTest::keyClick(&box(), Qt::Key_Escape); }));
  EXPECT_EQ(values(), before);
  EXPECT_THAT(recoloured, IsEmpty());
  EXPECT_EQ(box().text(), u"20") << "a new form shows what is in force";
}

/// The picker over themes of its own. Their folders stand beside the program, where other tests may
/// have some as well.
class ThemePicker : public FormTest<frmThemes>, protected ThemeView {
protected:
  ThemePicker() {
    forgetAll();
    frmThemes::View = this;
    EXPECT_TRUE(QDir().mkpath(themesFolder()));
    m_marker = std::make_unique<QTemporaryDir>(themesFolder() + QStringLiteral("/picker-XXXXXX"));
    m_prefix = QDir(m_marker->path()).dirName() + u'-';
    theme("good",
          "<INFO><TITLE>Good &lt;b&gt;</TITLE><AUTHOR>Ann</AUTHOR>"
          "<DESCRIPTION>Fine.\nTwo lines.</DESCRIPTION></INFO><INFO><TITLE>No</TITLE></INFO>",
          "<c for='grid' color='#010000'/><c for='text' color='#020000'/>",
          "<d name='router' image='a.png'/>");
    QImage image(5, 7, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(folder("good") + QStringLiteral("/a.png")));
  }
  ~ThemePicker() override {
    frmThemes::View = nullptr;
    for (const QString &name : m_folders)
      QDir(folder(name.toUtf8())).removeRecursively();
  }

  QString name(const QByteArray &theme) const { return m_prefix + QString::fromUtf8(theme); }
  QString folder(const QByteArray &theme) const { return themesFolder() + u'/' + name(theme); }
  QString makeFolder(const QByteArray &theme) {
    m_folders << QString::fromUtf8(theme);
    EXPECT_TRUE(QDir().mkpath(folder(theme)));
    return folder(theme);
  }
  void file(const QByteArray &theme, const QByteArray &bytes) {
    QFile file(makeFolder(theme) + QStringLiteral("/theme.xml"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  void theme(const QByteArray &name, const QByteArray &info, const QByteArray &colours = {},
             const QByteArray &devices = {}) {
    file(name, "<T>" + info + "<COLORS>" + colours + "</COLORS><BUTTONS/><DEVICES>" + devices +
                   "</DEVICES></T>");
  }

  static QListWidget &list() { return control<QListWidget>("lstThemes"); }
  /// The lines of this test's own themes, without their prefix.
  Words lines() const {
    Words lines;
    for (int i = 0; i < list().count(); ++i)
      if (list().item(i)->text().startsWith(m_prefix))
        lines.push_back(list().item(i)->text().mid(m_prefix.size()).toStdString());
    return lines;
  }
  std::string selectedLine() const {
    const auto items = list().selectedItems();
    return items.isEmpty() ? "" : items[0]->text().mid(m_prefix.size()).toStdString();
  }
  void pick(const QByteArray &theme) {
    const auto items = list().findItems(name(theme), Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1) << theme.toStdString();
    list().setCurrentItem(items[0]);
  }
  /// What the picker tells of the theme picked.
  static Words info() {
    return {text("lblName"), text("lblAuthor"),
            control<QPlainTextEdit>("txtDescription").toPlainText().toStdString()};
  }

  void linkColorChanged() override { calls.emplace_back("linkColorChanged"); }
  void UpdateColors() override {
    calls.push_back("UpdateColors " + toQColor(GridColor).name().toStdString());
    form().UpdateColors();
  }
  void loadButtonImages(const QString & /*tag*/, const QString & /*files*/) override {}
  void deviceImagesChanged() override { calls.emplace_back("devices"); }

  Words calls;

private:
  std::unique_ptr<QTemporaryDir> m_marker;
  QString m_prefix;
  QStringList m_folders;
};

TEST_F(ThemePicker, ListsTheFoldersAndSelectsTheThemeInForce) {
  makeFolder("empty");
  makeFolder(".hidden");
  QFile file(themesFolder() + u'/' + name("file"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ThemeName = name("good");
  EXPECT_THAT(lines(), UnorderedElementsAre("good", "empty", ".hidden"));
  EXPECT_EQ(selectedLine(), "good");
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_THAT(info(), ElementsAre("Name: Good <b>", "Author: Ann", "Fine.\nTwo lines."));
  EXPECT_TRUE(list().findItems(QStringLiteral("."), Qt::MatchStartsWith).isEmpty());
  file.remove();

  Form<frmThemes>::unload();
  ThemeName = name("GOOD");
  EXPECT_EQ(selectedLine(), "") << "names are compared with case";
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_THAT(info(), ElementsAre("Name:", "Author: ", ""));
}

TEST_F(ThemePicker, ShowsWhatAThemeSaysOfItself) {
  theme("untitled", "<INFO><AUTHOR>Bob<b>by</b></AUTHOR><TITLE/><title>no</title></INFO>");
  theme("anonymous", "<INFO/>");
  theme("silent", "<X><INFO><TITLE>no</TITLE></INFO></X>");
  makeFolder("empty");
  file("broken", "<T>\n<INFO>");
  file("other", "<T><INFO><TITLE>A title is enough</TITLE></INFO></T>");
  struct Case {
    QByteArray theme;
    std::string name, author, description;
  };
  for (const auto &[theme, name, author, description] : std::vector<Case>{
           {"good", "Good <b>", "Ann", "Fine."},
           {"untitled", "", "Bobby", "Fine."},
           {"anonymous", "", "Bobby", "Fine."},
           {"empty", "", "", "The theme.xml of this folder can't be read. File not found"},
           {"good", "Good <b>", "Ann", "Fine."},
           {"broken", "", "", "The theme.xml of this folder can't be read. Line 2, column "},
           {"other", "A title is enough", "", "The theme.xml of this folder can't be read. Line 2"},
           {"silent", "", "", "This theme says nothing about itself."},
       }) {
    pick(theme);
    EXPECT_THAT(info(), ElementsAre("Name: " + name, "Author: " + author, StartsWith(description)))
        << theme.toStdString();
  }
  EXPECT_THAT(calls, IsEmpty()) << "a look at a theme is no switch";
}

TEST_F(ThemePicker, SwitchesAndStaysOpen) {
  RedTextColor = 0x0000FF;
  pick("good");
  click("cmdSwitch");
  EXPECT_THAT(calls, ElementsAre("UpdateColors #010000", "devices"));
  EXPECT_EQ(ThemeName, name("good"));
  EXPECT_EQ(ThemeFile, folder("good") + QStringLiteral("/theme.xml"));
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_EQ(selectedLine(), "good");
  EXPECT_EQ(control("lblCurTheme").palette().color(QPalette::WindowText), QColor(Qt::red));
  EXPECT_EQ(control("lblName").palette().color(QPalette::WindowText), QColor(2, 0, 0));
  EXPECT_TRUE(Form<frmThemes>::isLoaded());
}

TEST_F(ThemePicker, ASwitchToNothingIsTold) {
  const Boxes boxes;
  click("cmdSwitch");
  EXPECT_THAT(boxes.texts, ElementsAre("Pick a theme in the list first."));
  EXPECT_THAT(calls, IsEmpty());
  EXPECT_EQ(ThemeFile, u"");
}

TEST_F(ThemePicker, AFailingSwitchGoesBackToTheThemeInForce) {
  theme("bad", "", "<c for='link' color='#000009'/><c for='grid' color='#000009'/>",
        "<d name='hub' image='none.png'/>");
  pick("good");
  click("cmdSwitch");
  GridColor = 0x445566; // the user's own
  LinkColor = 0x112233;
  const Words before = values();
  calls.clear();
  const Boxes boxes;
  pick("bad");
  click("cmdSwitch");
  ASSERT_EQ(boxes.texts.size(), 1U);
  EXPECT_THAT(boxes.texts[0],
              AllOf(HasSubstr(name("bad").toStdString()), HasSubstr("File not found")));
  EXPECT_EQ(values(), before);
  EXPECT_EQ(calls.back(), "UpdateColors #665544");
  EXPECT_EQ(calls.end()[-2], "linkColorChanged");
  EXPECT_EQ(DeviceImages(1).size(), QSize(5, 7));
  EXPECT_EQ(ThemeName, name("good"));
  EXPECT_EQ(ThemeFile, folder("good") + QStringLiteral("/theme.xml"));
  EXPECT_EQ(text("lblCurTheme"), ThemeName.toStdString());
  EXPECT_EQ(selectedLine(), "bad");

  QDir(folder("good")).removeRecursively();
  click("cmdSwitch");
  EXPECT_EQ(boxes.texts.size(), 2U);
  EXPECT_EQ(ThemeName, name("good")) << "also when it is there no more";
  EXPECT_EQ(values(), before);
}

TEST(Splash, TheDotsGoRound) {
  const auto *label = Form<frmSplash>::instance().findChild<QLabel *>(QStringLiteral("lblLoading"));
  Words texts{label->text().toStdString()};
  while (texts.size() < 6 &&
         QTest::qWaitFor([&] { return label->text().toStdString() != texts.back(); }, 5000))
    texts.push_back(label->text().toStdString());
  EXPECT_THAT(texts, ElementsAre("Loading...", "Loading", "Loading.", "Loading..", "Loading...",
                                 "Loading"));
  Form<frmSplash>::unload();
}

} // namespace
} // namespace vnb::test
