// SPDX-License-Identifier: MIT
// Draws a LAN file into a PNG without a display: for pictures in documents, for a machine without a
// screen, and for tests that compare what is drawn.

#include "appearance/images.h"
#include "appearance/theme.h"
#include "diagram/diagramoperations.h"
#include "lanfile/lanfile.h"
#include "runtime/error.h"
#include "runtime/messagebox.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>

namespace vnb {
namespace {

constexpr int usageError = 2;

/// What a theme changes of a surface that stands alone.
class SurfaceTheme : public EditorView {
public:
  explicit SurfaceTheme(Surface &surface) : m_surface(surface) {}

  void UpdateColors() override { m_surface.setBackColor(BackgroundColor); }

private:
  Surface &m_surface;
};

/// Reads the file as the editor does. False if anything was reported.
bool read(const QString &path, DiagramOperations &operations) {
  bool clean = true;
  const auto print = showMessageBox;
  showMessageBox = [&](const MessageBox &box) {
    clean = false;
    return print(box);
  };
  ReaderView view;
  OpenLANFile(path, operations, view);
  return clean;
}

/// The surface, or the part of it that holds devices and some room around them.
QRect area(const Surface &surface, bool crop) {
  if (!crop)
    return surface.rect();
  constexpr int room = 40;
  QRect devices;
  for (std::int32_t i = 0; i <= surface.picSystem.UBound(); ++i)
    devices |= surface.spriteRect(i).within(surface.rect());
  return devices.adjusted(-room, -room, room, room) & surface.rect();
}

QImage picture(Surface &surface, const QRect &area) {
  QImage image(area.size(), QImage::Format_RGB32);
  QPainter painter(&image);
  painter.translate(-area.topLeft());
  surface.paint(painter, area);
  return image;
}

int run(const QStringList &words) {
  const bool crop = words.value(1) == u"--crop";
  if (words.size() != (crop ? 4 : 3)) {
    std::fputs("usage: render [--crop] FILE.txt OUT.png\n", stderr);
    return usageError;
  }
  Surface surface(nullptr);
  SurfaceTheme theme(surface);
  try {
    LoadTheme(QStringLiteral("default"), theme);
  } catch (const RuntimeError &error) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(ThemeFile),
                 qUtf8Printable(error.description()));
    return EXIT_FAILURE;
  }
  GridRes = 20;
  DiagramOperations operations(surface, theme);
  if (!read(words[words.size() - 2], operations))
    return EXIT_FAILURE;
  surface.DrawGrid();
  if (picture(surface, area(surface, crop)).save(words.last()))
    return EXIT_SUCCESS;
  std::fprintf(stderr, "%s can't be written\n", qUtf8Printable(words.last()));
  return EXIT_FAILURE;
}

} // namespace
} // namespace vnb

int main(int argc, char *argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return vnb::run(QApplication::arguments());
}
