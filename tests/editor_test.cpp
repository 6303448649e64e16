// SPDX-License-Identifier: MIT
// Files, keys, settings and themes, as the main window takes them.
#include "appearance/theme.h"
#include "editor/termination.h"
#include "gesture.h"
#include "panels/frmLanInfo.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"

#include <QAbstractButton>
#include <QDir>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolTip>

#include <csignal>

namespace vnb::test {
namespace {

class Editor : public Gesture {
protected:
  Editor() {
    for (const ToolbarButton &button : toolbarButtons())
      main.view().loadButtonImages(QString::fromLatin1(button.tag), QStringLiteral("||"));
  }

  void key(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&main, key, modifiers); }
  void open(const QString &path) {
    fileName = path;
    main.picLoad_Click();
  }
};

TEST_F(Editor, OpensAndSavesByteForByte) {
  const Folder folder;
  fileName = sample("company.txt");
  key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(UBound(Systems), 41);
  fileName = folder.path("copy.txt");
  key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Folder::bytes(fileName), Folder::bytes(sample("company.txt")));
  std::string asked;
  for (const FileDialog &dialog : dialogs)
    asked += (dialog.title + u'|' + dialog.fileName.section(u'/', -1) + u'|' + dialog.filter)
                 .toStdString() +
             (dialog.kind == FileDialog::Kind::Save ? " save" : " open") +
             (dialog.askBeforeOverwriting ? " asks;" : ";");
  EXPECT_EQ(asked, "Open LAN||LAN Definition files|*.txt|All files (*.*)|*.* open;Save LAN|company."
                   "txt|LAN Definition files|*.txt|All files (*.*)|*.* save asks;");
  EXPECT_EQ(dialogs[0].owner, &main);
  EXPECT_EQ(Cdlg.FileTitle, u"copy.txt");
  fileName = QString();
  main.picLoad_Click();
  main.picSave_Click();
  EXPECT_EQ(UBound(Systems), 41) << "cancelled";
  main.picNew_Click();
  EXPECT_THAT(boxes.texts, IsEmpty());
  fileName = folder.path("none/copy.txt");
  const Boxes faults(yes(3));
  main.picSave_Click();
  EXPECT_EQ(faults.texts[0], "76 frmMain.SaveLAN");
  EXPECT_EQ(Cdlg.FileName, folder.path("copy.txt")) << "New and a save that fails keep the name";
}

TEST_F(Editor, KeysActOnReleaseWhereTheyWerePressed) {
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier); // pressed in another window
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_THAT(dialogs, IsEmpty());
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(dialogs.size(), 1U);
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  QTest::keyRelease(&main, Qt::Key_O); // Ctrl was let go first
  QTest::keyPress(&main, Qt::Key_O, Qt::ControlModifier);
  QEvent away(QEvent::WindowDeactivate);
  QApplication::sendEvent(&main, &away);
  QTest::keyRelease(&main, Qt::Key_O, Qt::ControlModifier); // after another window took the keys
  EXPECT_EQ(dialogs.size(), 1U);
  QWidget &bar = child("vsbScroll");
  bar.setFocus();
  QTest::keyClick(&bar, Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(dialogs.size(), 2U);
}

TEST_F(Editor, LettersCountByTheirKeyInAnyLayout) {
  const auto click = [this](int key, quint32 scanCode, Qt::KeyboardModifiers modifiers) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
      QCoreApplication::sendEvent(&main, &event);
    }
    return dialogs.size();
  };
  EXPECT_EQ(click(0x429, 32, Qt::ControlModifier), 1U) << "the key of O";
  EXPECT_EQ(click(Qt::Key_O, 40, Qt::ControlModifier), 2U) << "an O, wherever it is";
  EXPECT_EQ(click(0x429, 33, Qt::ShiftModifier), 2U) << "the key of P";
}

TEST_F(Editor, ButtonsShowTheirStateAndRunOnlyInside) {
  QWidget *button = &child("picLoad");
  const QImage off = button->grab().toImage();
  QTest::mousePress(button, Qt::RightButton);
  EXPECT_NE(button->grab().toImage(), off);
  QTest::mouseRelease(button, Qt::RightButton, {}, QPoint(50, 50));
  EXPECT_EQ(button->grab().toImage(), off);
  EXPECT_THAT(dialogs, IsEmpty());
  QTest::mouseClick(button, Qt::MiddleButton);
  EXPECT_EQ(dialogs.size(), 1U);

  QTest::mousePress(button, Qt::LeftButton);
  QMessageBox box(&main);
  box.open();
  EXPECT_EQ(button->grab().toImage(), off) << "the release goes to the box";
  box.close();
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_EQ(dialogs.size(), 1U);
}

TEST_F(Editor, AFileFillsTheLanInformation) {
  const auto shown = [&](const std::vector<QByteArray> &header, int faults) {
    const Boxes answered(yes(faults));
    open(store.file(crlf(header) + crlf({"0 ROUTER 0 0", "."})));
    EXPECT_THAT(answered.texts, testing::SizeIs(faults));
    return test::shown(main.forms().get<frmLanInfo>());
  };
  main.forms().get<frmLanInfo>();
  EXPECT_EQ(shown({"NAME N", "COMPANY C", "IP 1", "XPOS 12345", "YPOS -7"}, 0),
            "txtName=N txtCompany=C txtIP=1 txtX=12345 txtY=-7")
      << "longer than what can be typed";
  EXPECT_EQ(LanHeader.XPOS, 12345) << "a filled box isn't an edited one";
  EXPECT_EQ(shown({"NAME M", "COMPANY D", "IP 2", "XPOS east", "YPOS 9"}, 1),
            "txtName=M txtCompany=D txtIP=2 txtX=0 txtY=9")
      << "not what the file before had";
}

TEST_F(Editor, SettingsRedrawTheGridOnEveryWayOut) {
  const auto grid = [this] {
    const QImage shown = surface().grab(QRect(0, 5, 101, 1)).toImage();
    std::string at;
    for (const int x : {60, 100})
      at += shown.pixelColor(x, 0) == toQColor(GridColor) ? std::to_string(x) + " " : "";
    return at;
  };
  const auto settings = [this](const Words &acts) {
    QTimer::singleShot(0, &main, [this, acts] {
      for (const std::string &act : acts)
        test::use(main.forms().get<frmSettings>(), act);
      main.forms().get<frmSettings>().close();
    });
    main.picSettings_Click();
  };
  GridColor = 0x404040;
  GridRes = 20;
  ShowGrid = true;
  BackgroundColor = 0;
  link(router, terminal);
  settings({"cmdCancel"});
  EXPECT_EQ(grid(), "60 100 ");
  GridRes = 50;
  EXPECT_EQ(grid(), "60 100 ") << "what is drawn stays";
  settings({});
  EXPECT_EQ(grid(), "100 ");
  LinkColor = 0x00FF00;
  settings({"chkGrid", "cmdOK"});
  EXPECT_EQ(grid(), "");
  for (const Line &line : {surface().lneLink(0), surface().lneLink(1), surface().lneXOR})
    EXPECT_EQ(line.BorderColor, 0x00FF00);
}

TEST_F(Editor, AThemeRestylesEverythingThatStands) {
  link(router, hub);
  link(router, hub);
  select(hub);
  surface().lneLink(2).BorderColor = LinkSelColor; // picked in the link panel
  GridRes = 20;
  GridColor = 0x404040;
  surface().DrawGrid();
  const float end = surface().lneLink(1).X1;
  QImage picture(20, 10, QImage::Format_RGB32);
  picture.fill(Qt::cyan);
  EXPECT_TRUE(picture.save(store.path("router.png")));
  LoadTheme(store.file("<T><COLORS><C for='background' color='#102030'/><C for='separator' "
                       "color='#556677'/><C for='link' color='#00FF00'/></COLORS><BUTTONS/>"
                       "<DEVICES><D name='router' image='router.png'/></DEVICES></T>"),
            main.view());
  for (const Line &line : {surface().lneLink(1), surface().lneLink(2), surface().lneXOR})
    EXPECT_EQ(line.BorderColor, 0x00FF00);
  EXPECT_EQ(surface().spriteRect(router).Width, 20);
  EXPECT_EQ(surface().grab().toImage().pixelColor(5, 5), QColor(Qt::cyan));
  EXPECT_EQ(surface().lneLink(1).X1, end) << "until the router is moved";
  EXPECT_EQ(frames(), "1 solid 2 FFFFFF #1;");
  const QImage shown = surface().grab(QRect(400, 100, 50, 50)).toImage();
  for (int x = 0; x < 50; ++x)
    EXPECT_EQ(shown.pixelColor(x, 5), QColor(0x10, 0x20, 0x30)) << "the grid is wiped";
  EXPECT_EQ(main.palette().color(QPalette::Window).name(), u"#102030");
  for (const QScrollBar *bar : {&child<QScrollBar>("hsbScroll"), &child<QScrollBar>("vsbScroll")})
    EXPECT_EQ(bar->palette().color(QPalette::Button), main.palette().color(QPalette::Window));
  const QImage toolbar = child("picToolbar").grab().toImage();
  std::string separators;
  for (int x = 270; x < toolbar.width(); ++x)
    if (toolbar.pixelColor(x, 2) == toQColor(SeparatorColor))
      separators += std::to_string(x) + " ";
  EXPECT_EQ(separators, "289 290 ");
  for (const auto &[y, colour] :
       {std::pair(26, BackgroundColor), {27, SeparatorColor}, {28, BackgroundColor}})
    EXPECT_EQ(toolbar.pixelColor(0, y), toQColor(colour));
}

TEST_F(Editor, ToolTipsNameDevices) {
  const auto tip = [this](QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, surface().mapToGlobal(at));
    QCoreApplication::sendEvent(&surface(), &event);
    return QToolTip::text().toStdString();
  };
  EXPECT_EQ(tip({110, 60}) + tip({1, 1}), "HubRouter");
  tip({400, 300}); // the bare surface
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

/// A theme of the test's own, as no other is beside this program.
TEST(Start, TakesWhatIsStoredAndTheEndStoresIt) {
  const Folder folder;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  const QByteArray theme = folder
                               .file("<T><COLORS><c for='background' color='#030201'/></COLORS>"
                                     "<BUTTONS/><DEVICES/></T>",
                                     "theme.xml")
                               .toUtf8();
  const QByteArray last = sample("five-devices.txt").toUtf8();
  const Boxes boxes;
  for (const auto &[place, due, all] : std::vector<std::tuple<QByteArray, QPoint, bool>>{
           {"PosX=300\nPosY=450\n", {20, 30}, true},
           {"PosX=300\n", {20, 0}, false},
           {"PosY=450\n", {0, 30}, false},
           {"PosX=-9000\nPosY=90\n", {0, 0}, false}}) {
    folder.file("[Main]\nTheme=" + theme + "\n" + place + "[Settings]\nGridRes=50\nLastFile=" +
                    last + (all ? "\nLoadLastFile=True\n" : "\nShowGrid=False\n"),
                "VNB.ini");
    frmMain main;
    main.Form_Load();
    EXPECT_EQ(main.windowTitle(), u"Vantry Network Builder v6.2.5");
    EXPECT_TRUE(main.isVisible());
    EXPECT_FALSE(main.forms().get<frmSplash>().isVisible());
    EXPECT_EQ(main.pos(), due) << place.toStdString();
    EXPECT_EQ(UBound(Systems), all ? 4 : 0);
    const auto pixel = [&](int x) {
      return main.picLayout().grab({x, 90, 1, 1}).toImage().pixelColor(0, 0);
    };
    EXPECT_EQ(pixel(100), all ? toQColor(GridColor) : QColor(3, 2, 1));
    EXPECT_EQ(pixel(120), QColor(3, 2, 1));
    main.move(40, 60);
    ShowGrid = false;
    const QPointer<frmSplash> form = &main.forms().get<frmSplash>();
    EXPECT_TRUE(main.close());
    EXPECT_FALSE(main.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(form.isNull());
    EXPECT_THAT(Folder::bytes(folder.path("VNB.ini")).toStdString(),
                AllOf(HasSubstr("PosX=600\nPosY=900\nTheme=" + theme.toStdString()),
                      HasSubstr("ShowGrid=False"), HasSubstr("GridRes=50")));
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

/// Whoever waits gets No or nothing, asks in vain from then on, and is done before the end.
TEST(Termination, EndsOnlyWhenNobodyWaits) {
  QApplication::setQuitOnLastWindowClosed(false);
  for (const bool bySignal : {true, false}) {
    Words order;
    const auto ask = [&order] {
      const MessageBox question{.title = {}, .text = {}, .buttons = MessageBox::Buttons::YesNo};
      order.emplace_back(showMessageBox(question) == Answer::No ? "no" : "yes");
    };
    const Boxes boxes; // takes the place of the real ones in the end
    showMessageBox = showMessageWindow;
    const Termination termination([&] { order.emplace_back("end"); }, {});
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, ask);
      QMenu menu;
      menu.addAction(QStringLiteral("entry"));
      order.emplace_back(menu.exec(QPoint()) == nullptr ? "no entry" : "entry");
      ask();
    });
    QTimer::singleShot(50, [&] { bySignal ? void(std::raise(SIGTERM)) : QApplication::quit(); });
    QApplication::exec();
    EXPECT_THAT(order, testing::ElementsAre("no", "no entry", "no", "end"));
  }
}

} // namespace
} // namespace vnb::test
