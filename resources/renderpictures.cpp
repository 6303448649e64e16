// SPDX-License-Identifier: MIT
//
// The program loads ready-made bitmaps, so that its own pictures and those of a user's theme take
// the same path; this tool turns the drawn sources into such bitmaps while the program is built.

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QStringList>
#include <QSvgRenderer>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace vnb {

using Palette = QHash<QString, QString>;

struct Layer {
  QString svgPath;
  QPointF shift;
};

struct ButtonState {
  QString suffix;
  QPointF glyphShift;
};

struct Arguments {
  QString outDir;
  QString paletteFile;
  QStringList svgPaths;
};

[[noreturn]] void fail(const QString &message) {
  throw std::runtime_error(message.toStdString());
}

QString readText(const QString &path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    fail(path + ": " + file.errorString());
  }
  return QString::fromUtf8(file.readAll());
}

Palette readPalette(const QString &path) {
  static const QRegularExpression pair("^(#[0-9A-F]{6})\\s+(#[0-9A-F]{6})$");
  Palette palette;
  for (const QString &line : readText(path).toUpper().split('\n')) {
    const QString entry = line.trimmed();
    if (entry.isEmpty()) {
      continue;
    }
    const QRegularExpressionMatch match = pair.match(entry);
    if (!match.hasMatch()) {
      fail(path + ": not a pair of colours: " + entry);
    }
    palette.insert(match.captured(1), match.captured(2));
  }
  return palette;
}

// All colours are replaced in one pass, so that a theme may also swap two of them.
QString recoloured(const QString &svg, const Palette &palette) {
  static const QRegularExpression colour("#[0-9A-Fa-f]{6}\\b");
  QString result;
  qsizetype copied = 0;
  auto matches = colour.globalMatch(svg);
  while (matches.hasNext()) {
    const QRegularExpressionMatch match = matches.next();
    result += svg.mid(copied, match.capturedStart() - copied);
    result += palette.value(match.captured().toUpper(), match.captured());
    copied = match.capturedEnd();
  }
  return result + svg.mid(copied);
}

void loadSvg(QSvgRenderer &renderer, const QString &path, const Palette &palette) {
  if (!renderer.load(recoloured(readText(path), palette).toUtf8())) {
    fail(path + ": not a valid SVG picture");
  }
}

// The first layer gives the size of the picture.
void writePictures(const QString &outStem, const QList<Layer> &layers, const Palette &palette) {
  QSvgRenderer base;
  loadSvg(base, layers.first().svgPath, palette);
  const QSize size = base.defaultSize();

  for (const int scale : {1, 2, 3}) {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
      fail(layers.first().svgPath + ": has no usable size");
    }
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    for (const Layer &layer : layers) {
      QSvgRenderer renderer;
      loadSvg(renderer, layer.svgPath, palette);
      renderer.render(&painter, QRectF(layer.shift, renderer.defaultSize()));
    }
    painter.end();

    const QString suffix = scale == 1 ? QString() : QString("@%1x").arg(scale);
    const QString outPath = outStem + suffix + ".png";
    if (!image.save(outPath)) {
      fail(outPath + ": cannot be written");
    }
  }
}

void writeButton(const QString &outStem, const QFileInfo &glyph, const Palette &palette) {
  static const std::array<ButtonState, 3> states{{{"", {0, 0}}, {"_H", {0, 0}}, {"_C", {1, 1}}}};

  QSvgRenderer renderer;
  loadSvg(renderer, glyph.filePath(), palette);
  const QString plateStem =
      QString("%1/plates/%2").arg(glyph.path()).arg(renderer.defaultSize().width());
  for (const ButtonState &state : states) {
    writePictures(
        outStem + state.suffix,
        {{plateStem + state.suffix + ".svg", {0, 0}}, {glyph.filePath(), state.glyphShift}},
        palette);
  }
}

void writeSource(const QString &outDir, const QString &svgPath, const Palette &palette) {
  const QFileInfo source(svgPath);
  const QString outStem = outDir + '/' + source.completeBaseName();
  if (QFileInfo(source.absolutePath()).fileName() == "buttons") {
    writeButton(outStem, source, palette);
  } else {
    writePictures(outStem, {{svgPath, {0, 0}}}, palette);
  }
}

Arguments parseArguments(QStringList words) {
  Arguments arguments;
  words.removeFirst();
  const qsizetype option = words.indexOf("--palette");
  if (option >= 0 && option + 1 < words.size()) {
    arguments.paletteFile = words.takeAt(option + 1);
    words.removeAt(option);
  }
  if (words.size() < 2 || words.contains("--palette")) {
    fail("usage: renderpictures OUTDIR [--palette FILE] SVG...");
  }
  arguments.outDir = words.takeFirst();
  arguments.svgPaths = words;
  return arguments;
}

void run(const QStringList &words) {
  const Arguments arguments = parseArguments(words);
  const Palette palette =
      arguments.paletteFile.isEmpty() ? Palette() : readPalette(arguments.paletteFile);
  for (const QString &svgPath : arguments.svgPaths) {
    writeSource(arguments.outDir, svgPath, palette);
  }
}

} // namespace vnb

int main(int argc, char *argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  const QGuiApplication application(argc, argv);
  try {
    vnb::run(QGuiApplication::arguments());
    return EXIT_SUCCESS;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "renderpictures: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
