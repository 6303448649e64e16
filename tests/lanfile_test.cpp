// SPDX-License-Identifier: MIT
#include "lanfile/lanfile.h"
#include "runtime/codepage.h"
#include "runtime/systemcalls.h"
#include "support.h"

#include <limits>
#include <map>

namespace vnb::test {
namespace {

class LanFile : public testing::Test {
protected:
  LanFile() {
    useCodePage(1252);
    operations.ClearLAN();
  }

  void open(const QByteArray &bytes) { OpenLANFile(folder.file(bytes), operations, view); }

  QByteArray save() {
    const QString path = folder.path("saved.txt");
    SaveLAN(path);
    return Folder::bytes(path);
  }

  Folder folder;
  DocumentOperations operations;
  ReaderView view;
};

TEST_F(LanFile, SampleComesBackToTheByte) {
  const Boxes boxes;
  // The shorter one last: nothing of the longer may stay.
  for (const char *name : {"company.txt", "five-devices.txt"}) {
    OpenLANFile(sample(name), operations, view);
    EXPECT_EQ(save().toStdString(), Folder::bytes(sample(name)).toStdString());
  }
  EXPECT_EQ(dump(), "Sample Local Area Network,Sample Company,123.123.123.123,20,20|"
                    "ROUTER 240 120 1 -1 -1 -1;LOCK 480 120 1 1 -1 -1;MAINSERVER 720 120 2 1 -1 -1;"
                    "MODEM 240 360 1 -1 -1 -1 '555-0199';RADIOTRANSMITTER 480 360 1 -1 -1 -1|"
                    "0@0.5,0.5-1@0.5,0.5/1;1@1,0.5-2@0,0.25/2|2<0|2='Staff records and payroll'");
  OpenLANFile(sample("hand-written.txt"), operations, view);
  const std::string read = dump();
  const QByteArray first = save();
  OpenLANFile(folder.path("saved.txt"), operations, view);
  EXPECT_EQ(dump(), read);
  EXPECT_EQ(save(), first);
  EXPECT_GT(UBound(Links), 3);
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, RowsKeepTheirColumnsApart) {
  const std::int32_t least = std::numeric_limits<std::int32_t>::min();
  Systems.insert(Systems.end(), {{10, 1, 2, 1, -1, -1, -1, {}},
                                 {12, 1, 2, 1, -1, -1, -1, {}},
                                 {99, 1, 2, 1, -1, -1, -1, u"   "_qs},
                                 {2, 1, 2, 1, -1, -1, -1, u" x "_qs},
                                 {2, 1, 2, 1, 1, 1, 12345678, u"x"_qs},
                                 {2, least, 1234567, 1, 1, 1, 1, {}}});
  Links.insert(Links.end(), {{0, .5, .25, 1, 1, 0, 2},
                             {10, 0, 0, 1234, 0, 0, 1},
                             {10, 1.0 / 3, -1e-7, 123, 1e20, 0, -1}});
  LanHeader = {.NAME = {}, .COMPANY = QStringLiteral("  Ünï€ → "), .IP = QStringLiteral("any")};
  operations.AddData(0, QStringLiteral(" two  blanks "));
  const std::string saved = save().toStdString();
  for (const QByteArray &rows :
       {crlf({"1       ISOLATIONBRIDGE 1       2       1       -1      -1      -1",
              "2       SESSIONKEYSERVER 1       2       1       -1      -1      -1",
              "3       NONE            1       2       1       -1      -1      -1",
              "4       HUB             1       2       1       -1      -1      -1       x ",
              "5       HUB             1       2       1       1       1       12345678 x",
              "6       HUB             -2147483648 1234567 1       1       1       1", "."}),
        crlf({"LINK    0       0.5     0.25    1   1       0       2",
              "LINK    10      0       0       1234 0       0       1",
              "LINK    10      0.333333333333333 -1e-07  123 1e+20   0       -1", "."}),
        crlf({"DATA    0        two  blanks ", "."})})
    EXPECT_THAT(saved, HasSubstr("\r\n" + rows.toStdString()));
  EXPECT_THAT(saved,
              StartsWith("NAME        \r\nCOMPANY       \xDCn\xEF\x80 ? \r\nIP          any\r\n"));
}

TEST_F(LanFile, SaveReportsWhatIsNotThere) {
  const Boxes boxes(yes(9));
  SaveLAN(QStringLiteral("/dev/full"));
  SaveLAN(folder.path("no/lan.txt"));
  EXPECT_THAT(boxes.texts, ElementsAre("61 frmMain.SaveLAN", "76 frmMain.SaveLAN",
                                       "52 frmMain.SaveLAN", "52 frmMain.SaveLAN"));
  EXPECT_TRUE(boxes.boxes[0].text.contains(u"\n/dev/full\n"));
  for (int i = 1; i < 4; ++i)
    EXPECT_TRUE(boxes.boxes[std::size_t(i)].text.contains(folder.path("no/lan.txt")));
}

/// Killed between any two system calls, each of which fails once; or its power cut, when the first
/// sector (a small one, as the file is) and the rest are as they were at any moment since a flush.
TEST_F(LanFile, WhateverEndsASaveItLeavesTheOldTheNewOrAReport) {
  const QString path = folder.path("old.txt");
  const QByteArray missing = Folder::bytes(path);
  QByteArray due = Folder::bytes(sample("five-devices.txt"));
  due.replace("Sample Local Area Network", "").replace("123.123.", "");
  for (const QByteArray &old :
       {missing, due + due, QByteArray(due).replace("Sample Company", "").replace("48", "5")})
    for (int failing = -1, count = 0; failing < count; ++failing) {
      open(due);
      if (folder.file(old, "old.txt"); old == missing)
        QFile::remove(path);
      std::vector<QByteArray> left, moments{old};
      count = 0;
      const auto step = [&](auto call) {
        return [&, call](auto... values) {
          const auto answer = count++ == failing ? decltype(call(values...)){-1} : call(values...);
          left.push_back(moments.emplace_back(Folder::bytes(path)));
          return errno = ENOSPC, answer;
        };
      };
      const auto writeSome = [](int handle, const void *bytes, size_t size) {
        return ::write(handle, bytes, std::min<size_t>(size, size > 8 ? 300 : 3));
      };
      const auto flush = [&](int) {
        for (const QByteArray &first : moments)
          for (const QByteArray &rest : moments)
            left.push_back(first.leftJustified(std::min<qsizetype>(64, rest.size()), '\0', true) +
                           rest.mid(64));
        return moments = {moments.back()}, 0;
      };
      const auto close = [answer = step([](int) { return 0; })](int handle) {
        return ::close(handle), answer(handle); // closed in any case, as the system does
      };
      systemCalls = {step(::fallocate), ::fstatvfs,  step(writeSome),
                     step(::ftruncate), step(flush), close};
      const Boxes boxes(failing % 2 == 0 ? yes(9) : std::vector<Answer>{});
      SaveLAN(path);
      systemCalls = {};
      const QByteArray now = Folder::bytes(path);
      EXPECT_EQ(boxes.texts.empty(), failing < 0);
      EXPECT_EQ(now == missing, failing >= 0 && old == missing);
      EXPECT_TRUE(failing > 0 || now == (failing < 0 ? due : old));         // 0: there was no room
      EXPECT_TRUE(failing != 6 || old == missing || now.size() == 8 + 300); // it ends there
      for (const QByteArray &bytes : left) {
        const Boxes reports;
        QFile::remove(folder.path("lan.txt")); // emptying it would wait for the disk
        open(bytes);
        ASSERT_TRUE(bytes == old || bytes == due || !reports.texts.empty()) << bytes.toStdString();
      }
    }
}

TEST_F(LanFile, ReadsByPlaceAndNotByWord) {
  const Boxes boxes;
  open("; a comment\r\n\r\n \t \r\nTITLE My  \tnet\r\n  COMPANY \r\n\tIP\t1.2\r\n;x\r\nXPOS 2.5\r\n"
       "WXYZ -3\r\nany thing 7 8\r\n x hub 1 2 9 -1 0 1\t  a  b \t c \r\n ; c\r\n"
       "x Fax 1 2 3 4 5 6 6\r\nx BOX 1.5 2.5 0 0 0 1e2\r\n . \r\n\r\n"
       "CONNECT 0 .5 0.50 1 1 0 7 more\r\nL 9 -1 0 -8 0 5.5 0\r\n.\r\n; t\r\nV 1 0\r\n.\r\n"
       "D 1 a  b\r\nD 2\r\n.\r\nrest");
  EXPECT_EQ(dump(), " My net,,1.2,2,-3|ROUTER 7 8 1 -1 -1 -1;HUB 1 2 1 -1 0 1 'a b c';"
                    "FAXPRINTER 1 2 3 4 5 6 '6';NONE 2 2 1 0 0 100|"
                    "0@0.5,0.5-1@1,0/7;9@-1,0--8@0,5.5/0|1<0|1='a b';2=''");
  EXPECT_FALSE(LoadingFile);
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, LinesEndAtCrAndCrLf) {
  const Boxes boxes;
  open("NAME A\nB\rCOMPANY C\r\nIP 1\rXPOS 1\rYPOS 1\r\r\n0 ROUTER 5 6\r..\r1 HUB 0 0 1 2 3 4\r.");
  EXPECT_EQ(dump(), "A\nB,C,1,1,1|ROUTER 5 6 1 -1 -1 -1|||");
  EXPECT_THAT(boxes.texts, ElementsAre("9 frmMain.OpenLANFile")); // ".." is a row, and a short one
}

const std::vector<QByteArray> wholeFile{
    "NAME N", "COMPANY C",       "IP 1", "XPOS 1", "YPOS 2", "0 R 3 4", "1 HUB 1 1 1 1 1 1",
    ".",      "L 0 0 0 1 0 0 1", ".",    "V 0 1",  ".",      "D 1 x",   "."};

/// What the first `tables` tables of it make.
std::string built(std::size_t tables) {
  std::string text = "N,C,1,1,2|ROUTER 3 4 1 -1 -1 -1";
  const Words parts{";HUB 1 1 1 1 1 1", "|0@0,0-1@0,0/1", "|0<1", "|1='x'"};
  for (std::size_t i = 0; i < parts.size(); ++i)
    text += i < tables ? parts[i] : i > 0 ? "|" : "";
  return text;
}

/// Yes leaves the row out, No ends the reading with what was built up to there.
TEST_F(LanFile, FaultsOfARow) {
  const std::array<Words, 4> faults{
      Words{"1 HUB 1 2 1 -1 -1 -> 9", "1 -> 9", "1 HUB x 2 1 -1 -1 -1 -> 13",
            "1 HUB 1 2 1 -1 -1 0x1 -> 13", "1 HUB 9999999999 2 1 -1 -1 -1 -> 6"},
      {"L 0 0 0 0 0 0 -> 9", "L 0 x 0 0 0 0 1 -> 13", "L 0 1e999 0 0 0 0 1 -> 6"},
      {"V 1 -> 9", "V 1 y -> 13", "V 99999999999 1 -> 6"},
      {"D -> 9", "D y text -> 13", "D 3000000000 -> 6"}};
  for (std::size_t table = 0; table < faults.size(); ++table)
    for (const auto &[row, error] : sides(faults[table]))
      for (const Answer answer : {Answer::Yes, Answer::No}) {
        std::vector<QByteArray> lines = wholeFile;
        lines.insert(lines.begin() + 6 + 2 * static_cast<std::ptrdiff_t>(table),
                     QByteArray::fromStdString(row));
        const Boxes boxes({answer});
        open(crlf(lines));
        EXPECT_THAT(boxes.texts, ElementsAre(error + " frmMain.OpenLANFile")) << row;
        EXPECT_EQ(dump(), built(answer == Answer::Yes ? faults.size() : table)) << row;
        EXPECT_FALSE(LoadingFile);
      }
}

TEST_F(LanFile, FaultsOfTheHeaderKeepTheOldValue) {
  const Boxes boxes(yes(9));
  open(crlf({"NAME N", "COMPANY C", "IP 1", "XPOS east", "YPOS 99999999999", ".",
             "1 HUB 1 1 1 1 1 1", "."}));
  EXPECT_THAT(boxes.texts, ElementsAre("13 frmMain.OpenLANFile", "6 frmMain.OpenLANFile",
                                       "9 frmMain.OpenLANFile"));
  EXPECT_EQ(dump(), "N,C,1,0,0|ROUTER 0 0 1 -1 -1 -1;HUB 1 1 1 1 1 1|||");
  for (const auto &[at, fault] : std::vector<std::pair<std::size_t, const char *>>{
           {3, "XPOS east"}, {5, "0 R 3"}, {5, "0 R 3 x"}, {5, "0 R x 4"}}) {
    std::vector<QByteArray> lines = wholeFile;
    lines[at] = fault;
    const Boxes no;
    open(crlf(lines));
    EXPECT_THAT(no.texts, SizeIs(1)) << fault;
    EXPECT_EQ(dump(),
              std::string(at == 3 ? "N,C,1,0,0" : "N,C,1,1,2") + "|ROUTER 0 0 1 -1 -1 -1|||")
        << fault;
  }
}

/// The tables behind the systems can be left out; where any other line is missing, only No ends it.
TEST_F(LanFile, WhenTheLinesRunOut) {
  const std::string cleared = "123.123.123.123,0,0|ROUTER 0 0 1 -1 -1 -1|||";
  for (const std::ptrdiff_t count : {0, 2, 6, 7, 8, 9, 10, 11, 12, 13, 14}) {
    operations.AddSystem(5);
    const Boxes boxes(yes(50));
    open(crlf({wholeFile.begin(), wholeFile.begin() + count}) + "\r\n;x\r\n");
    const bool complete = count > 6 && count % 2 == 0;
    EXPECT_EQ(boxes.texts, Words(complete ? 0 : 51, "9 frmMain.OpenLANFile")) << count;
    EXPECT_EQ(dump(), count == 0   ? "Unnamed Network,Unknown Company," + cleared
                      : count == 2 ? "N,C," + cleared
                                   : built(static_cast<std::size_t>(count - 5) / 2));
    EXPECT_FALSE(LoadingFile);
  }
  const Boxes boxes(yes(50));
  open("");
  EXPECT_THAT(boxes.texts, SizeIs(51));
}

TEST_F(LanFile, WhatCannotBeOpenedLeavesANewLan) {
  for (const auto &[path, error] : std::map<QString, std::string>{
           {folder.path("none.txt"), "53"}, {folder.path(""), "75"}, {QString(), "52"}}) {
    operations.AddSystem(5);
    const Boxes boxes(yes(20));
    OpenLANFile(path, operations, view);
    EXPECT_THAT(boxes.texts, SizeIs(21));
    EXPECT_THAT(Words(boxes.texts.begin(), boxes.texts.begin() + 3),
                ElementsAre(error + " frmMain.OpenLANFile", "52 frmMain.OpenLANFile",
                            "9 frmMain.OpenLANFile"));
    EXPECT_TRUE(boxes.boxes[0].text.contains(u'\n' + path + u'\n'));
    EXPECT_EQ(dumpSystems(), "ROUTER 0 0 1 -1 -1 -1");
  }
}

TEST_F(LanFile, EveryByteValueAndALongLineComeBack) {
  const Boxes boxes;
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte)
    if (byte != '\r' && byte != '\t' && byte != ' ')
      all += static_cast<char>(byte);
  all += QByteArray(10'000'000, 'x');
  for (const int page : {1252, 1255}) {
    useCodePage(page);
    open(lanFile({"."}, {".", ".", "DATA 0 " + all, "."}));
    EXPECT_TRUE(save().contains("DATA    0       " + all + "\r\n.\r\n"));
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, TakingItsTimeYields) {
  struct Busy : ReaderView {
    void yield() override { yields += LoadingFile ? 1 : 0; }
    int yields = 0;
  } busy;
  const Boxes boxes;
  OpenLANFile(sample("five-devices.txt"), operations, busy);
  EXPECT_EQ(busy.yields, 0);
  OpenLANFile(sample("five-devices.txt"), operations, busy, true);
  EXPECT_GT(busy.yields, 15);
}

TEST(Text, BlanksAreTrimmedAndJoined) {
  for (const auto &[text, due] :
       sides({" -> |", "   -> |", "\t a\t\tb   -> a  b|a b",
              "a   b\u00a0  -> a   b\u00a0|a b\u00a0", "\na -> \na|\na"})) {
    const QString given = QString::fromStdString(text);
    EXPECT_EQ((SuperTrim(given) + u'|' + ConcatSpaces(given)).toStdString(), due);
  }
}

} // namespace
} // namespace vnb::test
