// SPDX-License-Identifier: MIT
#include "shell/settings.h"
#include "shellsupport.h"
#include "support.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSettings>

#include <gmock/gmock.h>

#include <csignal>
#include <memory>
#include <random>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace vnb::test {
namespace {

const Words defaults{"grid", "20",   "",       "no last", "404040", "e48257",
                     "ff",   "ffff", "ffffff", "8000",    "ff00"};

/// The main window as the settings know it.
class Window : public SettingsView {
public:
  void setLeft(std::int32_t lLeft) override { calls.push_back("left " + std::to_string(lLeft)); }
  void setTop(std::int32_t lTop) override { calls.push_back("top " + std::to_string(lTop)); }
  double Left() const override { return left; }
  double Top() const override { return top; }
  void LoadTheme(const QString &sFileName) override {
    calls.push_back("theme " + sFileName.toStdString());
    if (themeFails)
      throw RuntimeError(Fault::FileNotFound);
    EXPECT_EQ(GridRes, -7) << "the theme comes first";
    for (Colour *colour : allColours())
      *colour = 0x123456;
  }
  void templateColorChanged() override {
    std::ostringstream out;
    out << "link " << std::hex << LinkColor << ", " << LinkSelColor;
    calls.push_back(out.str());
  }

  Words calls;
  double left = 0, top = 0;
  bool themeFails = false;
};

/// A store of its own for each test, or for each of its rows.
class Settings : public testing::Test {
protected:
  Settings() { newStore(); }

  /// Goes over to a store of these bytes; null for one that isn't there.
  void newStore(const QByteArray &bytes = {}) {
    forgetAll();
    window.calls.clear();
    folder = std::make_unique<Folder>();
    if (!bytes.isNull())
      folder->file(bytes, "VNB.ini");
    useFolder(folder->path("."));
  }
  static void useFolder(const QString &path) {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
  }
  QByteArray stored() const { return Folder::bytes(folder->path("VNB.ini")); }

  std::unique_ptr<Folder> folder;
  Window window;
};

TEST_F(Settings, AFirstRunReadsTheDefaults) {
  const Boxes boxes;
  LoadSettings(window);
  EXPECT_EQ(values(), defaults) << "whatever the theme says";
  EXPECT_THAT(window.calls, ElementsAre("theme default", "link e48257, 123456"));
  EXPECT_EQ(BackgroundColor, 0x123456) << "the theme's";
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, EveryKeyIsRead) {
  const Boxes boxes;
  newStore("[Main]\nPosX=-75\nPosY=1500\nTheme=/themes/blue/theme.xml\n"
           "[Settings]\nShowGrid=False\nGridRes=10\nLastFile=/a lan.txt\nLoadLastFile=True\n"
           "[Colors]\nGrid=1\nLink=2\nLinkSel=3\nLock=4\nSelected=5\nSubnet=6\nSubnetSel=7\n");
  LoadSettings(window);
  EXPECT_THAT(values(), ElementsAre("no grid", "10", "/a lan.txt", "last", "1", "2", "3", "4", "5",
                                    "6", "7"));
  EXPECT_THAT(window.calls, ElementsAre("left -75", "top 1500", "theme /themes/blue/theme.xml",
                                        "link 2, 123456"));
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, OnlyAStoredPlaceMovesTheWindow) {
  const Boxes boxes;
  for (const auto &[keys, moves] : std::vector<std::pair<QByteArray, Words>>{
           {"PosX=30", {"left 30"}},
           {"PosY=30", {"top 30"}},
           {"PosX=-1000000\nPosY=0", {"top 0"}},
           {"PosX=-1000000.4\nPosY=-1e6", {}},
           {"PosX=-1000001\nPosY=-999999", {"left -1000001", "top -999999"}},
           {"PosX=2.5\nPosY=3.5", {"left 2", "top 4"}},
       }) {
    newStore("[Main]\n" + keys + "\n");
    LoadSettings(window);
    window.calls.resize(window.calls.size() - 2); // the theme and the line
    EXPECT_EQ(window.calls, moves) << keys.toStdString();
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, EveryKeyIsWrittenAsText) {
  const Boxes boxes;
  window.left = -30;
  window.top = 16777215;
  ThemeFile = QStringLiteral("/themes/blue/theme.xml");
  LoadLastFile = true;
  Cdlg.FileName = QStringLiteral("/lan.txt");
  Colour next = 1;
  for (Colour *colour : {&GridColor, &LinkColor, &LinkSelColor, &LockColor, &SelectedColor,
                         &SubnetColor, &SubnetSelColor})
    *colour = next++;
  SubnetSelColor = -1;
  SaveSettings(window);
  EXPECT_EQ(stored().toStdString(),
            "[Colors]\nGrid=1\nLink=2\nLinkSel=3\nLock=4\nSelected=5\nSubnet=6\nSubnetSel=-1\n\n"
            "[Main]\nPosX=-30\nPosY=16777215\nTheme=/themes/blue/theme.xml\n\n"
            "[Settings]\nGridRes=-7\nLastFile=/lan.txt\nLoadLastFile=True\nShowGrid=False\n");
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, AnyPathComesBack) {
  const Boxes boxes;
  for (const char16_t *path :
       {u"", u"C:\\new\\table", u"/a,b;c=d.txt", u" /blanks ", u"/\"quoted\" 'path'", u"@Variant(x",
        u"@Invalid()", u"/%20%", u"/\u0416\u6F22\U0001F600.txt", u"/line\nbreak\t.txt", u"a, b",
        u"\\", u"\"", u"[a]", u"/a=b"}) {
    newStore();
    Cdlg.FileName = ThemeFile = QString::fromUtf16(path);
    SaveSettings(window);
    newStore(stored());
    LoadSettings(window);
    EXPECT_EQ(Cdlg.FileName, QString::fromUtf16(path));
    EXPECT_THAT(window.calls, testing::Contains("theme " + QString::fromUtf16(path).toStdString()));
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, AHandWrittenPathIsTextAsItStands) {
  const Boxes boxes;
  for (const auto &[line, path] : std::vector<std::pair<QByteArray, std::string>>{
           {"LastFile=/a,b;c.txt", "/a,b;c.txt"},
           {"  LastFile =  /a b.txt \r", "/a b.txt"},
           {"LastFile=\" /a \"", " /a "},
           {"LastFile=\"/a\" \"b\"", "/a\" \"b"},
           {"LastFile=C:\\temp\\new", "C:\\temp\new"},
           {"LastFile=@Variant(\\0\\0\\0\\n\\0)", "@Variant(\\0\\0\\0\n\\0)"},
           {"LastFile=@DateTime(\\0\\0\\0\\x10)", "@DateTime(\\0\\0\\0\\x10)"},
           {"LastFile=/a\nLastFile=/b", "/b"},
           {"; LastFile=/a\n#LastFile=/b", ""},
       }) {
    newStore("[Settings]\n" + line + "\n");
    LoadSettings(window);
    EXPECT_EQ(Cdlg.FileName.toStdString(), path) << line.toStdString();
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, KeysOfOthersStay) {
  const Boxes boxes;
  newStore("[Zoo]\na=1\n[Other/deep]\nkey/b = \" x\"\n[]\nnone=0\n");
  newStore("alone=2\n" + stored());
  SaveSettings(window);
  const std::string text = stored().toStdString();
  EXPECT_TRUE(text.starts_with("alone=2\n\n[]\nnone=0\n\n[Colors]\n")) << text;
  EXPECT_THAT(text, HasSubstr("\n\n[Other]\ndeep/key/b=\" x\"\n\n[Settings]\n"));
  EXPECT_TRUE(text.ends_with("\n\n[Zoo]\na=1\n")) << text;
}

TEST_F(Settings, NumbersOfAnyText) {
  struct Case {
    QByteArray text;
    std::string outcome; // the value, or the error's number
  };
  const QByteArray manyDigits(400, '9');
  for (const auto &[text, outcome] : std::vector<Case>{
           {"1e3", "1000"},
           {"\" 5 \"", "5"},
           {"2.5", "2"},
           {"2147483647", "2147483647"},
           {"-2147483648", "-2147483648"},
           {"2147483647.4", "2147483647"},
           {"2147483648", "error 6"},
           {"-2147483649", "error 6"},
           {"-1e999", "error 6"},
           {manyDigits, "error 6"},
           {"0." + manyDigits, "1"},
           {"", "error 13"},
           {"abc", "error 13"},
           {"12abc", "error 13"},
           {"a,b", "error 13"},
           {"1,5", "error 13"},
           {"NaN", "error 13"},
           {"inf", "error 13"},
           {"0x10", "error 13"},
           {"True", "error 13"},
           {"@Invalid()", "error 13"},
           {"\xEF\xBC\x95", "error 13"}, // a wide 5
       }) {
    const Boxes boxes(yes(1));
    newStore("[Settings]\nGridRes=" + text + "\n");
    LoadSettings(window);
    if (outcome.starts_with("error ")) {
      EXPECT_THAT(boxes.texts, ElementsAre(outcome.substr(6) + " frmMain.LoadSettings"))
          << text.toStdString();
      EXPECT_EQ(GridRes, -7) << text.toStdString();
    } else {
      EXPECT_THAT(boxes.texts, IsEmpty()) << text.toStdString();
      EXPECT_EQ(std::to_string(GridRes), outcome) << text.toStdString();
    }
  }
}

TEST_F(Settings, TruthsOfAnyText) {
  struct Case {
    QByteArray text;
    bool value;
    Words errors;
  };
  for (const auto &[text, value, errors] : std::vector<Case>{
           {"True", true, {}},
           {"TRUE", true, {}},
           {"true", true, {}},
           {"False", false, {}},
           {"1", true, {}},
           {"-1", true, {}},
           {"0.1", true, {}},
           {"0", false, {}},
           {"yes", false, {"13 frmMain.LoadSettings"}},
           {"", false, {"13 frmMain.LoadSettings"}},
           {"True False", false, {"13 frmMain.LoadSettings"}},
           {"1e999", false, {"6 frmMain.LoadSettings"}},
       }) {
    const Boxes boxes(yes(1));
    newStore("[Settings]\nLoadLastFile=" + text + "\n");
    LoadSettings(window);
    EXPECT_EQ(LoadLastFile, value) << text.toStdString();
    EXPECT_EQ(boxes.texts, errors) << text.toStdString();
  }
}

/// Yes leaves out the faulty value alone, No all that come behind it in the order of reading.
TEST_F(Settings, AFaultyValueIsReportedAndAnsweredForItself) {
  const Words keys{"Settings/ShowGrid",     "Settings/GridRes", "",
                   "Settings/LoadLastFile", "Colors/Grid",      "Colors/Link",
                   "Colors/LinkSel",        "Colors/Lock",      "Colors/Selected",
                   "Colors/Subnet",         "Colors/SubnetSel"};
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (keys[i].empty()) // any text is a path
        continue;
      const std::size_t slash = keys[i].find('/');
      const Boxes boxes({answer});
      newStore(QByteArray::fromStdString("[" + keys[i].substr(0, slash) + "]\n" +
                                         keys[i].substr(slash + 1) + "=wrong\n"));
      const Words unreadValues = [this] {
        window.LoadTheme(QStringLiteral("default"));
        return values();
      }();
      window.calls.clear();
      LoadSettings(window);
      Words due = defaults;
      for (std::size_t at = i; at < (answer == Answer::Yes ? i + 1 : keys.size()); ++at)
        due[at] = unreadValues[at];
      EXPECT_EQ(values(), due) << keys[i];
      EXPECT_THAT(boxes.texts, ElementsAre("13 frmMain.LoadSettings")) << keys[i];
    }
  }
}

TEST_F(Settings, AFaultyPlaceOrThemeIsReportedAndAnsweredForItself) {
  window.themeFails = true;
  {
    const Boxes boxes(yes(3));
    newStore("[Main]\nPosX=left\nPosY=top\n");
    LoadSettings(window);
    EXPECT_THAT(boxes.texts, ElementsAre("13 frmMain.LoadSettings", "13 frmMain.LoadSettings",
                                         "53 frmMain.LoadSettings"));
    EXPECT_EQ(values(), defaults);
  }
  for (const auto &[bytes, calls] : std::vector<std::pair<QByteArray, Words>>{
           {"[Main]\nPosX=left\nPosY=30\n", {}},
           {"[Main]\nPosX=30\nPosY=top\n", {"left 30"}},
           {"[Main]\nTheme=none\n", {"theme none"}},
       }) {
    const Boxes boxes({Answer::No});
    newStore(bytes);
    LoadSettings(window);
    EXPECT_EQ(window.calls, calls);
    EXPECT_EQ(GridRes, -7);
    EXPECT_EQ(boxes.texts.size(), 1U);
  }
}

TEST_F(Settings, AStoreThatCannotBeWrittenIsReported) {
  GridRes = 33;
  useFolder(folder->file("a file", "file") + QStringLiteral("/below"));
  {
    const Boxes boxes;
    SaveSettings(window);
    EXPECT_THAT(boxes.texts, ElementsAre("75 frmMain.SaveSettings"));
    EXPECT_EQ(GridRes, 33);
  }
  EXPECT_EQ(Folder::bytes(folder->path("file")), "a file");

  newStore();
  EXPECT_TRUE(QDir(folder->path(".")).mkdir(QStringLiteral("VNB.ini")));
  const Boxes boxes(yes(2));
  LoadSettings(window);
  EXPECT_EQ(values(), defaults) << "Yes starts with what there is";
  SaveSettings(window);
  EXPECT_THAT(boxes.texts, ElementsAre("75 frmMain.LoadSettings", "75 frmMain.SaveSettings"));
}

TEST_F(Settings, AMissingFolderIsMade) {
  const Boxes boxes;
  useFolder(folder->path("not/there/yet"));
  SaveSettings(window);
  EXPECT_THAT(boxes.texts, IsEmpty());
  EXPECT_THAT(Folder::bytes(folder->path("not/there/yet/VNB.ini")).toStdString(),
              HasSubstr("GridRes=-7"));
}

TEST_F(Settings, WhatIsNoStoreIsReadAsFarAsItGoesAndMadeOne) {
  for (const QByteArray &bytes :
       {QByteArray("no store\n[Settings]\nGridRes=33\n[unclosed\n"), QByteArray("\0\x01\xFF=", 4),
        QByteArray("\xEF\xBB\xBF[Settings]\nGridRes=33\n"), QByteArray(100'000, '[')}) {
    const Boxes boxes;
    newStore(bytes);
    LoadSettings(window);
    EXPECT_EQ(GridRes, bytes.contains("33") ? 33 : 20) << bytes.left(20).toStdString();
    SaveSettings(window);
    newStore(stored());
    LoadSettings(window);
    EXPECT_EQ(values()[5], "e48257");
    EXPECT_THAT(boxes.texts, IsEmpty()) << bytes.left(20).toStdString();
  }
}

/// Whenever a writer dies, there is the store before or the store after, and the next one may
/// write.
TEST_F(Settings, AWriterKilledAtAnyMomentSpoilsNothing) {
  const Boxes boxes;
  const auto save = [this](std::int32_t distance) {
    GridRes = distance;
    SaveSettings(window);
    return stored().toStdString();
  };
  const std::string one = save(10);
  const std::string other = save(999);
  std::mt19937 random(1);
  for (int round = 0; round < 100; ++round) {
    const pid_t writer = ::fork();
    ASSERT_GE(writer, 0);
    if (writer == 0)
      for (;;) {
        save(10);
        save(999);
      }
    ::usleep(static_cast<useconds_t>(random() % 4000));
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
    EXPECT_THAT(stored().toStdString(), testing::AnyOf(one, other)) << "round " << round;
    EXPECT_EQ(save(10), one) << "past what the dead one may have locked";
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Settings, ALockLeftByACrashHoldsNobodyUp) {
  const Boxes boxes;
  const QString lock = folder->file({}, "VNB.ini.lock");
  QElapsedTimer clock;
  clock.start();
  LoadSettings(window);
  EXPECT_FALSE(QFile::exists(lock));
  folder->file({}, "VNB.ini.lock");
  SaveSettings(window);
  EXPECT_LT(clock.elapsed(), 10'000);
  EXPECT_THAT(stored().toStdString(), HasSubstr("GridRes=20"));
  EXPECT_THAT(boxes.texts, IsEmpty());
}

} // namespace
} // namespace vnb::test
