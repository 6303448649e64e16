// SPDX-License-Identifier: MIT
#include "document/operations.h"
#include "support.h"

#include <random>
#include <set>

namespace vnb::test {
namespace {

TEST(SystemType, NamesLeadBackToTheirCode) {
  for (std::int32_t code = 1; code <= SystemType::Last; ++code) {
    EXPECT_EQ(QString::fromLatin1(FileWord(code)), NameFromType(code, false).toUpper());
    for (const bool friendly : {false, true}) {
      const QString name = NameFromType(code, friendly);
      for (const QString &form : {name, name.toUpper(), name.toLower()})
        EXPECT_EQ(TypeFromName(form), code) << form.toStdString();
    }
  }
  for (const auto &[name, code] :
       sides({"fax -> 15", "AUTH -> 8", "ib -> 10", "radiotransmiter -> 13",
              "sessionkey server -> 12", "Session Keyserver -> 12", " hub -> 0", "hub  -> 0",
              "Mail Server* -> 0", "NONE -> 0", " -> 0", "\u212Bub -> 0"}))
    EXPECT_EQ(std::to_string(TypeFromName(QString::fromStdString(name))), code) << name;
}

TEST(Document, AddSystemMendsOnlyTheSecurityLevel) {
  DocumentOperations operations;
  operations.ClearLAN();
  for (const std::int32_t level : {0, 1, 3, 4, -1})
    operations.AddSystem(99, -5, 7, level, 1, 2, 3, QStringLiteral(" "));
  EXPECT_EQ(dumpSystems(), "ROUTER 0 0 1 -1 -1 -1;NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';"
                           "NONE -5 7 3 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' '");
}

/// A LAN in which every number is stored somewhere: 0 to 5 are router, hub, lock, server, bridge
/// and receiver.
class StoredNumbers : public testing::Test {
protected:
  StoredNumbers() {
    operations.ClearLAN();
    for (const std::int32_t lType : {2, 9, 5, 10, 14})
      operations.AddSystem(lType, 10 * lType, 0, 1, 2, 1, 3, {});
    for (const auto &[from, to] : std::vector<std::pair<int, int>>{{0, 1}, {3, 2}, {1, 3}, {5, 5}})
      operations.AddLink(from, .25, .5, to, .75, 1, 2);
    for (const auto &[owner, listed] : std::vector<std::pair<int, int>>{{1, 2}, {2, 3}, {3, 0}})
      operations.AddSubnet(owner, listed);
    for (const std::int32_t number : {3, 2, 1, 3})
      operations.AddData(number, QString::number(number));
  }

  DocumentOperations operations;
};

TEST_F(StoredNumbers, CloseUpWhereADeviceHasLeft) {
  operations.RemoveSystem(2);
  EXPECT_EQ(dump().substr(dump().find('|')),
            "|ROUTER 0 0 1 -1 -1 -1;HUB 20 0 1 2 1 3;MAINSERVER 50 0 1 -1 1 2;"
            "ISOLATIONBRIDGE 100 0 1 -1 1 3;RADIORECEIVER 140 0 1 2 1 3|"
            "0@0.25,0.5-1@0.75,1/2;1@0.25,0.5-2@0.75,1/2;4@0.25,0.5-4@0.75,1/2|2<0|"
            "2='3';1='1';2='3'");
  operations.RemoveLink(2, false);
  EXPECT_EQ(dumpLinks(), "0@0.25,0.5-1@0.75,1/2;4@0.25,0.5-4@0.75,1/2");
}

TEST_F(StoredNumbers, AreLocksInSomeTypesOnly) {
  for (std::int32_t lType = 0; lType <= 17; ++lType) {
    operations.ClearLAN();
    for (int i = 0; i < 5; ++i)
      operations.AddSystem(9);
    operations.AddSystem(2, 1, 2, 3, 3, 2, 4, QStringLiteral("x"));
    operations.ReplaceSystem(6, lType); // the fields stay, whatever they now are
    operations.MoveSystem(6, 3, 4);
    operations.RemoveSystem(2);
    const std::string text = dumpSystems();
    EXPECT_EQ(text.substr(text.rfind(';') + 1), std::string(FileWord(lType)) + " 3 4 3 " +
                                                    (lType == 5 || lType == 8 ? "2 -1 3"
                                                     : lType == 10            ? "2 -1 4"
                                                                              : "3 2 4") +
                                                    " 'x'");
  }
  EXPECT_EQ(raised([&] { operations.MoveSystem(6, 0, 0); }), "9");
  EXPECT_EQ(raised([&] { operations.ReplaceSystem(-1, 2); }), "9");
}

TEST_F(StoredNumbers, AreFoundFromElementOneOn) {
  EXPECT_THAT(RetrieveLinks(1), ElementsAre(0, 1, 3));
  EXPECT_THAT(RetrieveLinks(0), ElementsAre(0, 1));
  EXPECT_THAT(RetrieveLinks(5), ElementsAre(0, 4)) << "from itself to itself";
  EXPECT_THAT(RetrieveLinks(4), ElementsAre(0));
  EXPECT_THAT(RetrieveLocks(), ElementsAre(0, 2));
  Systems[0].lType = Systems[5].lType = SystemType::Lock;
  EXPECT_THAT(RetrieveLocks(), ElementsAre(0, 0, 2, 5));
  for (std::int32_t i = 0; i <= 5; ++i)
    EXPECT_EQ(SystemHasLinks(i), i != 4) << i;
  EXPECT_THAT((std::vector{FindData(3), FindData(1), FindData(0), FindSubnet(2, 3),
                           FindSubnet(3, 2), FindSubnet(0, 0), FindSubnet(3, 0)}),
              ElementsAre(1, 3, -1, 2, -1, -1, 3));
  RemoveFromSubnetArray(2);
  RemoveFromDataArray(1);
  EXPECT_EQ(dumpSubnets() + dumpData(), "1<2;3<02='2';1='1';3='3'");
}

TEST(Document, RemovalRefusesWhatIsNotThere) {
  const Boxes boxes;
  DocumentOperations operations;
  operations.ClearLAN();
  operations.AddData(0, {});
  operations.RemoveSystem(0);
  operations.RemoveSystem(1);
  for (const std::int32_t index : {0, -1, 2})
    RemoveFromDataArray(index);
  operations.RemoveLink(1, false);
  RemoveFromSubnetArray(1);
  EXPECT_THAT(boxes.texts,
              ElementsAre("9 modDeclares.RemoveFromSysArray", "9 modDeclares.RemoveFromSysArray",
                          "9 modDeclares.RemoveFromDataArray", "9 modDeclares.RemoveFromDataArray",
                          "9 modDeclares.RemoveFromDataArray", "9 modDeclares.RemoveFromLinkArray",
                          "9 modDeclares.RemoveFromSubnetArray"));
  EXPECT_EQ(dumpSystems() + dumpData(), "ROUTER 0 0 1 -1 -1 -10=''");
}

/// The document as plain vectors, each operation written the simplest way.
struct NaiveDocument {
  LanHeaderRec header;
  std::vector<SystemRec> systems;
  std::vector<LinkRec> links;
  std::vector<SubnetRec> subnets;
  std::vector<DataRec> data;

  void clear() {
    *this = {{u"Unnamed Network"_qs, u"Unknown Company"_qs, u"123.123.123.123"_qs},
             {{1, 0, 0, 1, -1, -1, -1, {}}},
             std::vector<LinkRec>(1),
             std::vector<SubnetRec>(1),
             std::vector<DataRec>(1)};
  }
  void add(SystemRec record) {
    const std::set levels{1, 2, 3};
    record.lSecur = levels.contains(record.lSecur) ? record.lSecur : 1;
    systems.push_back(record);
  }
  void removeLink(std::int32_t number) {
    if (number >= 1 && number <= UBound(links))
      links.erase(links.begin() + number);
  }
  /// No number is less than 1, so element 0 of each vector stays as it is.
  void removeSystem(std::int32_t number) {
    if (number < 1 || number > UBound(systems))
      return;
    systems.erase(systems.begin() + number);
    std::erase_if(links, [&](const LinkRec &l) { return l.lFrom == number || l.lTo == number; });
    std::erase_if(subnets,
                  [&](const SubnetRec &s) { return s.lFor == number || s.lFrom == number; });
    std::erase_if(data, [&](const DataRec &d) { return d.lNum == number; });
    std::vector<std::int32_t *> stored, locks;
    for (LinkRec &link : links)
      stored.insert(stored.end(), {&link.lFrom, &link.lTo});
    for (SubnetRec &subnet : subnets)
      stored.insert(stored.end(), {&subnet.lFor, &subnet.lFrom});
    for (DataRec &entry : data)
      stored.push_back(&entry.lNum);
    for (SystemRec &system : systems) {
      const bool server = system.lType == 5 || system.lType == 8;
      if (server || system.lType == 10)
        locks.insert(locks.end(), {&system.lData1, &system.lData2});
      if (server)
        locks.push_back(&system.lData3);
    }
    for (std::int32_t *lock : locks)
      *lock = *lock == number ? -1 : *lock;
    stored.insert(stored.end(), locks.begin(), locks.end());
    for (std::int32_t *value : stored)
      *value -= *value > number ? 1 : 0;
  }

  void swapWithProgram() {
    std::swap(header, LanHeader);
    systems.swap(Systems);
    links.swap(Links);
    subnets.swap(Subnets);
    data.swap(DataItems);
  }
  std::string text() {
    swapWithProgram();
    std::string text = dump();
    swapWithProgram();
    return text;
  }
};

int fromEnvironment(const char *name, int standard) {
  bool valid = false;
  const int value = qEnvironmentVariableIntValue(name, &valid);
  return valid ? value : standard;
}

/// VNB_STEPS sets how many steps, VNB_SEED another seed. From time to time it starts anew, so that
/// a sequence that fails is never long.
TEST(Document, DoesWhatTheNaiveOneDoes) {
  const int count = fromEnvironment("VNB_STEPS", 4000);
  std::mt19937 random(static_cast<unsigned>(fromEnvironment("VNB_SEED", 1)));
  const auto below = [&](std::int32_t end) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(end));
  };
  const Boxes boxes;
  DocumentOperations operations;
  NaiveDocument naive;
  std::string log;
  for (int step = 0; step < count; ++step) {
    const auto any = [&] { return below(UBound(Systems) + 3) - 1; }; // those around the ends, too
    const std::int32_t a = any(), b = any(), c = any();
    const int what = step % 60 == 0 ? 0 : 1 + below(13);
    if (what == 0) {
      log.clear();
      operations.ClearLAN();
      naive.clear();
    } else if (what < 5) {
      const SystemRec r{below(18), a, b, below(5), a, b, c, QString::number(c)};
      operations.AddSystem(r.lType, r.lX, r.lY, r.lSecur, r.lData1, r.lData2, r.lData3, r.sDataX);
      naive.add(r);
    } else if (what < 7) {
      const LinkRec r{a, below(5) / 4.0, 0.5, b, below(5) / 4.0, c / 4.0, below(5)};
      operations.AddLink(r.lFrom, r.dFromX, r.dFromY, r.lTo, r.dToX, r.dToY, r.lSecur);
      naive.links.push_back(r);
    } else if (what == 7) {
      operations.AddSubnet(a, b);
      naive.subnets.push_back({a, b});
    } else if (what == 8) {
      operations.AddData(a, QString::number(b));
      naive.data.push_back({a, QString::number(b)});
    } else if (what == 9) {
      const std::int32_t link = below(UBound(Links) + 2);
      operations.RemoveLink(link, c == 0);
      naive.removeLink(link);
    } else if (what < 12) {
      operations.RemoveSystem(a);
      naive.removeSystem(a);
    } else if (const std::int32_t there = below(UBound(Systems) + 1); what == 12) {
      operations.MoveSystem(there, a, b);
      naive.systems[static_cast<std::size_t>(there)].lX = a;
      naive.systems[static_cast<std::size_t>(there)].lY = b;
    } else {
      const std::int32_t lType = 1 + below(16);
      operations.ReplaceSystem(there, lType);
      naive.systems[static_cast<std::size_t>(there)].lType = lType;
    }
    log += std::to_string(what) + ": " + dump() + "\n";
    ASSERT_EQ(dump(), naive.text()) << "behind\n" << log;
  }
}

} // namespace
} // namespace vnb::test
