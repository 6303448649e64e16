// SPDX-License-Identifier: MIT
#include "forms/pictures.h"

#include "runtime/error.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <cmath>

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

namespace {

/// The sharp variant of a picture for the screen's scale, or the picture itself.
QString variant(const QString &path) {
  const QFileInfo file(path);
  for (int scale = std::min(3, static_cast<int>(std::ceil(qApp->devicePixelRatio()))); scale > 1;
       --scale) {
    QString sharp =
        QStringLiteral("%1/%2@%3x.%4")
            .arg(file.path(), file.completeBaseName(), QString::number(scale), file.suffix());
    if (QFileInfo(sharp).isFile())
      return sharp;
  }
  return path;
}

} // namespace

QPixmap LoadPicture(const QString &path) {
  constexpr int largest = 4096;
  if (!QFileInfo::exists(path))
    throw RuntimeError(Fault::FileNotFound);
  if (!QFileInfo(path).isFile())
    throw RuntimeError(Fault::PathFileAccess);
  QImageReader reader(variant(path)); // tells the scale by the name
  const QSize size = reader.size();
  QImage image;
  if (size.width() > largest || size.height() > largest || !reader.read(&image) || image.isNull())
    throw RuntimeError(Fault::InvalidPicture);
  return QPixmap::fromImage(std::move(image));
}

} // namespace vnb
