// SPDX-License-Identifier: MIT
/// Any bytes taken for a theme's file must load, or be refused by a RuntimeError.
#include "appearance/images.h"
#include "appearance/theme.h"
#include "fuzz/require.h"
#include "runtime/error.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace {

using namespace vnb;

/// The forms' side of a load: buttons of every tag, nothing else.
class View : public EditorView {
public:
  void linkColorChanged() override { require(!m_coloured, "lines take their colour first"); }
  void UpdateColors() override { m_coloured = true; }
  void loadButtonImages(const QString &tag, const QString &files) override {
    ButtonImageSet set;
    LoadButtonImages(set, tag, files);
    ++m_buttons;
  }
  void deviceImagesChanged() override {
    require(m_coloured && m_buttons == 13, "devices come last");
    for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType)
      require(!DeviceImages(lType).isNull(), "each device has a picture");
    m_complete = true;
  }

  bool isComplete() const { return m_complete; }

private:
  bool m_coloured = false;
  int m_buttons = 0;
  bool m_complete = false;
};

/// A theme's folder in memory, with two pictures and a file that is none.
class ThemeFolder {
public:
  ThemeFolder() : m_folder(QStringLiteral("/dev/shm/theme-XXXXXX")) {
    QImage image(5, 7, QImage::Format_RGB32);
    image.fill(Qt::red);
    require(image.save(m_folder.filePath(QStringLiteral("a.png"))) &&
                image.save(m_folder.filePath(QStringLiteral("b.bmp"))),
            "the pictures can't be stored");
    fill(m_folder.filePath(QStringLiteral("c.png")), "no picture");
  }

  QString theme(const QByteArray &bytes) const {
    QString path = m_folder.filePath(QStringLiteral("theme.xml"));
    fill(path, bytes);
    return path;
  }

private:
  static void fill(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush(),
            "the input can't be stored");
  }

  QTemporaryDir m_folder;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  static const ThemeFolder folder;
  const QString path =
      folder.theme(QByteArray(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size)));
  View view;
  bool refused = false;
  try {
    LoadTheme(path, view);
  } catch (const RuntimeError &error) {
    refused = true;
    require(!error.description().isEmpty(), "a refusal has its reason");
  }
  require(view.isComplete() != refused, "a theme is loaded to its end or refused");
  require(ThemeFile == path, "the path is kept in either case");
  for (const ColourRow &row : colourRows)
    require((*row.colour & ~0xFFFFFF) == 0, "colours have 24 bits");
  return 0;
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(*argc, *argv); // to the end of the process
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
  return 0;
}
