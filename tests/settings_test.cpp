// SPDX-License-Identifier: MIT
#include "shellsupport.h"

#include <QFileInfo>

#include <map>
#include <memory>

#include <sys/stat.h>

namespace vnb::test {
namespace {

const Words defaults{"grid", "20",   "",       "no last", "404040", "e48257",
                     "ff",   "ffff", "ffffff", "8000",    "ff00"};

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
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path));
  }
  std::string stored() const { return Folder::bytes(folder->path("VNB.ini")).toStdString(); }

  /// Both return the message boxes, which get one answer each.
  Words load(const std::vector<Answer> &answers = {}) {
    const Boxes boxes(answers);
    LoadSettings(window);
    return texts(boxes);
  }
  Words load(const std::string &bytes, const std::vector<Answer> &answers = {}) {
    newStore(QByteArray::fromStdString(bytes));
    return load(answers);
  }
  Words save(const std::vector<Answer> &answers = {}) {
    const Boxes boxes(answers);
    SaveSettings(window);
    return texts(boxes);
  }
  Words texts(const Boxes &boxes) {
    if (!boxes.boxes.empty())
      told = boxes.boxes.back().text.toStdString();
    return boxes.texts;
  }

  std::unique_ptr<Folder> folder;
  Window window;
  std::string told; // by the last box
};

TEST_F(Settings, EveryKeyIsRead) {
  EXPECT_THAT(
      load("\xEF\xBB\xBF[Main]\nno value\nPosX=-75\nPosY=1500\nTheme=/themes/blue/theme.xml\n"
           "[Settings]\nShowGrid=False\nGridRes=10\nLastFile=/a lan.txt\nLoadLastFile=True\n"
           "[Colors]\nGrid=1\nLink=2\nLinkSel=3\nLock=4\nSelected=5\nSubnet=6\nSubnetSel=7\n["
           "unclosed\n"),
      IsEmpty());
  EXPECT_THAT(values(), ElementsAre("no grid", "10", "/a lan.txt", "last", "1", "2", "3", "4", "5",
                                    "6", "7"));
  EXPECT_THAT(window.calls, ElementsAre("left -75", "top 1500", "theme /themes/blue/theme.xml"));
}

TEST_F(Settings, EveryKeyIsWrittenAsTextAndThoseOfOthersStay) {
  newStore("alone=2\n[Zoo]\na=1\n[Other/deep]\nkey/b = \" x\"\n[]\nnone=0\n");
  window.left = -30;
  window.top = 16777215;
  ThemeFile = QStringLiteral("/themes/blue/theme.xml");
  LoadLastFile = true;
  Cdlg.FileName = QStringLiteral("/l\ra\\\n.txt");
  Colour next = 1;
  for (Colour *colour : {&GridColor, &LinkColor, &LinkSelColor, &LockColor, &SelectedColor,
                         &SubnetColor, &SubnetSelColor})
    *colour = next++;
  SubnetSelColor = -1;
  EXPECT_THAT(save(), IsEmpty());
  EXPECT_EQ(
      stored(),
      "alone=2\n\n[]\nnone=0\n\n"
      "[Colors]\nGrid=1\nLink=2\nLinkSel=3\nLock=4\nSelected=5\nSubnet=6\nSubnetSel=-1\n\n"
      "[Main]\nPosX=-30\nPosY=16777215\nTheme=/themes/blue/theme.xml\n\n"
      "[Other]\ndeep/key/b=\" x\"\n\n"
      "[Settings]\nGridRes=-7\nLastFile=/l\\ra\\\\\\n.txt\nLoadLastFile=True\nShowGrid=False\n\n"
      "[Zoo]\na=1\n");
}

TEST_F(Settings, OnlyAStoredPlaceMovesTheWindow) {
  for (const auto &[keys, moves] :
       sides({"PosX=30 -> left 30;", "PosY=30 -> top 30;", "PosX=-1000000\nPosY=0 -> top 0;",
              "PosX=-1000000.4\nPosY=-1e6 -> ",
              "PosX=-1000001\nPosY=-999999 -> left -1000001;top -999999;",
              "PosX=2.5\nPosY=3.5 -> left 2;top 4;"})) {
    EXPECT_THAT(load("[Main]\n" + keys + "\n"), IsEmpty());
    std::string moved;
    for (const std::string &call : window.calls)
      moved += call.starts_with("left") || call.starts_with("top") ? call + ";" : "";
    EXPECT_EQ(moved, moves) << keys;
  }
}

TEST_F(Settings, AHandWrittenPathIsTextAsItStands) {
  for (const auto &[line, path] :
       sides({"LastFile=/a,b;c.txt -> /a,b;c.txt", "  LastFile =  /a b.txt \r -> /a b.txt",
              "LastFile=\" /a \" ->  /a ", "LastFile=\"/a\" \"b\" -> /a\" \"b", "LastFile=\" -> \"",
              "LastFile=C:\\temp\\new\\r\\\\ -> C:\\temp\new\r\\",
              "LastFile=@Variant(\\0\\0\\0\\n\\0) -> @Variant(\\0\\0\\0\n\\0)",
              "LastFile=@DateTime(\\0\\0\\0\\x10) -> @DateTime(\\0\\0\\0\\x10)",
              "LastFile=/a\nLastFile=/b -> /b", "; LastFile=/a\n#LastFile=/b -> "})) {
    EXPECT_THAT(load("[Settings]\n" + line + "\n"), IsEmpty());
    EXPECT_EQ(Cdlg.FileName.toStdString(), path) << line;
  }
}

/// "E" and the number of an error: the value is left as it was.
TEST_F(Settings, NumbersAndTruthsOfAnyText) {
  Words rows{"GridRes=0." + std::string(400, '9') + " -> 1"};
  for (const char *row :
       {"1e3 -> 1000", "\" 5 \" -> 5", "2.5 -> 2", "-2147483648 -> -2147483648", "2147483648 -> E6",
        "-1e999 -> E6", " -> E13", "12abc -> E13", "a,b -> E13", "1,5 -> E13", "NaN -> E13",
        "True -> E13", "@Invalid() -> E13", "\uFF15 -> E13"})
    rows.push_back(std::string("GridRes=") + row);
  for (const char *row :
       {"True -> 1", "TRUE -> 1", "true -> 1", "False -> 0", "1 -> 1", "-1 -> 1", "0.1 -> 1",
        "0 -> 0", "yes -> E13", " -> E13", "True False -> E13", "1e999 -> E6"})
    rows.push_back(std::string("LoadLastFile=") + row);
  for (const auto &[line, due] : sides(rows)) {
    const bool faulty = due[0] == 'E';
    EXPECT_EQ(load("[Settings]\n" + line + "\n", yes(1)),
              faulty ? Words{due.substr(1) + " frmMain.LoadSettings"} : Words())
        << line;
    if (line[0] == 'G')
      EXPECT_EQ(std::to_string(GridRes), faulty ? "-7" : due) << line;
    else
      EXPECT_EQ(LoadLastFile, due == "1") << line;
  }
}

/// Yes leaves out the faulty value alone, No all that come behind it in the order of reading.
TEST_F(Settings, AFaultyValueIsReportedAndAnsweredForItself) {
  window.themeFails = true;
  EXPECT_EQ(
      load("[Main]\nPosX=left\nPosY=top\n", yes(3)),
      (Words{"13 frmMain.LoadSettings", "13 frmMain.LoadSettings", "53 frmMain.LoadSettings"}));
  EXPECT_EQ(values(), defaults);
  window.themeFails = false;
  newStore();
  const Words keys{"Settings/ShowGrid",     "Settings/GridRes", "",
                   "Settings/LoadLastFile", "Colors/Grid",      "Colors/Link",
                   "Colors/LinkSel",        "Colors/Lock",      "Colors/Selected",
                   "Colors/Subnet",         "Colors/SubnetSel"};
  window.LoadTheme(QStringLiteral("default"));
  const Words unread = values();
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (keys[i].empty()) // any text is a path
        continue;
      EXPECT_THAT(load(keys[i] + "=wrong\n", {answer}), ElementsAre("13 frmMain.LoadSettings"))
          << keys[i];
      EXPECT_THAT(told, HasSubstr("\n" + folder->path("./VNB.ini: ").toStdString() + keys[i]));
      Words due = defaults;
      for (std::size_t at = i; at < (answer == Answer::Yes ? i + 1 : keys.size()); ++at)
        due[at] = unread[at];
      EXPECT_EQ(values(), due) << keys[i];
    }
  }
}

TEST_F(Settings, ANewStoreIsForItsUserAloneAndAnOldOneKeepsItsMode) {
  const auto mode = [&](const char *name) {
    return QFile::permissions(folder->path(name)) & 0x7077;
  };
  useFolder(folder->path("not/there/yet"));
  EXPECT_THAT(save(), IsEmpty()) << "a missing folder is made";
  EXPECT_EQ(mode("not/there/yet/VNB.ini"), 0x6000);
  EXPECT_THAT(Folder::bytes(folder->path("not/there/yet/VNB.ini")).toStdString(),
              StartsWith("[Colors]"));
  newStore();
  ASSERT_EQ(::chmod(QFile::encodeName(folder->file("a=1\n", "real.ini")), 0644), 0);
  ASSERT_TRUE(QFile::link(QStringLiteral("real.ini"), folder->path("VNB.ini")));
  EXPECT_THAT(save(), IsEmpty());
  EXPECT_TRUE(QFileInfo(folder->path("VNB.ini")).isSymLink());
  EXPECT_EQ(mode("real.ini"), 0x6044);
  EXPECT_THAT(stored(), StartsWith("a=1\n\n[Colors]"));
  useFolder(QStringLiteral("/proc/self"));
  EXPECT_THAT(save(), ElementsAre("75 frmMain.SaveSettings"));
  EXPECT_THAT(told, HasSubstr("\n/proc/self/VNB.ini: "));
}

TEST_F(Settings, WhatCannotBeReadIsToldAndLeftAlone) {
  for (const auto &[place, number] : sides({". -> 75", "pipe -> 75", "/proc/self/mem -> 57",
                                            "VNB.ini -> 75", "large -> -2147221163"})) {
    newStore();
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder->path("pipe")), 0600), 0);
    ASSERT_TRUE(QFile::resize(folder->file("a=1\n", "large"), 100'000'000));
    ASSERT_TRUE(QFile::link(QString::fromStdString(place), folder->path("VNB.ini")));
    for (const char *procedure : {"LoadSettings", "SaveSettings"}) {
      EXPECT_THAT(procedure[0] == 'L' ? load(yes(1)) : save(yes(1)),
                  ElementsAre(number + " frmMain." + procedure))
          << place;
      EXPECT_THAT(told, HasSubstr("/VNB.ini\n"));
      EXPECT_EQ(place == "large", told.find("The file is larger than 1 MiB.") != std::string::npos);
    }
    EXPECT_EQ(values(), defaults) << "Yes starts with what there is";
  }
}

TEST_F(Settings, WhatWasLeftOutIsReplacedOnlyOnYes) {
  window.themeFails = true;
  for (const auto &[line, answer, asks] :
       std::vector<std::tuple<std::string, Answer, bool>>{{"GridRes=wrong\n", Answer::Yes, true},
                                                          {"GridRes=30\n", Answer::No, true},
                                                          {"GridRes=30\n", Answer::Yes, false}}) {
    const std::string before = "[Settings]\n" + line;
    load(before, std::vector(2, answer));
    EXPECT_EQ(save().size(), asks) << "answered with No";
    EXPECT_EQ(stored() == before, asks) << line;
    save({Answer::Yes});
    EXPECT_THAT(stored(), HasSubstr("GridRes=" + std::to_string(GridRes)));
  }
}

} // namespace
} // namespace vnb::test
