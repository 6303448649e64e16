// SPDX-License-Identifier: MIT
#include "widgets/pictures.h"

#include "runtime/error.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cmath>

static void initResources() {
  Q_INIT_RESOURCE(pictures);
}

namespace vnb {

namespace {

/// Path of a built-in bitmap. The resources lie in a library that the linker would otherwise leave
/// out.
QString resPath(const QString &name) {
  static const bool ready = (initResources(), true);
  return ready ? QStringLiteral(":/pictures/%1.png").arg(name) : QString();
}

} // namespace

QPixmap LoadResPicture(const QString &name) {
  QPixmap picture(resPath(name));
  if (picture.isNull())
    throw RuntimeError(Fault::ResourceNotFound);
  return picture;
}

void requireResPicture(const QString &name) {
  if (!QFileInfo::exists(resPath(name)))
    throw RuntimeError(Fault::ResourceNotFound);
}

namespace {

struct Variant {
  QString path;
  int scale; // pixels of it to a pixel of the design
};

/// The sharp variant of a picture for the screen's scale, or the picture itself.
Variant variant(const QString &path) {
  const QFileInfo file(path);
  for (int scale = std::min(3, static_cast<int>(std::ceil(qApp->devicePixelRatio()))); scale > 1;
       --scale) {
    QString sharp =
        QStringLiteral("%1/%2@%3x.%4")
            .arg(file.path(), file.completeBaseName(), QString::number(scale), file.suffix());
    if (QFileInfo(sharp).isFile())
      return {std::move(sharp), scale};
  }
  return {path, 1};
}

bool isKnown(const QByteArray &format) {
  constexpr std::array known{"bmp", "gif", "jpeg", "jpg", "png"};
  return std::ranges::any_of(known, [&](const char *name) { return format == name; });
}

RuntimeError tooLarge(const QString &what, std::int64_t pixels) {
  return {ownError, what.arg(pixels)};
}

} // namespace

QPixmap PictureFiles::LoadPicture(const QString &path) {
  const auto found = m_read.find(path);
  return found != m_read.end() ? found->second : m_read.emplace(path, read(path)).first->second;
}

QPixmap PictureFiles::read(const QString &path) {
  if (!QFileInfo::exists(path))
    throw RuntimeError(Fault::FileNotFound).about(path);
  if (!QFileInfo(path).isFile())
    throw RuntimeError(Fault::PathFileAccess).about(path);
  const Variant chosen = variant(path);
  return about(chosen.path, [&] {
    QImageReader reader(chosen.path);
    // Others could open more files, or run for long.
    if (!isKnown(reader.format()))
      throw RuntimeError(Fault::InvalidPicture);
    const QSize size = reader.size();
    const int most = side * chosen.scale;
    // Before reading, as a small file can claim a size for which there is no memory.
    if (std::max(size.width(), size.height()) > most)
      throw tooLarge(QStringLiteral("The picture is larger than %1 by %1 pixels."), most);
    const double area = double(size.width()) * size.height() / (chosen.scale * chosen.scale);
    if (m_sum + area > double(sum))
      throw tooLarge(QStringLiteral("All pictures together have more than %1 pixels."), sum);
    QImage image;
    if (!reader.read(&image) || image.isNull())
      throw RuntimeError(Fault::InvalidPicture);
    m_sum += area;
    // Not what the reader makes of the name: it looks no further than the first point.
    image.setDevicePixelRatio(chosen.scale);
    return QPixmap::fromImage(std::move(image));
  });
}

} // namespace vnb
