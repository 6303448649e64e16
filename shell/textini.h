// SPDX-License-Identifier: MIT
/// INI files whose values are text and nothing else.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace vnb {

/// The values by "section/key", or "key" where a key stands above all sections.
using IniValues = QMap<QString, QString>;

/// What a file in UTF-8 holds. Any bytes can be read; lines without "=" are passed over, and so are
/// comments, which begin with ";" or "#". Of two values for a key the later one counts. Unlike in
/// QSettings, no value stands for a list or a serialised object: a hand-made "@Variant(...)" is
/// text, where Qt's reader may end the process.
IniValues readIni(const QByteArray &bytes);

/// The bytes from which readIni makes `values`. Backslashes and line ends are escaped, and quotes
/// keep blanks at the ends.
QByteArray iniText(const IniValues &values);

} // namespace vnb
