// SPDX-License-Identifier: MIT
#include "document/displaynames.h"

#include <QStringBuilder>

namespace vnb {
namespace {

QString linkName(const LinkRec &link, std::int32_t lIndex, QLatin1String to, QLatin1String from) {
  const bool first = link.lFrom == lIndex;
  const std::int32_t other = first ? link.lTo : link.lFrom;
  return (first ? to : from) % friendlyName(other) % u' ' % QString::number(other);
}

} // namespace

QString friendlyName(std::int32_t lIndex) {
  const bool known = lIndex >= 0 && lIndex <= UBound(Systems);
  return NameFromType(known ? at(Systems, lIndex).lType : SystemType::Unknown, true);
}

QString deviceName(std::int32_t lIndex) {
  return friendlyName(lIndex) % u' ' % QString::number(lIndex);
}

QString linkDirection(const LinkRec &link, std::int32_t lIndex) {
  return linkName(link, lIndex, QLatin1String("to "), QLatin1String("from "));
}

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  return linkName(link, lIndex, QLatin1String("Link to "), QLatin1String("Link from "));
}

} // namespace vnb
