// SPDX-License-Identifier: MIT
/// Pictures from files and from the executable.
#pragma once

#include <QPixmap>
#include <QString>

namespace vnb {

/// The built-in bitmap `name`, sharp at the screen's scale. Raises 326 if there is none.
QPixmap LoadResPicture(const QString &name);

/// Raises 326 if there is no built-in bitmap `name`, without the cost of reading it.
void requireResPicture(const QString &name);

/// The picture in a file, of any format that Qt reads here. On a screen of scale 2 or 3,
/// NAME@2x.EXT or NAME@3x.EXT beside it is taken instead. Raises 53 for a missing file, 75 for a
/// folder or the like, 481 for a file that is no picture or is damaged, ownError for one larger
/// than 4096 pixels in width or height; the error names the file.
QPixmap LoadPicture(const QString &path);

} // namespace vnb
