// SPDX-License-Identifier: MIT
#include "document/displaynames.h"

namespace vnb {

QString friendlyName(std::int32_t lIndex) {
  const bool known = lIndex >= 0 && lIndex <= UBound(Systems);
  return NameFromType(known ? at(Systems, lIndex).lType : SystemType::Unknown, true);
}

QString deviceName(std::int32_t lIndex) {
  return friendlyName(lIndex) + u' ' + QString::number(lIndex);
}

QString linkDirection(const LinkRec &link, std::int32_t lIndex) {
  return link.lFrom == lIndex ? QStringLiteral("to ") + deviceName(link.lTo)
                              : QStringLiteral("from ") + deviceName(link.lFrom);
}

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  return QStringLiteral("Link ") + linkDirection(link, lIndex);
}

} // namespace vnb
