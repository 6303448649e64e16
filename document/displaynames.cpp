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

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  return link.lFrom == lIndex ? QStringLiteral("Link to ") + deviceName(link.lTo)
                              : QStringLiteral("Link from ") + deviceName(link.lFrom);
}

} // namespace vnb
