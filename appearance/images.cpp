// SPDX-License-Identifier: MIT
#include "appearance/images.h"

#include "appearance/globals.h"
#include "runtime/at.h"
#include "runtime/error.h"

#include <QPainter>

namespace vnb {

namespace {

DeviceLook lookOf(const QPixmap &picture) {
  return {.picture = picture, .size = picture.deviceIndependentSize().toSize()};
}

/// Stands for a "|" within a path; no path holds it.
constexpr QChar bar(u'\0');

QStringList fields(const QString &files, qsizetype due, const char *description) {
  QStringList result = files.split(u'|');
  if (result.size() != due)
    throw RuntimeError(ownError, QString::fromLatin1(description));
  result.replaceInStrings(bar, QStringLiteral("|"));
  return result;
}

/// The picture in `file`, or the built-in one where that is empty. The built-in one must exist in
/// every case: a missing one would otherwise show only with some themes.
QPixmap pictureOr(const QString &file, const QString &builtIn) {
  requireResPicture(builtIn);
  return file.isEmpty() ? LoadResPicture(builtIn) : allPictures().files.LoadPicture(file);
}

/// `picture` on the theme's background: lines must not show through devices, and opaque pictures
/// are painted several times faster.
QPixmap onBackground(const QPixmap &picture) {
  if (picture.isNull() || !picture.hasAlphaChannel())
    return picture;
  QImage opaque(picture.size(), QImage::Format_RGB32);
  // Else a sharp picture would show twice as large.
  opaque.setDevicePixelRatio(picture.devicePixelRatio());
  opaque.fill(toQColor(BackgroundColor));
  QPainter(&opaque).drawPixmap(0, 0, picture);
  return QPixmap::fromImage(std::move(opaque));
}

} // namespace

/// Made at first use: there is no picture before the application object.
Pictures &allPictures() {
  static Pictures all = [] {
    Pictures start;
    start.devices[SystemType::Router] = lookOf(LoadResPicture(ResIDFromType(SystemType::Router)));
    return start;
  }();
  return all;
}

ButtonImageSet &ButtonImages(const QString &tag) {
  return allPictures().buttons[tag];
}

void showImages(PictureButton &button) {
  const auto show = [&button](bool up) { DoImage(button, ButtonImages(button.Tag()), up); };
  button.MouseDown = [show] { show(false); };
  button.MouseUp = [show] { show(true); };
  show(true);
}

const QPixmap &DeviceImages(std::int32_t lType) {
  return at(allPictures().devices, lType).picture;
}

DeviceLooks::DeviceLooks() : m_looks(allPictures().devices) {}

QString listedPath(const QString &path) {
  return QString(path).replace(u'|', bar);
}

void LoadButtonImages(ButtonImageSet &set, const QString &tag, const QString &files) {
  const QStringList paths = fields(files, 3, "Incorrect paramaters to LoadButtonImages!");
  set.Off = pictureOr(paths[0], tag);
  set.Over = pictureOr(paths[1], tag + QStringLiteral("_H"));
  set.Down = pictureOr(paths[2], tag + QStringLiteral("_C"));
}

void LoadDeviceImages(const QString &files) {
  const QStringList paths =
      fields(files, SystemType::Last, "Incorrect paramaters to LoadDeviceImages!");
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType)
    at(allPictures().devices, lType) =
        lookOf(onBackground(pictureOr(paths[lType - 1], ResIDFromType(lType))));
}

void DoImage(PictureButton &button, const ButtonImageSet &set, bool up) {
  button.setPicture(up ? set.Off : set.Down);
}

} // namespace vnb
