// SPDX-License-Identifier: MIT
/// The program's own version, and the list of versions that may lie beside it.
#pragma once

#include <QString>
#include <QStringList>

namespace vnb {

/// Major, minor and revision, as "6.2.5".
QString ownVersion();

/// Where the list is: versions.xml beside the program.
QString versionListPath();

/// The versions that the list names, in its order: the "number" of each child of its root. Raises
/// what XmlDocument raises, and ownError for a child without a number.
QStringList readVersionList();

} // namespace vnb
