// SPDX-License-Identifier: MIT
#include "document/displaynames.h"

#include "runtime/at.h"

#include <QStringBuilder>

#include <array>

namespace vnb {

namespace {

/// By the code of the type.
using Names = std::array<QString, SystemType::Last + 1>;

/// The displayed names of all types, `words` before each: made once, for thousands of rows share
/// them.
Names namesBehind(const QString &words) {
  Names names;
  for (std::int32_t lType = 0; lType <= SystemType::Last; ++lType)
    at(names, lType) = words + NameFromType(lType, true);
  return names;
}

const QString &nameOf(std::int32_t lIndex, const Names &names) {
  const bool known = lIndex >= 0 && lIndex <= UBound(Systems);
  const std::int32_t lType = known ? at(Systems, lIndex).lType : SystemType::Unknown;
  return at(names, lType >= 0 && lType <= SystemType::Last ? lType : SystemType::Unknown);
}

} // namespace

QString friendlyName(std::int32_t lIndex) {
  static const Names names = namesBehind({});
  return nameOf(lIndex, names);
}

QString deviceName(std::int32_t lIndex) {
  return friendlyName(lIndex) % u' ' % QString::number(lIndex);
}

std::int32_t otherEnd(const LinkRec &link, std::int32_t lIndex) {
  return link.lFrom == lIndex ? link.lTo : link.lFrom;
}

QString linkKind(const LinkRec &link, std::int32_t lIndex) {
  static const Names to = namesBehind(QStringLiteral("Link to "));
  static const Names from = namesBehind(QStringLiteral("Link from "));
  return nameOf(otherEnd(link, lIndex), link.lFrom == lIndex ? to : from);
}

QString linkName(const LinkRec &link, std::int32_t lIndex) {
  return linkKind(link, lIndex) % u' ' % QString::number(otherEnd(link, lIndex));
}

QString inSentence(QString name) {
  name[0] = name[0].toLower();
  return name;
}

} // namespace vnb
