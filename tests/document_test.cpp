// SPDX-License-Identifier: MIT
#include "document/operations.h"
#include "support.h"

#include <gmock/gmock.h>

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace vnb::test {
namespace {

class Document : public testing::Test {
protected:
  Document() { operations.ClearLAN(); }

  void add(std::int32_t lType, std::int32_t lData1 = -1, std::int32_t lData2 = -1,
           std::int32_t lData3 = -1) {
    operations.AddSystem(lType, 0, 0, 1, lData1, lData2, lData3);
  }
  void link(std::int32_t lFrom, std::int32_t lTo) {
    operations.AddLink(lFrom, .5, .5, lTo, .5, .5, 1);
  }

  Boxes boxes;
  DocumentOperations operations;
};

TEST(SystemType, NamesLeadBackToTheirCode) {
  for (std::int32_t code = 1; code <= SystemType::Last; ++code)
    for (const bool friendly : {false, true}) {
      const QString name = NameFromType(code, friendly);
      for (const QString &form : {name, name.toUpper(), name.toLower()})
        EXPECT_EQ(TypeFromName(form), code) << form.toStdString();
    }
  for (const auto &[name, code] :
       std::vector<std::pair<const char *, int>>{{"fax", 15},
                                                 {"Fax Printer", 15},
                                                 {"AUTH", 8},
                                                 {"ib", 10},
                                                 {"radiotransmiter", 13},
                                                 {"sessionkey server", 12},
                                                 {"Session Keyserver", 12},
                                                 {" hub", 0},
                                                 {"hub ", 0},
                                                 {"Mail Server*", 0},
                                                 {"NONE", 0},
                                                 {"", 0},
                                                 {"radioreceiver", 14},
                                                 {"\u212Bub", 0}})
    EXPECT_EQ(TypeFromName(QString::fromUtf8(name)), code) << name;
}

TEST(SystemType, TableOfNames) {
  const std::vector<std::array<const char *, 3>> due{
      {"UNKNOWN", "NONE", "Unknown device"},
      {"ROUTER", "Router", "Router"},
      {"HUB", "Hub", "Hub"},
      {"UNKNOWN", "Switch", "Switch"},
      {"TERMINAL", "Terminal", "Terminal"},
      {"MAIN", "Mainserver", "Main server"},
      {"MAIL", "Mailserver", "Mail server"},
      {"MAIN", "Fileserver", "File server"},
      {"AUTH", "Authentication", "Authentication server"},
      {"LOCK", "Lock", "Lock"},
      {"IB", "IsolationBridge", "Isolation Bridge"},
      {"MODEM", "Modem", "Modem"},
      {"UNKNOWN", "SessionKeyServer", "Session key server"},
      {"TRANS", "RadioTransmitter", "Radio transmitter"},
      {"RECEIVE", "RadioReceiver", "Radio receiver"},
      {"UNKNOWN", "Faxprinter", "Fax printer"},
      {"MAIN", "Logserver", "Log server"},
      {"UNKNOWN", "NONE", "Unknown device"}};
  for (std::int32_t code = 0; code <= 17; ++code) {
    const auto &[resID, plain, friendly] = due[static_cast<std::size_t>(code)];
    EXPECT_EQ(ResIDFromType(code).toStdString(), resID);
    EXPECT_EQ(NameFromType(code, false).toStdString(), plain);
    EXPECT_EQ(NameFromType(code, true).toStdString(), friendly);
    EXPECT_EQ(QString::fromLatin1(FileWord(code)), QString::fromLatin1(plain).toUpper());
  }
}

TEST_F(Document, ClearLANLeavesTheRouterAlone) {
  add(9);
  link(0, 1);
  operations.AddSubnet(0, 1);
  operations.AddData(1, QStringLiteral("x"));
  lSelectedItem = 1;
  for (int i = 0; i < 2; ++i) {
    operations.ClearLAN();
    EXPECT_EQ(dump(), "Unnamed Network,Unknown Company,123.123.123.123,0,0|"
                      "ROUTER 0 0 1 -1 -1 -1|||");
    EXPECT_EQ(lSelectedItem, -1);
    EXPECT_EQ(Links[0].lFrom + Subnets[0].lFor + DataItems[0].lNum, 0);
  }
}

TEST_F(Document, AddSystemMendsOnlyTheSecurityLevel) {
  for (const std::int32_t level : {0, 1, 3, 4, -1})
    operations.AddSystem(99, -5, 7, level, 1, 2, 3, QStringLiteral(" "));
  EXPECT_EQ(dumpSystems(), "ROUTER 0 0 1 -1 -1 -1;NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';"
                           "NONE -5 7 3 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' '");
}

TEST_F(Document, LookUpsStartAtOneAndTakeTheFirstMatch) {
  EXPECT_EQ(FindData(0), -1);
  EXPECT_EQ(FindSubnet(0, 0), -1);
  EXPECT_THAT(RetrieveLinks(0), ElementsAre(0));
  EXPECT_THAT(RetrieveLocks(), ElementsAre(0));
  EXPECT_FALSE(SystemHasLinks(0));
  add(9);
  add(2);
  add(9);
  link(0, 1);
  link(2, 2);
  link(1, 0);
  for (int i = 0; i < 2; ++i) {
    operations.AddSubnet(1, 2);
    operations.AddData(2, QString::number(i));
  }
  EXPECT_THAT(RetrieveLinks(0), ElementsAre(0, 1, 3));
  EXPECT_THAT(RetrieveLinks(2), ElementsAre(0, 2));
  EXPECT_THAT(RetrieveLocks(), ElementsAre(0, 1, 3));
  EXPECT_TRUE(SystemHasLinks(2));
  EXPECT_FALSE(SystemHasLinks(3));
  EXPECT_EQ(FindSubnet(1, 2), 1);
  EXPECT_EQ(FindSubnet(2, 1), -1);
  EXPECT_EQ(FindData(2), 1);
}

TEST_F(Document, RemovalKeepsTheOrderAndRefusesWhatIsNotThere) {
  for (int i = 0; i < 4; ++i)
    operations.AddData(i, {});
  RemoveFromDataArray(2);
  EXPECT_EQ(dumpData(), "0='';2='';3=''");
  for (const std::int32_t index : {0, -1, 4})
    RemoveFromDataArray(index);
  EXPECT_EQ(dumpData(), "0='';2='';3=''");
  EXPECT_THAT(boxes.texts,
              ElementsAre("9 modDeclares.RemoveFromDataArray", "9 modDeclares.RemoveFromDataArray",
                          "9 modDeclares.RemoveFromDataArray"));
}

TEST_F(Document, RemoveSystemKeepsEveryStoredNumberInStep) {
  add(9);          // 1, to be removed
  add(9);          // 2
  add(5, 1, 2, 3); // 3: only locks are numbers of systems, and 3 is its own
  add(8, 2, 1, -1);
  add(10, 2, 1, 2); // its third field isn't a lock
  add(2, 2, 2, 2);  // no locks at all
  link(0, 1);
  link(2, 3);
  link(1, 1);
  link(4, 0);
  operations.AddSubnet(1, 2);
  operations.AddSubnet(2, 1);
  operations.AddSubnet(3, 0);
  operations.AddData(1, QStringLiteral("gone"));
  operations.AddData(4, QStringLiteral("kept"));
  operations.RemoveSystem(1);
  EXPECT_EQ(dump(), "Unnamed Network,Unknown Company,123.123.123.123,0,0|"
                    "ROUTER 0 0 1 -1 -1 -1;LOCK 0 0 1 -1 -1 -1;MAINSERVER 0 0 1 -1 1 2;"
                    "AUTHENTICATION 0 0 1 1 -1 -1;ISOLATIONBRIDGE 0 0 1 1 -1 2;HUB 0 0 1 2 2 2|"
                    "1@0.5,0.5-2@0.5,0.5/1;3@0.5,0.5-0@0.5,0.5/1|2<0|3='kept'");
  operations.RemoveSystem(0);
  operations.RemoveSystem(6);
  EXPECT_THAT(boxes.texts,
              ElementsAre("9 modDeclares.RemoveFromSysArray", "9 modDeclares.RemoveFromSysArray"));
}

/// Numbers follow the systems that they name: checked against names instead of numbers.
TEST_F(Document, RandomRemovalsNeverMixUpSystems) {
  std::mt19937 random(11);
  const auto below = [&random](std::int32_t bound) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(bound));
  };
  for (std::int32_t i = 1; i <= 60; ++i)
    operations.AddSystem(2, i, 0);
  const auto name = [](std::int32_t number) {
    return Systems[static_cast<std::size_t>(number)].lX;
  };
  for (int i = 0; i < 200; ++i) {
    const std::int32_t from = below(61);
    const std::int32_t to = below(61);
    operations.AddLink(from, from, 0, to, to, 0, 1);
    operations.AddSubnet(from, to);
    operations.AddData(from, QString::number(from));
  }
  while (UBound(Systems) > 0) {
    operations.RemoveSystem(1 + below(UBound(Systems)));
    for (std::size_t i = 1; i < Links.size(); ++i) {
      EXPECT_EQ(name(Links[i].lFrom), Links[i].dFromX);
      EXPECT_EQ(name(Links[i].lTo), Links[i].dToX);
    }
    for (std::size_t i = 1; i < DataItems.size(); ++i)
      EXPECT_EQ(QString::number(name(DataItems[i].lNum)), DataItems[i].sText);
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

} // namespace
} // namespace vnb::test
