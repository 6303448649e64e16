// SPDX-License-Identifier: MIT
/// Pictures from files and from the executable.
#pragma once

#include <QPixmap>
#include <QString>

#include <cstdint>
#include <map>

namespace vnb {

/// The built-in bitmap `name`, sharp at the screen's scale. Raises 326 if there is none.
QPixmap LoadResPicture(const QString &name);

/// Raises 326 if there is no built-in bitmap `name`, without the cost of reading it.
void requireResPicture(const QString &name);

/// The pictures of one theme. They may be a stranger's, so each file is read once, and a few bytes
/// can't ask for much memory.
class PictureFiles {
public:
  /// Pixels of a picture in width and in height, and of all pictures together. As many times more
  /// where a picture is sharper than the design.
  static constexpr int side = 512;
  static constexpr std::int64_t sum = 4'000'000;

  /// The picture in a file: BMP, GIF, JPEG or PNG. On a screen of scale 2 or 3, NAME@2x.EXT or
  /// NAME@3x.EXT beside it is taken instead. Raises 53 for a missing file, 75 for a folder or the
  /// like, 481 for a file that is no such picture or is damaged, ownError for what is larger; the
  /// error names the file.
  QPixmap LoadPicture(const QString &path);

private:
  QPixmap read(const QString &path);

  std::map<QString, QPixmap> m_read;
  double m_sum = 0; // in pixels of the design
};

} // namespace vnb
