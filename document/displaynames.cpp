// SPDX-License-Identifier: MIT
#include "document/displaynames.h"

namespace vnb {

QString deviceName(std::int32_t lIndex) {
  const bool known = lIndex >= 0 && lIndex <= UBound(Systems);
  const std::int32_t lType =
      known ? Systems[static_cast<std::size_t>(lIndex)].lType : SystemType::Unknown;
  return NameFromType(lType, true) + u' ' + QString::number(lIndex);
}

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  return link.lFrom == lIndex ? QStringLiteral("Link to ") + deviceName(link.lTo)
                              : QStringLiteral("Link from ") + deviceName(link.lFrom);
}

} // namespace vnb
