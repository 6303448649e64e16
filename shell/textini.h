// SPDX-License-Identifier: MIT
/// INI files whose values are text and nothing else.
#pragma once

#include <QSettings>

namespace vnb {

/// The format for QSettings, in files "*.ini". Unlike Qt's own, no value stands for a list or a
/// serialised object: a hand-made "@Variant(...)" is text, where Qt's reader may end the process.
/// Any bytes can be read; lines without "=" are passed over. UTF-8.
QSettings::Format textIniFormat();

} // namespace vnb
