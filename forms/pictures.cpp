// SPDX-License-Identifier: MIT
#include "forms/pictures.h"

#include "runtime/error.h"

#include <QFileInfo>
#include <QImageReader>

static void initResources() {
  Q_INIT_RESOURCE(pictures);
}

namespace vnb {

QPixmap LoadResPicture(const QString &name) {
  // The resources lie in a library that the linker would otherwise leave out.
  static const bool ready = (initResources(), true);
  QPixmap picture;
  if (ready)
    picture.load(QStringLiteral(":/pictures/%1.png").arg(name));
  if (picture.isNull())
    throw RuntimeError(Fault::ResourceNotFound);
  return picture;
}

QPixmap LoadPicture(const QString &path) {
  constexpr int largest = 4096;
  if (!QFileInfo::exists(path))
    throw RuntimeError(Fault::FileNotFound);
  if (!QFileInfo(path).isFile())
    throw RuntimeError(Fault::PathFileAccess);
  QImageReader reader(path);
  const QSize size = reader.size();
  QImage image;
  if (size.width() > largest || size.height() > largest || !reader.read(&image) || image.isNull())
    throw RuntimeError(Fault::InvalidPicture);
  return QPixmap::fromImage(std::move(image));
}

} // namespace vnb
