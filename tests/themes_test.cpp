// SPDX-License-Identifier: MIT
// The themes that come with the program, as they are built: complete, of the right sizes, legible.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <vector>

using testing::UnorderedElementsAreArray;

namespace vnb::test {
namespace {

using Words = std::vector<std::string>;

const Words colourKeys{"grid",       "selected", "link",    "sellink", "lock",
                       "separator",  "subnet",   "text",    "redtext", "selsubnet",
                       "background", "secure1",  "secure2", "secure3"};

struct Picture {
  std::string key;
  QSize size;
};

const std::vector<Picture> buttons{
    {"new", {24, 24}},       {"open", {24, 24}},   {"save", {24, 24}},   {"add", {24, 24}},
    {"info", {24, 24}},      {"link", {24, 24}},   {"device", {24, 24}}, {"subnet", {24, 24}},
    {"settings", {24, 24}},  {"themes", {24, 24}}, {"about", {24, 24}},  {"addsubnet", {13, 13}},
    {"delsubnet", {13, 13}},
};

const std::vector<Picture> devices{
    {"router", {48, 32}},     {"hub", {48, 20}},          {"switch", {72, 51}},
    {"terminal", {38, 37}},   {"mainserver", {72, 51}},   {"mailserver", {48, 51}},
    {"fileserver", {72, 51}}, {"auth", {48, 51}},         {"lock", {32, 32}},
    {"ibridge", {32, 32}},    {"modem", {32, 32}},        {"sessionkeyserver", {72, 51}},
    {"radiotrans", {32, 32}}, {"radioreceive", {32, 32}}, {"faxprinter", {72, 51}},
    {"logserver", {72, 51}},
};

/// "for" or "name" of each entry of a section, with the entry's other attributes.
using Section = std::map<std::string, QXmlStreamAttributes>;

struct Theme {
  QDir folder;
  std::map<std::string, Section> sections;
  std::map<std::string, std::string> info;

  std::string value(const char *section, const std::string &key, const char *attribute) const {
    return sections.at(section).at(key).value(QLatin1String(attribute)).toString().toStdString();
  }
  QRgb colour(const std::string &key) const {
    const std::string text = value("COLORS", key, "color");
    EXPECT_THAT(text, testing::MatchesRegex("#[0-9A-F]{6}"));
    return static_cast<QRgb>(std::stoul(text.substr(1), nullptr, 16));
  }
};

Theme readTheme(const std::string &name) {
  Theme theme{QDir(QStringLiteral(VNB_THEMES "/") + QString::fromStdString(name)), {}, {}};
  QFile file(theme.folder.filePath(QStringLiteral("theme.xml")));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  xml.readNextStartElement();
  while (xml.readNextStartElement()) {
    const std::string section = xml.name().toString().toStdString();
    theme.sections[section];
    while (xml.readNextStartElement()) {
      if (section == "INFO") {
        theme.info[xml.name().toString().toStdString()] = xml.readElementText().toStdString();
        continue;
      }
      const QXmlStreamAttributes attributes = xml.attributes();
      const QLatin1String selector(section == "DEVICES" ? "name" : "for");
      const std::string key = attributes.value(selector).toString().toStdString();
      EXPECT_TRUE(theme.sections[section].emplace(key, attributes).second) << key << " twice";
      xml.skipCurrentElement();
    }
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return theme;
}

Words keys(const Section &section) {
  Words result;
  for (const auto &entry : section)
    result.push_back(entry.first);
  return result;
}

Words keys(const std::vector<Picture> &pictures) {
  Words result;
  for (const Picture &picture : pictures)
    result.push_back(picture.key);
  return result;
}

Words folders(const char *path) {
  Words result;
  for (const QString &name :
       QDir(QString::fromUtf8(path)).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot))
    result.push_back(name.toStdString());
  return result;
}

/// From 0 for black to 1 for white, as bright as the eye takes the colour.
double luminance(QRgb colour) {
  const auto linear = [](int channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
         0.0722 * linear(qBlue(colour));
}

/// From 1 for equal colours to 21 for black and white.
double contrast(QRgb one, QRgb other) {
  const auto [dark, bright] = std::minmax({luminance(one), luminance(other)});
  return (bright + 0.05) / (dark + 0.05);
}

int difference(QRgb one, QRgb other) {
  return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
         std::abs(qBlue(one) - qBlue(other));
}

class Themes : public testing::TestWithParam<std::string> {
protected:
  /// The picture that an entry names. Its sharp variants must fit it.
  QImage picture(const std::string &file, QSize size) const {
    const QString stem = QString::fromStdString(file).section(u'.', 0, -2);
    for (const int scale : {2, 3}) {
      const QString sharp = QStringLiteral("%1@%2x.png").arg(stem).arg(scale);
      EXPECT_EQ(QImage(theme.folder.filePath(sharp)).size(), size * scale) << sharp.toStdString();
    }
    QImage image(theme.folder.filePath(QString::fromStdString(file)));
    EXPECT_EQ(image.size(), size) << file;
    return image;
  }

  const Theme theme = readTheme(GetParam());
};

TEST_P(Themes, HaveEveryKey) {
  EXPECT_THAT(keys(theme.sections.at("COLORS")), UnorderedElementsAreArray(colourKeys));
  EXPECT_THAT(keys(theme.sections.at("BUTTONS")), UnorderedElementsAreArray(keys(buttons)));
  EXPECT_THAT(keys(theme.sections.at("DEVICES")), UnorderedElementsAreArray(keys(devices)));
  EXPECT_NE(theme.info.at("TITLE"), "");
  EXPECT_EQ(theme.info.at("AUTHOR"), "The Vantry Network Builder team");
  EXPECT_GT(theme.info.at("DESCRIPTION").size(), 40U);
}

TEST_P(Themes, ButtonsAreThreeDifferentPictures) {
  for (const auto &[key, size] : buttons) {
    const QImage off = picture(theme.value("BUTTONS", key, "off"), size);
    const QImage over = picture(theme.value("BUTTONS", key, "over"), size);
    const QImage down = picture(theme.value("BUTTONS", key, "down"), size);
    EXPECT_TRUE(off != over && over != down && off != down) << key;
  }
}

TEST_P(Themes, DevicesStandOnTheBackgroundWithAPictureEach) {
  std::set<std::string> files;
  for (const auto &[key, size] : devices) {
    const std::string file = theme.value("DEVICES", key, "image");
    const QImage image = picture(file, size);
    EXPECT_TRUE(files.insert(file).second) << key;
    EXPECT_FALSE(image.hasAlphaChannel()) << key;
    EXPECT_EQ(image.pixel(0, 0), theme.colour("background") | 0xFF000000) << key;
  }
}

TEST_P(Themes, AreLegible) {
  struct Due {
    double text, line, digit;
  };
  const Due due = GetParam() == "contrast" ? Due{7, 4.5, 7} : Due{4.5, 3, 4.5};
  const QRgb background = theme.colour("background");
  for (const char *key : {"text", "redtext"})
    EXPECT_GE(contrast(theme.colour(key), background), due.text) << key;
  for (const char *key :
       {"link", "sellink", "selected", "lock", "subnet", "selsubnet", "separator"})
    EXPECT_GE(contrast(theme.colour(key), background), due.line) << key;
  for (const char *key : {"secure1", "secure2", "secure3"})
    EXPECT_GE(contrast(theme.colour(key), theme.colour(key) ^ 0xFFFFFF), due.digit) << key;

  const double grid = contrast(theme.colour("grid"), background);
  EXPECT_GE(grid, 1.3);
  EXPECT_LE(grid, 3);
  EXPECT_LT(grid, contrast(theme.colour("link"), background));
}

TEST_P(Themes, TellLinesFramesAndLevelsApart) {
  struct Group {
    int least;
    Words keys;
  };
  for (const auto &[least, keys] :
       {Group{120, {"link", "sellink"}}, Group{120, {"selected", "lock", "subnet", "selsubnet"}},
        Group{48, {"secure1", "secure2", "secure3"}}})
    for (const std::string &one : keys)
      for (const std::string &other : keys)
        EXPECT_TRUE(one == other || difference(theme.colour(one), theme.colour(other)) >= least)
            << one << " and " << other;
}

const Words shipped{"contrast", "default", "light"};
INSTANTIATE_TEST_SUITE_P(Shipped, Themes, testing::ValuesIn(shipped),
                         [](const auto &theme) { return theme.param; });

TEST(ThemesFolder, HoldsTheThemesAloneAndEveryOne) {
  EXPECT_EQ(folders(VNB_THEMES), shipped);
  for (const std::string &name : shipped)
    EXPECT_TRUE(QFile::exists(
        QStringLiteral(VNB_THEMES_SOURCE "/%1/theme.xml").arg(QString::fromStdString(name))))
        << name;
}

} // namespace
} // namespace vnb::test
