// SPDX-License-Identifier: MIT
#include "document/operations.h"
#include "support.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace vnb::test {
namespace {

TEST(SystemType, NamesLeadBackToTheirCode) {
  for (std::int32_t code = 1; code <= SystemType::Last; ++code)
    for (const bool friendly : {false, true}) {
      const QString name = NameFromType(code, friendly);
      for (const QString &form : {name, name.toUpper(), name.toLower()})
        EXPECT_EQ(TypeFromName(form), code) << form.toStdString();
    }
  for (const auto &[name, code] :
       sides({"fax -> 15", "AUTH -> 8", "ib -> 10", "radiotransmiter -> 13",
              "sessionkey server -> 12", "Session Keyserver -> 12", " hub -> 0", "hub  -> 0",
              "Mail Server* -> 0", "NONE -> 0", " -> 0", "\u212Bub -> 0"}))
    EXPECT_EQ(std::to_string(TypeFromName(QString::fromStdString(name))), code) << name;
}

TEST(SystemType, HasFourNames) {
  Words names;
  for (const std::int32_t code : {0, 3, 8, 10, 12, 17}) {
    const QString plain = NameFromType(code, false);
    names.push_back(
        (ResIDFromType(code) + u' ' + plain + QStringLiteral(", ") + NameFromType(code, true))
            .toStdString());
    EXPECT_EQ(QString::fromLatin1(FileWord(code)), plain.toUpper());
  }
  EXPECT_THAT(names, ElementsAre("UNKNOWN NONE, Unknown device", "UNKNOWN Switch, Switch",
                                 "AUTH Authentication, Authentication server",
                                 "IB IsolationBridge, Isolation Bridge",
                                 "UNKNOWN SessionKeyServer, Session key server",
                                 "UNKNOWN NONE, Unknown device"));
}

TEST(Document, AddSystemMendsOnlyTheSecurityLevel) {
  DocumentOperations operations;
  operations.ClearLAN();
  for (const std::int32_t level : {0, 1, 3, 4, -1})
    operations.AddSystem(99, -5, 7, level, 1, 2, 3, QStringLiteral(" "));
  EXPECT_EQ(dumpSystems(), "ROUTER 0 0 1 -1 -1 -1;NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';"
                           "NONE -5 7 3 1 2 3 ' ';NONE -5 7 1 1 2 3 ' ';NONE -5 7 1 1 2 3 ' '");
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
  EXPECT_THAT(boxes.texts,
              ElementsAre("9 modDeclares.RemoveFromSysArray", "9 modDeclares.RemoveFromSysArray",
                          "9 modDeclares.RemoveFromDataArray", "9 modDeclares.RemoveFromDataArray",
                          "9 modDeclares.RemoveFromDataArray"));
  EXPECT_EQ(dumpSystems() + dumpData(), "ROUTER 0 0 1 -1 -1 -10=''");
}

} // namespace
} // namespace vnb::test
