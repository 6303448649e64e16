// SPDX-License-Identifier: MIT
#include "lanfile/lanfile.h"
#include "runtime/codepage.h"
#include "support.h"

#include <gmock/gmock.h>

#include <limits>

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

  /// Line `number` of the saved file, counted from 1.
  QByteArray savedLine(int number) { return save().split('\n').at(number - 1).chopped(1); }

  Folder folder;
  DocumentOperations operations;
  ReaderView view;
};

TEST_F(LanFile, SampleComesBackToTheByte) {
  Boxes boxes;
  for (const char *name : {"five-devices.txt", "company.txt"}) {
    OpenLANFile(sample(name), operations, view);
    const QByteArray due = Folder::bytes(sample(name));
    const QByteArray saved = save();
    EXPECT_TRUE(saved == due) << name;
    EXPECT_EQ(save(), saved);
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, FiveDevicesSampleIsThisDocument) {
  OpenLANFile(sample("five-devices.txt"), operations, view);
  EXPECT_EQ(dump(), "Sample Local Area Network,Sample Company,123.123.123.123,20,20|"
                    "ROUTER 240 120 1 -1 -1 -1;LOCK 480 120 1 1 -1 -1;MAINSERVER 720 120 2 1 -1 -1;"
                    "MODEM 240 360 1 -1 -1 -1 '555-0199';RADIOTRANSMITTER 480 360 1 -1 -1 -1|"
                    "0@0.5,0.5-1@0.5,0.5/1;1@1,0.5-2@0,0.25/2|2<0|2='Staff records and payroll'");
}

TEST_F(LanFile, HandWrittenSampleReadsTheSameInAnyLayout) {
  Boxes boxes;
  OpenLANFile(sample("hand-written.txt"), operations, view);
  EXPECT_THAT(boxes.texts, IsEmpty());
  const std::string read = dump();
  const QByteArray first = save();
  OpenLANFile(folder.path("saved.txt"), operations, view);
  EXPECT_EQ(dump(), read);
  EXPECT_EQ(save(), first);
  EXPECT_GT(UBound(Links), 3);
}

TEST_F(LanFile, NewDocumentHasEveryBannerAndOneRow) {
  EXPECT_EQ(save(),
            crlf({"NAME        Unnamed Network",
                  "COMPANY     Unknown Company",
                  "IP          123.123.123.123",
                  "XPOS        0",
                  "YPOS        0",
                  "",
                  "; =======",
                  "; SYSTEMS",
                  "; =======",
                  "",
                  "; NUM   SYSTEMTYPE      XPOS    YPOS    SECUR   DATA1   DATA2   DATA3   DATAX",
                  "; ---------------------------------------------------------------------------",
                  "",
                  "0       ROUTER          0       0       1       -1      -1      -1",
                  ".",
                  "",
                  "; =====",
                  "; LINKS",
                  "; =====",
                  "",
                  "; LINK  FROM    FROMX   FROMY   TO  TOX     TOY     SECUR",
                  "; -------------------------------------------------------",
                  "",
                  ".",
                  "",
                  "; =============",
                  "; VALID SUBNETS",
                  "; =============",
                  "",
                  "; VALIDSUBNET   FOR     FROM",
                  "; --------------------------",
                  "",
                  ".",
                  "",
                  "; ====",
                  "; DATA",
                  "; ====",
                  "",
                  "; DATA  NUM     TEXT",
                  "; ------------------",
                  "",
                  "."}));
}

TEST_F(LanFile, SystemRowsKeepTheirColumnsApart) {
  const std::int32_t least = std::numeric_limits<std::int32_t>::min();
  struct Case {
    SystemRec system;
    const char *row;
  };
  for (const auto &[system, row] : std::vector<Case>{
           {{3, 1, 2, 1, -1, -1, -1, {}},
            "1       SWITCH          1       2       1       -1      -1      -1"},
           {{10, 1, 2, 1, -1, -1, -1, {}},
            "1       ISOLATIONBRIDGE 1       2       1       -1      -1      -1"},
           {{12, 1, 2, 1, -1, -1, -1, {}},
            "1       SESSIONKEYSERVER 1       2       1       -1      -1      -1"},
           {{0, 1, 2, 1, -1, -1, -1, {}},
            "1       NONE            1       2       1       -1      -1      -1"},
           {{99, 1, 2, 1, -1, -1, -1, {}},
            "1       NONE            1       2       1       -1      -1      -1"},
           {{2, 1, 2, 1, -1, -1, -1, QStringLiteral("   ")},
            "1       HUB             1       2       1       -1      -1      -1"},
           {{2, 1, 2, 1, -1, -1, -1, QStringLiteral(" x ")},
            "1       HUB             1       2       1       -1      -1      -1       x "},
           {{2, 1, 2, 1, 1, 1, 12345678, QStringLiteral("x")},
            "1       HUB             1       2       1       1       1       12345678 x"},
           {{2, least, 1234567, 1, 1, 1, 1, {}},
            "1       HUB             -2147483648 1234567 1       1       1       1"},
       }) {
    operations.ClearLAN();
    Systems.push_back(system);
    EXPECT_EQ(savedLine(15).toStdString(), row);
  }
}

TEST_F(LanFile, LinkRowsHaveANarrowToColumn) {
  for (const auto &[link, row] : std::vector<std::pair<LinkRec, const char *>>{
           {{0, .5, .25, 1, 1, 0, 2}, "LINK    0       0.5     0.25    1   1       0       2"},
           {{10, 0, 0, 1234, 0, 0, 1}, "LINK    10      0       0       1234 0       0       1"},
           {{10, 1.0 / 3, -1e-7, 123, 1e20, 0, -1},
            "LINK    10      0.333333333333333 -1e-07  123 1e+20   0       -1"}}) {
    operations.ClearLAN();
    Links.push_back(link);
    EXPECT_EQ(savedLine(24).toStdString(), row);
  }
}

TEST_F(LanFile, TextIsWrittenAsItStands) {
  LanHeader = {.NAME = {}, .COMPANY = QStringLiteral("  Ünï€ → "), .IP = QStringLiteral("any")};
  operations.AddData(0, QStringLiteral(" two  blanks "));
  EXPECT_EQ(savedLine(1), "NAME        ");
  EXPECT_EQ(savedLine(2), "COMPANY       \xDCn\xEF\x80 ? ");
  EXPECT_EQ(savedLine(42), "DATA    0        two  blanks ");
}

TEST_F(LanFile, SaveReportsWhatIsNotThere) {
  for (const auto &[path, due] : std::vector<std::pair<QString, std::vector<std::string>>>{
           {QStringLiteral("/dev/full"), {"61 frmMain.SaveLAN"}},
           {folder.path("no/lan.txt"),
            {"76 frmMain.SaveLAN", "52 frmMain.SaveLAN", "52 frmMain.SaveLAN"}},
           {folder.path(""), {"75 frmMain.SaveLAN", "52 frmMain.SaveLAN", "52 frmMain.SaveLAN"}}}) {
    Boxes boxes(yes(9));
    SaveLAN(path);
    EXPECT_EQ(boxes.texts, due);
    Boxes no;
    SaveLAN(path);
    EXPECT_THAT(no.texts, SizeIs(1));
  }
}

TEST_F(LanFile, AShorterLanReplacesALongerFileWhole) {
  const Boxes boxes;
  OpenLANFile(sample("company.txt"), operations, view);
  const QString path = folder.path("twice.txt");
  SaveLAN(path);
  operations.ClearLAN();
  SaveLAN(path);
  EXPECT_EQ(Folder::bytes(path).toStdString(), save().toStdString());
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, ReadsByPlaceAndNotByWord) {
  Boxes boxes;
  open("; a comment\r\n\r\n \t \r\nTITLE My  \tnet\r\n  COMPANY \r\n\tIP\t1.2\r\n;x\r\nXPOS 2.5\r\n"
       "WXYZ -3\r\nany thing 7 8\r\n x hub 1 2 9 -1 0 1\t  a  b \t c \r\n ; c\r\n"
       "x Fax 1 2 3 4 5 6 6\r\nx BOX 0 0 0 0 0 0\r\n . \r\n\r\n"
       "CONNECT 0 .5 0.50 1 1 0 7 more\r\n.\r\n; t\r\nV 1 0\r\n.\r\nD 1 a  b\r\nD 2\r\n.\r\nrest");
  EXPECT_EQ(dump(), " My net,,1.2,2,-3|ROUTER 7 8 1 -1 -1 -1;HUB 1 2 1 -1 0 1 'a b c';"
                    "FAXPRINTER 1 2 3 4 5 6 '6';NONE 0 0 1 0 0 0|0@0.5,0.5-1@1,0/7|1<0|"
                    "1='a b';2=''");
  EXPECT_THAT(boxes.texts, IsEmpty());
  EXPECT_FALSE(LoadingFile);
}

TEST_F(LanFile, LinesEndAtCrAndCrLf) {
  Boxes boxes;
  open("NAME A\nB\rCOMPANY C\r\nIP 1\rXPOS 1\rYPOS 1\r\r\n0 ROUTER 5 6\r..\r1 HUB 0 0 1 2 3 4\r.");
  EXPECT_EQ(dump(), "A\nB,C,1,1,1|ROUTER 5 6 1 -1 -1 -1|||");
  EXPECT_THAT(boxes.texts, ElementsAre("9 frmMain.OpenLANFile")); // ".." is a row, and a short one
}

TEST_F(LanFile, FaultsOfARowLeaveItOut) {
  struct Case {
    const char *row;
    std::vector<int> errors;
    const char *due;
  };
  const auto check = [this](const QByteArray &file, const Case &fault, std::string (*dumped)()) {
    Boxes boxes(yes(1));
    open(file);
    std::vector<std::string> due;
    for (const int error : fault.errors)
      due.push_back(std::to_string(error) + " frmMain.OpenLANFile");
    EXPECT_EQ(boxes.texts, due) << fault.row;
    EXPECT_EQ(dumped(), fault.due) << fault.row;
  };
  const std::vector<QByteArray> noSystems{"."};
  for (const Case &fault : std::vector<Case>{
           {"1 HUB 1 2 1 -1 -1", {9}, "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 0 0 0"},
           {"1", {9}, "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 0 0 0"},
           {"1 HUB x 2 1 -1 -1 -1", {13}, "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 0 0 0"},
           {"1 HUB 1 2 1 -1 -1 0x1", {13}, "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 0 0 0"},
           {"1 HUB 9999999999 2 1 -1 -1 -1", {6}, "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 0 0 0"},
           {"1 HUB 1.5 2.5 1 -1 -1 1e2",
            {},
            "ROUTER 0 0 1 -1 -1 -1;HUB 2 2 1 -1 -1 100;LOCK 0 0 1 0 0 0"}})
    check(lanFile({fault.row, "2 LOCK 0 0 1 0 0 0", "."}), fault, dumpSystems);
  for (const Case &fault :
       std::vector<Case>{{"LINK 0 0 0 0 0 0", {9}, "0@1,1-0@1,1/1"},
                         {"LINK 0 x 0 0 0 0 1", {13}, "0@1,1-0@1,1/1"},
                         {"LINK 0 1e999 0 0 0 0 1", {6}, "0@1,1-0@1,1/1"},
                         {"LINK 9 -1 0 -8 0 5.5 0", {}, "9@-1,0--8@0,5.5/0;0@1,1-0@1,1/1"}})
    check(lanFile(noSystems, {fault.row, "LINK 0 1 1 0 1 1 1", "."}), fault, dumpLinks);
  for (const Case &fault : std::vector<Case>{{"VALIDSUBNET 1", {9}, "1<2"},
                                             {"VALIDSUBNET 1 y", {13}, "1<2"},
                                             {"VALIDSUBNET 99999999999 1", {6}, "1<2"}})
    check(lanFile(noSystems, {".", fault.row, "VALIDSUBNET 1 2", "."}), fault, dumpSubnets);
  for (const Case &fault : std::vector<Case>{{"DATA", {9}, "1='t'"},
                                             {"DATA y text", {13}, "1='t'"},
                                             {"DATA 3000000000", {6}, "1='t'"}})
    check(lanFile(noSystems, {".", ".", fault.row, "DATA 1 t", "."}), fault, dumpData);
}

TEST_F(LanFile, FaultsOfTheHeaderKeepTheOldValue) {
  Boxes boxes(yes(9));
  open(crlf({"NAME N", "COMPANY C", "IP 1", "XPOS east", "YPOS 99999999999", ".",
             "1 HUB 1 1 1 1 1 1", "."}));
  EXPECT_THAT(boxes.texts, ElementsAre("13 frmMain.OpenLANFile", "6 frmMain.OpenLANFile",
                                       "9 frmMain.OpenLANFile"));
  EXPECT_EQ(dump(), "N,C,1,0,0|ROUTER 0 0 1 -1 -1 -1;HUB 1 1 1 1 1 1|||");
}

/// No ends the reading wherever it stands, with what was built up to there.
TEST_F(LanFile, NoEndsTheReadingAtAnyFault) {
  const std::vector<QByteArray> good{
      "NAME N", "COMPANY C",       "IP 1", "XPOS 1", "YPOS 2", "0 R 3 4", "1 HUB 1 1 1 1 1 1",
      ".",      "L 0 0 0 1 0 0 1", ".",    "V 0 1",  ".",      "D 1 x",   "."};
  struct Case {
    std::size_t line;
    const char *fault;
    const char *due;
  };
  for (const auto &[line, fault, due] : std::vector<Case>{
           {3, "XPOS east", "N,C,1,0,0|ROUTER 0 0 1 -1 -1 -1|||"},
           {5, "0 R 3", "N,C,1,1,2|ROUTER 0 0 1 -1 -1 -1|||"},
           {5, "0 R x 4", "N,C,1,1,2|ROUTER 0 0 1 -1 -1 -1|||"},
           {6, "1 HUB", "N,C,1,1,2|ROUTER 3 4 1 -1 -1 -1|||"},
           {8, "L", "N,C,1,1,2|ROUTER 3 4 1 -1 -1 -1;HUB 1 1 1 1 1 1|||"},
           {10, "V", "N,C,1,1,2|ROUTER 3 4 1 -1 -1 -1;HUB 1 1 1 1 1 1|0@0,0-1@0,0/1||"},
           {12, "D", "N,C,1,1,2|ROUTER 3 4 1 -1 -1 -1;HUB 1 1 1 1 1 1|0@0,0-1@0,0/1|0<1|"},
       }) {
    std::vector<QByteArray> lines = good;
    lines[line] = fault;
    const Boxes boxes({Answer::No});
    open(crlf(lines));
    EXPECT_THAT(boxes.texts, SizeIs(1)) << fault;
    EXPECT_EQ(dump(), due) << fault;
    EXPECT_FALSE(LoadingFile);
  }
}

TEST_F(LanFile, TablesBehindSystemsAreOptional) {
  Boxes boxes;
  for (const std::vector<QByteArray> &behind :
       std::vector<std::vector<QByteArray>>{{"."}, {".", "."}, {".", ".", "."}, {".", ";"}})
    open(lanFile({}, behind));
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, WhenTheLinesRunOutOnlyNoEndsIt) {
  const std::string cleared = "Unnamed Network,Unknown Company,123.123.123.123,0,0|"
                              "ROUTER 0 0 1 -1 -1 -1|||";
  const std::string built = "N,C,1,2,3|ROUTER 0 0 1 -1 -1 -1;HUB 1 1 1 1 1 1|";
  for (const auto &[bytes, due] : std::vector<std::pair<QByteArray, std::string>>{
           {"", cleared},
           {"\r\n;x\r\n", cleared},
           {"NAME N\r\nCOMPANY C", "N,C,123.123.123.123,0,0|ROUTER 0 0 1 -1 -1 -1|||"},
           {lanFile({"1 HUB 1 1 1 1 1 1"}), built + "||"},
           {lanFile({"1 HUB 1 1 1 1 1 1"}, {".", "LINK 0 1 1 1 0 0 1"}), built + "0@1,1-1@0,0/1||"},
           {lanFile({"1 HUB 1 1 1 1 1 1"}, {".", ".", ".", "DATA 1 x"}), built + "||1='x'"}}) {
    operations.AddSystem(5);
    Boxes boxes(yes(50));
    open(bytes);
    EXPECT_THAT(boxes.texts, SizeIs(51));
    EXPECT_THAT(boxes.texts, Each(std::string("9 frmMain.OpenLANFile")));
    EXPECT_EQ(dump(), due);
    EXPECT_FALSE(LoadingFile);
  }
}

TEST_F(LanFile, WhatCannotBeOpenedLeavesANewLan) {
  for (const auto &[path, error] : std::vector<std::pair<QString, std::string>>{
           {folder.path("none.txt"), "53"}, {folder.path(""), "75"}, {QString(), "52"}}) {
    operations.AddSystem(5);
    Boxes boxes(yes(20));
    OpenLANFile(path, operations, view);
    EXPECT_EQ(boxes.texts[0], error + " frmMain.OpenLANFile");
    EXPECT_EQ(boxes.texts[1], "52 frmMain.OpenLANFile");
    EXPECT_EQ(boxes.texts[2], "9 frmMain.OpenLANFile");
    EXPECT_THAT(boxes.texts, SizeIs(21));
    EXPECT_EQ(dumpSystems(), "ROUTER 0 0 1 -1 -1 -1");
  }
}

/// Every prefix ends in a usable document, and never in more than the whole file has.
TEST_F(LanFile, AnyPrefixOfAFileIsSurvived) {
  const QByteArray whole = Folder::bytes(sample("five-devices.txt"));
  for (qsizetype size = 0; size <= whole.size(); ++size) {
    Boxes boxes(yes(3));
    open(whole.first(size));
    EXPECT_LE(UBound(Systems), 4);
    EXPECT_LE(UBound(Links) + UBound(Subnets) + UBound(DataItems), 4);
    EXPECT_LE(boxes.texts.size(), 4U);
  }
}

TEST_F(LanFile, EveryByteValueAndALongLineComeBack) {
  Boxes boxes;
  QByteArray all;
  for (int byte = 1; byte < 256; ++byte)
    if (byte != '\r' && byte != '\t' && byte != ' ')
      all += static_cast<char>(byte);
  all += QByteArray(1, '\0') + QByteArray(10'000'000, 'x');
  for (const int page : {1252, 1255}) {
    useCodePage(page);
    open(lanFile({"."}, {".", ".", "DATA 0 " + all, "."}));
    const QByteArray saved = save();
    EXPECT_TRUE(saved.contains("DATA    0       " + all + "\r\n.\r\n"));
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(LanFile, TakingItsTimeYieldsAndTellsTheViewInOrder) {
  struct Told : ReaderView {
    void headerRead(HeaderField field) override {
      told += 'h';
      told += std::to_string(static_cast<int>(field));
      EXPECT_TRUE(LoadingFile);
    }
    void routerMoved() override {
      told += 'r';
      told += std::to_string(Systems[0].lX);
    }
    void populateLockBoxes() override {
      told += 'l';
      told += std::to_string(UBound(Systems)) + std::to_string(UBound(Links));
    }
    void yield() override { ++yields; }
    bool stopped() const override { return stop; }
    std::string told;
    int yields = 0;
    bool stop = false;
  } told;
  Boxes boxes;
  OpenLANFile(sample("five-devices.txt"), operations, told);
  EXPECT_EQ(told.told, "h0h1h2h3h4r240l40");
  EXPECT_EQ(told.yields, 0);
  OpenLANFile(sample("five-devices.txt"), operations, told, true);
  EXPECT_GT(told.yields, 20);
  told.stop = true;
  OpenLANFile(sample("five-devices.txt"), operations, told);
  EXPECT_EQ(UBound(Systems), 1);
}

TEST(Text, BlanksAreTrimmedAndJoined) {
  for (const auto &[text, trimmed, joined] :
       std::vector<std::array<const char *, 3>>{{"", "", ""},
                                                {"  ", "", ""},
                                                {"\t a\t\tb  ", "a  b", "a b"},
                                                {"a   b\u00a0 ", "a   b\u00a0", "a b\u00a0"},
                                                {"\na", "\na", "\na"}}) {
    EXPECT_EQ(SuperTrim(QString::fromUtf8(text)).toStdString(), trimmed);
    EXPECT_EQ(ConcatSpaces(QString::fromUtf8(text)).toStdString(), joined);
  }
}

} // namespace
} // namespace vnb::test
