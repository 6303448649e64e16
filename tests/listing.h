// SPDX-License-Identifier: MIT
/// Listings: files beside the tests that hold, line by line, what is to be seen. They are read by
/// people first, who change them with what they tell.
#pragma once

#include "support.h"

#include <QStringList>

namespace vnb::test {

inline QString listingPath(const char *name) {
  return QStringLiteral(VNB_LISTINGS "/") + QString::fromLatin1(name);
}

inline QStringList listing(const char *name) {
  QStringList lines = QString::fromUtf8(Folder::bytes(listingPath(name))).split(u'\n');
  lines.removeLast(); // behind the last line's end
  return lines;
}

/// Tells where `now` leaves the listing of that name. With VNB_WRITE set it is written anew
/// instead, for whoever then looks through the differences.
inline void expectListed(const char *name, const QStringList &now) {
  QFile file(listingPath(name));
  if (qEnvironmentVariableIsSet("VNB_WRITE") && file.open(QIODevice::WriteOnly))
    file.write((now.join(u'\n') + u'\n').toUtf8());
  const QStringList due = listing(name);
  for (const auto &[mark, lines, others] : {std::tuple("- ", due, now), {"+ ", now, due}})
    for (const QString &line : lines)
      EXPECT_TRUE(others.contains(line)) << mark << line.toStdString();
  const auto [one, other] = std::ranges::mismatch(due, now);
  EXPECT_TRUE(one == due.end() && other == now.end())
      << "line " << one - due.begin() + 1 << " of " << name << " is the first to differ";
}

} // namespace vnb::test
