// SPDX-License-Identifier: MIT
#include "document/displaynames.h"

#include <QStringBuilder>

namespace vnb {

QString friendlyName(std::int32_t lIndex) {
  const bool known = lIndex >= 0 && lIndex <= UBound(Systems);
  return NameFromType(known ? at(Systems, lIndex).lType : SystemType::Unknown, true);
}

QString deviceName(std::int32_t lIndex) {
  return friendlyName(lIndex) % u' ' % QString::number(lIndex);
}

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  const bool first = link.lFrom == lIndex;
  const std::int32_t other = first ? link.lTo : link.lFrom;
  return QLatin1String(first ? "Link to " : "Link from ") % friendlyName(other) % u' ' %
         QString::number(other);
}

QString inSentence(QString name) {
  name[0] = name[0].toLower();
  return name;
}

} // namespace vnb
