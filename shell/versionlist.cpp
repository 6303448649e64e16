// SPDX-License-Identifier: MIT
#include "shell/versionlist.h"

#include "runtime/error.h"
#include "runtime/xml.h"

#include <QCoreApplication>
#include <QDir>

namespace vnb {

QString ownVersion() {
  return QStringLiteral(VNB_VERSION);
}

QString versionListPath() {
  return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("versions.xml"));
}

QStringList readVersionList() {
  const XmlDocument list(versionListPath());
  QStringList versions;
  for (const XmlElement &version : list.root().children()) {
    const std::optional<QString> number = version.getAttribute(u"number");
    if (!number)
      throw RuntimeError(ownError, QStringLiteral("A version in the list has no number."));
    versions.append(*number);
  }
  return versions;
}

} // namespace vnb
