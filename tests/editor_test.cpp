// SPDX-License-Identifier: MIT
#include "appearance/frmThemes.h"
#include "editor/frmMain.h"
#include "forms/dialogs.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/cdlgex.h"
#include "shell/frmSettings.h"
#include "shell/versionlist.h"
#include "support.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QDir>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolTip>

using testing::IsEmpty;

namespace vnb::test {
namespace {

/// Answers file dialogs with one path, or cancels while it is null.
class FileDialogs {
public:
  FileDialogs() {
    showFileDialog = [this](const FileDialog &dialog) -> std::optional<QString> {
      requests.push_back(dialog);
      return answer.isNull() ? std::nullopt : std::optional(answer);
    };
  }

  QString answer;
  std::vector<FileDialog> requests;
};

class Editor : public testing::Test {
protected:
  Editor() {
    Cdlg = {};
    for (const ToolbarButton &button : toolbarButtons())
      frmThemes::View->loadButtonImages(QString::fromLatin1(button.tag), QStringLiteral("||"));
    main.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
  }

  QWidget *child(const char *name) { return main.findChild<QWidget *>(QString::fromLatin1(name)); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&main, key, modifiers); }

  Boxes boxes;
  FileDialogs dialogs;
  frmMain main;
};

TEST_F(Editor, OpensAndSavesByteForByte) {
  const Folder folder;
  dialogs.answer = sample("company.txt");
  key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(UBound(Systems), 41);
  dialogs.answer = folder.path("copy.txt");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Folder::bytes(folder.path("copy.txt")), Folder::bytes(sample("company.txt")));
  ASSERT_EQ(dialogs.requests.size(), 2U);
  const FileDialog &open = dialogs.requests[0];
  const FileDialog &save = dialogs.requests[1];
  EXPECT_EQ(open.title, u"Open LAN");
  EXPECT_EQ(open.filter, u"LAN Definition files|*.txt|All files (*.*)|*.*");
  EXPECT_EQ(open.fileName, u"");
  EXPECT_EQ(open.owner, &main);
  EXPECT_FALSE(open.askBeforeOverwriting);
  EXPECT_EQ(save.title, u"Save LAN");
  EXPECT_EQ(save.kind, FileDialog::Kind::Save);
  EXPECT_EQ(save.fileName, sample("company.txt"));
  EXPECT_TRUE(save.askBeforeOverwriting);
  EXPECT_EQ(Cdlg.FileTitle, u"copy.txt");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Editor, CancelChangesNothingAndNewKeepsTheName) {
  dialogs.answer = sample("five-devices.txt");
  main.picLoad_Click();
  dialogs.answer = QString();
  main.picLoad_Click();
  main.picSave_Click();
  EXPECT_EQ(UBound(Systems), 4);
  EXPECT_EQ(Cdlg.FileName, sample("five-devices.txt"));
  key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(UBound(Systems), 0);
  EXPECT_EQ(Cdlg.FileName, sample("five-devices.txt"));
  dialogs.answer = QStringLiteral("");
  main.picLoad_Click();
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Editor, KeysActAloneAndOnRelease) {
  const auto count = [this] { return dialogs.requests.size(); };
  for (const Qt::KeyboardModifiers modifiers :
       {Qt::KeyboardModifiers(), Qt::ControlModifier | Qt::ShiftModifier,
        Qt::ControlModifier | Qt::AltModifier})
    key(Qt::Key_O, modifiers);
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier); // pressed in another window
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 0U);
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 1U);
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  QTest::keyRelease(&main, Qt::Key_O); // Ctrl was let go first
  EXPECT_EQ(count(), 1U);
  QWidget *bar = child("vsbScroll");
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(count(), 2U);
}

TEST_F(Editor, ButtonsShowTheirStateAndRunOnlyInside) {
  QWidget *button = child("picLoad");
  const QImage off = button->grab().toImage();
  QTest::mousePress(button, Qt::RightButton);
  const QImage down = button->grab().toImage();
  EXPECT_NE(off, down);
  QTest::mouseRelease(button, Qt::RightButton, {}, QPoint(50, 50));
  EXPECT_EQ(button->grab().toImage(), off);
  EXPECT_EQ(dialogs.requests.size(), 0U);
  QTest::mouseClick(button, Qt::MiddleButton);
  EXPECT_EQ(dialogs.requests.size(), 1U);
}

TEST(Dialogs, FiltersAreConverted) {
  EXPECT_EQ(toQtFilter(QStringLiteral("LAN Definition files|*.txt|All files (*.*)|*.*")),
            u"LAN Definition files (*.txt);;All files (*.*) (*)");
  EXPECT_EQ(toQtFilter({}), u"");
}

/// The five boxes of the LAN information panel, as they stand.
std::string infoBoxes() {
  std::string all;
  for (const char *name : {"txtName", "txtCompany", "txtIP", "txtX", "txtY"})
    all += Form<frmLanInfo>::instance()
               .findChild<QLineEdit *>(QString::fromLatin1(name))
               ->text()
               .toStdString() +
           '|';
  return all;
}

TEST_F(Editor, AFileFillsTheLanInformation) {
  const Folder folder;
  const auto open = [&](const std::vector<QByteArray> &header, int answers = 0) {
    const Boxes answered(yes(answers));
    dialogs.answer = folder.file(crlf(header) + crlf({"0 ROUTER 0 0", "."}));
    main.picLoad_Click();
    EXPECT_THAT(answered.texts, testing::SizeIs(answers));
  };
  Form<frmLanInfo>::instance();
  open({"NAME N", "COMPANY C", "IP 1", "XPOS 12345", "YPOS -7"});
  EXPECT_EQ(infoBoxes(), "N|C|1|12345|-7|") << "longer than what can be typed";
  EXPECT_EQ(LanHeader.XPOS, 12345) << "a filled box isn't an edited one";
  open({"NAME M", "COMPANY D", "IP 2", "XPOS east", "YPOS 9"}, 1);
  EXPECT_EQ(infoBoxes(), "M|D|2|12345|9|") << "a fault leaves its box as it was";
  Form<frmLanInfo>::instance().close();
  open({"NAME O", "COMPANY E", "IP 3", "XPOS 4", "YPOS 5"});
  EXPECT_EQ(infoBoxes(), "O|E|3|4|5|") << "a closed panel is made anew";
  EXPECT_EQ(LanHeader.NAME, u"O");
}

TEST_F(Editor, NoFileLeavesTheWindowUnusable) {
  const QDir corpus(QStringLiteral(VNB_CORPUS "/lanfile"));
  for (const QString &name : corpus.entryList(QDir::Files)) {
    const Boxes answered(yes(5));
    dialogs.answer = corpus.filePath(name);
    main.picLoad_Click();
    EXPECT_LT(answered.texts.size(), 20U) << name.toStdString() << ": a few Noes end it";
    EXPECT_FALSE(LoadingFile);
    const std::int32_t count = UBound(Systems);
    main.operations().AddSystem(2, 10, 10, 1, -1, -1, -1, {});
    main.selection().SelectItem(UBound(Systems), SelectedColor, false);
    EXPECT_EQ(UBound(Systems), count + 1) << name.toStdString();
    EXPECT_EQ(main.picLayout().picSystem.UBound(), count + 1) << name.toStdString();
  }
}

TEST_F(Editor, SettingsRedrawTheGridOnEveryWayOut) {
  const auto gridAt = [this](int x) {
    return main.picLayout().grab(QRect(x, 5, 1, 1)).toImage().pixelColor(0, 0) ==
           toQColor(GridColor);
  };
  const auto settings = [this](const std::function<void(frmSettings &)> &act) {
    QTimer::singleShot(0, &main, [act] { act(Form<frmSettings>::instance()); });
    main.picSettings_Click();
  };
  const auto press = [](frmSettings &form, const char *name) {
    form.findChild<QAbstractButton *>(QString::fromLatin1(name))->click();
  };
  GridColor = 0x404040;
  GridRes = 20;
  ShowGrid = true;
  BackgroundColor = 0;
  LinkColor = 0x0000FF;
  main.operations().AddSystem(2, 300, 300, 1, -1, -1, -1, {});
  main.operations().AddLink(0, .5, .5, 1, .5, .5, 1);
  settings([&](frmSettings &form) { press(form, "cmdCancel"); });
  EXPECT_TRUE(gridAt(60));
  GridRes = 50;
  EXPECT_TRUE(gridAt(60)) << "what is drawn stays";
  settings([&](frmSettings &form) { form.close(); });
  EXPECT_FALSE(gridAt(60));
  EXPECT_TRUE(gridAt(100));
  LinkColor = 0x00FF00;
  settings([&](frmSettings &form) {
    press(form, "chkGrid");
    press(form, "cmdOK");
  });
  EXPECT_FALSE(gridAt(100)) << "switched off";
  for (const Line &line : main.picLayout().lneLink)
    EXPECT_EQ(line.BorderColor, 0x00FF00);
  EXPECT_EQ(main.picLayout().lneXOR.BorderColor, 0x00FF00);
}

/// A theme in a folder of its own, with a router's picture of 20 by 10 pixels.
QString theme(const Folder &folder) {
  QImage router(20, 10, QImage::Format_RGB32);
  router.fill(Qt::cyan);
  EXPECT_TRUE(router.save(folder.path("router.png")));
  return folder.file("<THEME><COLORS><COLOR for='background' color='#102030'/>"
                     "<COLOR for='text' color='#FFEEDD'/><COLOR for='redtext' color='#FF4433'/>"
                     "<COLOR for='separator' color='#112211'/><COLOR for='link' color='#00FF00'/>"
                     "<COLOR for='secure1' color='#004040'/></COLORS><BUTTONS/>"
                     "<DEVICES><DEVICE name='router' image='router.png'/></DEVICES></THEME>",
                     "theme.xml");
}

TEST_F(Editor, AThemeRestylesEverythingThatStands) {
  const Folder folder;
  const auto foreground = [](QWidget &form, const char *name) {
    const auto *control = form.findChild<QWidget *>(QString::fromLatin1(name));
    return control->palette().color(control->foregroundRole()).name().toStdString();
  };
  main.operations().ClearLAN();
  main.operations().AddSystem(2, 300, 300, 1, -1, -1, -1, {});
  main.operations().AddLink(0, .5, .5, 1, .5, .5, 1);
  main.operations().AddLink(0, .5, .5, 1, .5, .5, 1);
  main.selection().SelectItem(1, SelectedColor, false);
  main.picLayout().lneLink(2).BorderColor = LinkSelColor; // picked in the link panel
  GridRes = 20;
  GridColor = 0x404040;
  main.picLayout().DrawGrid();
  const float end = main.picLayout().lneLink(1).X1;
  const SpriteLayer frame = main.picLayout().picSystem(1).layer;

  LoadTheme(theme(folder), *frmThemes::View);

  for (const Line &line : main.picLayout().lneLink)
    EXPECT_EQ(line.BorderColor, 0x00FF00);
  EXPECT_EQ(main.picLayout().lneXOR.BorderColor, 0x00FF00);
  const Sprite &router = main.picLayout().picSystem(0);
  EXPECT_EQ(router.Width, 20);
  EXPECT_EQ(router.Picture.toImage().pixelColor(5, 5), QColor(Qt::cyan));
  EXPECT_EQ(main.picLayout().lneLink(1).X1, end) << "until the router is moved";
  EXPECT_EQ(main.picLayout().picSystem(1).layer.colour, frame.colour);
  const QImage surface = main.picLayout().grab(QRect(400, 100, 50, 50)).toImage();
  for (int x = 0; x < 50; ++x)
    EXPECT_EQ(surface.pixelColor(x, 5), QColor(0x10, 0x20, 0x30)) << "the grid is wiped";
  EXPECT_EQ(foreground(main, "lblStatus"), "#ffeedd");
  EXPECT_EQ(main.palette().color(QPalette::Window).name(), u"#102030");
  EXPECT_EQ(foreground(Form<frmDevice>::instance(), "lblNoDevice"), "#ff4433");
  EXPECT_EQ(foreground(Form<frmSubnet>::instance(), "lblNoDevice"), "#ff4433");
  EXPECT_EQ(foreground(Form<frmLinks>::instance(), "lblNoDevice"), "#ffeedd");
  for (QWidget *form : std::initializer_list<QWidget *>{&Form<frmDevice>::instance(),
                                                        &Form<frmLinks>::instance()}) {
    const QPalette colours = form->findChild<QWidget *>(QStringLiteral("optSecur0"))->palette();
    EXPECT_EQ(colours.color(QPalette::Button).name(), u"#004040");
    EXPECT_EQ(colours.color(QPalette::ButtonText).name(), u"#ffbfbf") << "the inverse";
  }
}

TEST_F(Editor, ToolTipsNameDevicesAndButtons) {
  main.operations().ClearLAN();
  main.operations().AddSystem(11, 100, 50, 1, -1, -1, -1, {});
  const auto tip = [this](QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, main.picLayout().mapToGlobal(at));
    QCoreApplication::sendEvent(&main.picLayout(), &event);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
  };
  EXPECT_EQ(tip({110, 60}), "Modem");
  EXPECT_EQ(tip({1, 1}), "Router");
  EXPECT_EQ(child("picSave")->toolTip(), u"Save LAN (Ctrl-S)");
  tip({60, 100}); // the bare surface
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(Editor, LettersCountByTheirKeyInAnyLayout) {
  const auto click = [this](int key, quint32 scanCode, Qt::KeyboardModifiers modifiers) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
      QCoreApplication::sendEvent(&main, &event);
    }
    return dialogs.requests.size();
  };
  EXPECT_EQ(click(0x429, 32, Qt::ControlModifier), 1U) << "the key of O";
  EXPECT_EQ(click(Qt::Key_O, 40, Qt::ControlModifier), 2U) << "an O, wherever it is";
  EXPECT_EQ(click(0x429, 33, Qt::ShiftModifier), 2U) << "the key of P";
}

TEST_F(Editor, TheListOfVersionsChangesNothing) {
  EXPECT_THROW(frmMain::CheckForUpdate(true), RuntimeError) << "there is none";
  QFile list(versionListPath());
  ASSERT_TRUE(list.open(QIODevice::WriteOnly));
  list.write("<versions><version number='9.9.9'/></versions>");
  list.close();
  EXPECT_FALSE(frmMain::CheckForUpdate(true));
  EXPECT_TRUE(list.remove());
}

} // namespace
} // namespace vnb::test
