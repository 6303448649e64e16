// SPDX-License-Identifier: MIT
//
// The program loads ready-made bitmaps, so that its own pictures and those of a user's theme take
// the same path; this tool turns the drawn sources into such bitmaps while the program is built.

#include <QColor>
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

/// What a theme or the desktop makes of the drawn sources.
struct Look {
  Palette palette;
  /// Clear unless given. A theme's pictures are opaque, so that no line shows through a device.
  QColor background = Qt::transparent;
  /// Of the only picture; 0 stands for the drawn size, twice and three times that.
  int width = 0;
};

struct Scale {
  double factor;
  QString suffix;
};

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
  Look look;
  QStringList svgPaths;
};

[[noreturn]] void fail(const QString &message) {
  throw std::runtime_error(message.toStdString());
}

QString readText(const QString &path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    fail(path + QStringLiteral(": ") + file.errorString());
  return QString::fromUtf8(file.readAll());
}

Palette readPalette(const QString &path) {
  static const QRegularExpression pair(QStringLiteral("^(#[0-9A-F]{6})\\s+(#[0-9A-F]{6})$"));
  Palette palette;
  for (const QString &line : readText(path).toUpper().split(u'\n')) {
    const QString entry = line.trimmed();
    if (entry.isEmpty())
      continue;
    const QRegularExpressionMatch match = pair.match(entry);
    if (!match.hasMatch())
      fail(path + QStringLiteral(": not a pair of colours: ") + entry);
    palette.insert(match.captured(1), match.captured(2));
  }
  return palette;
}

/// All colours are replaced in one pass, so that a theme may also swap two of them.
QString recoloured(const QString &svg, const Palette &palette) {
  static const QRegularExpression colour(QStringLiteral("#[0-9A-Fa-f]{6}\\b"));
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
  if (!renderer.load(recoloured(readText(path), palette).toUtf8()))
    fail(path + QStringLiteral(": not a valid SVG picture"));
}

QList<Scale> scales(const QSize &drawn, const Look &look) {
  if (look.width != 0) {
    return {{static_cast<double>(look.width) / drawn.width(), {}}};
  }
  return {{1, {}}, {2, QStringLiteral("@2x")}, {3, QStringLiteral("@3x")}};
}

/// The first layer gives the size of the picture.
void writePictures(const QString &outStem, const QList<Layer> &layers, const Look &look) {
  QSvgRenderer base;
  loadSvg(base, layers.first().svgPath, look.palette);
  const QSize size = base.defaultSize();
  if (size.isEmpty())
    fail(layers.first().svgPath + QStringLiteral(": has no usable size"));
  const QImage::Format format = look.background == Qt::transparent
                                    ? QImage::Format_ARGB32_Premultiplied
                                    : QImage::Format_RGB32;

  for (const Scale &scale : scales(size, look)) {
    QImage image(size * scale.factor, format);
    image.fill(look.background);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale.factor, scale.factor);
    for (const Layer &layer : layers) {
      QSvgRenderer renderer;
      loadSvg(renderer, layer.svgPath, look.palette);
      renderer.render(&painter, QRectF(layer.shift, renderer.defaultSize()));
    }
    painter.end();

    const QString outPath = outStem + scale.suffix + QStringLiteral(".png");
    if (!image.save(outPath))
      fail(outPath + QStringLiteral(": cannot be written"));
  }
}

void writeButton(const QString &outStem, const QFileInfo &glyph, const Look &look) {
  static const std::array<ButtonState, 3> states{
      {{QString(), {0, 0}}, {QStringLiteral("_H"), {0, 0}}, {QStringLiteral("_C"), {1, 1}}}};

  QSvgRenderer renderer;
  loadSvg(renderer, glyph.filePath(), look.palette);
  const QString plateStem =
      QStringLiteral("%1/plates/%2").arg(glyph.path()).arg(renderer.defaultSize().width());
  for (const ButtonState &state : states) {
    writePictures(outStem + state.suffix,
                  {{plateStem + state.suffix + QStringLiteral(".svg"), {0, 0}},
                   {glyph.filePath(), state.glyphShift}},
                  look);
  }
}

void writeSource(const QString &outDir, const QString &svgPath, const Look &look) {
  const QFileInfo source(svgPath);
  const QString outStem = outDir + u'/' + source.completeBaseName();
  if (QFileInfo(source.absolutePath()).fileName() == u"buttons") {
    writeButton(outStem, source, look);
  } else {
    writePictures(outStem, {{svgPath, {0, 0}}}, look);
  }
}

int readWidth(const QString &text) {
  const int width = text.toInt();
  if (width <= 0)
    fail(QStringLiteral("not a width: ") + text);
  return width;
}

QColor readColour(const QString &text) {
  static const QRegularExpression form(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
  if (!form.match(text).hasMatch())
    fail(QStringLiteral("not a colour: ") + text);
  return QColor(text);
}

[[noreturn]] void failUsage() {
  fail(QStringLiteral("usage: renderpictures OUTDIR [--palette FILE] [--background #RRGGBB] "
                      "[--width PIXELS] SVG..."));
}

/// Empty if the option isn't there.
QString takeOption(QStringList &words, const QString &name) {
  const qsizetype option = words.indexOf(name);
  if (option < 0) {
    return {};
  }
  if (option + 1 == words.size())
    failUsage();
  words.removeAt(option);
  return words.takeAt(option);
}

Arguments parseArguments(QStringList words) {
  Arguments arguments;
  words.removeFirst();
  if (const QString file = takeOption(words, QStringLiteral("--palette")); !file.isEmpty())
    arguments.look.palette = readPalette(file);
  if (const QString colour = takeOption(words, QStringLiteral("--background")); !colour.isEmpty())
    arguments.look.background = readColour(colour);
  if (const QString width = takeOption(words, QStringLiteral("--width")); !width.isEmpty())
    arguments.look.width = readWidth(width);
  if (words.size() < 2)
    failUsage();
  arguments.outDir = words.takeFirst();
  arguments.svgPaths = words;
  return arguments;
}

void run(const QStringList &words) {
  const Arguments arguments = parseArguments(words);
  for (const QString &svgPath : arguments.svgPaths)
    writeSource(arguments.outDir, svgPath, arguments.look);
}

} // namespace vnb

int main(int argc, char *argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  try {
    vnb::run(QGuiApplication::arguments());
    return EXIT_SUCCESS;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "renderpictures: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
