// SPDX-License-Identifier: MIT
// The themes that come with the program, as they are built: complete, of the right sizes, legible.
#include "document/systemtype.h"
#include "runtime/xml.h"
#include "support.h"
#include "widgets/pictures.h"
#include "widgets/style.h"

#include <QColor>
#include <QDir>
#include <QImage>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

namespace vnb::test {
namespace {

const Words buttons{"new",    "open",     "save",   "add",   "info",      "link",     "device",
                    "subnet", "settings", "themes", "about", "addsubnet", "delsubnet"};

int difference(QRgb one, QRgb other) {
  return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
         std::abs(qBlue(one) - qBlue(other));
}

class Themes : public testing::TestWithParam<std::string> {
protected:
  Themes() {
    for (const XmlElement &section : xml.root().children())
      for (const XmlElement &entry : section.children()) {
        const QString key =
            section.tagName() == u"INFO"
                ? entry.tagName()
                : entry.getAttribute(section.tagName() == u"DEVICES" ? u"name" : u"for")
                      .value_or(QString());
        const std::string path = (section.tagName() + u'/' + key).toStdString();
        EXPECT_TRUE(entries.emplace(path, &entry).second) << path << " twice";
      }
  }

  QString value(const std::string &path, const char16_t *attribute) const {
    return entries.at(path)->getAttribute(attribute).value_or(QString());
  }
  QRgb colour(const std::string &key) const {
    const QString text = value("COLORS/" + key, u"color");
    EXPECT_THAT(text.toStdString(), MatchesRegex("#[0-9A-F]{6}"));
    return QColor(text).rgb();
  }
  /// A picture by its name. Its sharp variants must fit it.
  QImage picture(const QString &file, QSize size) const {
    for (const int scale : {2, 3}) {
      const QString sharp = QStringLiteral("%1@%2x.png").arg(file.section(u'.', 0, -2)).arg(scale);
      EXPECT_EQ(QImage(folder + sharp).size(), size * scale) << sharp.toStdString();
    }
    QImage image(folder + file);
    EXPECT_EQ(image.size(), size) << file.toStdString();
    return image;
  }

  const QString folder = QStringLiteral(VNB_THEMES "/%1/").arg(QString::fromStdString(GetParam()));
  const XmlDocument xml{folder + QStringLiteral("theme.xml")};
  std::map<std::string, const XmlElement *> entries; // by "SECTION/key"
};

TEST_P(Themes, HaveAPictureForEachKey) {
  for (const std::string &key : buttons) {
    const QSize size = key == "addsubnet" || key == "delsubnet" ? QSize(13, 13) : QSize(24, 24);
    const QImage off = picture(value("BUTTONS/" + key, u"off"), size);
    const QImage over = picture(value("BUTTONS/" + key, u"over"), size);
    const QImage down = picture(value("BUTTONS/" + key, u"down"), size);
    EXPECT_TRUE(off != over && over != down && off != down) << key;
  }
  std::set<QString> files;
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    const QString file = value("DEVICES/" + std::string(typeRow(lType).themeKey), u"image");
    const QImage image = picture(file, LoadResPicture(ResIDFromType(lType)).size());
    EXPECT_TRUE(files.insert(file).second) << lType;
    EXPECT_FALSE(image.hasAlphaChannel()) << lType;
    EXPECT_EQ(image.pixel(0, 0), colour("background")) << lType;
  }
  EXPECT_NE(entries.at("INFO/TITLE")->text(), u"");
  EXPECT_EQ(entries.at("INFO/AUTHOR")->text(), u"The Vantry Network Builder team");
  EXPECT_GT(entries.at("INFO/DESCRIPTION")->text().size(), 40);
  EXPECT_EQ(entries.size(), buttons.size() + SystemType::Last + 14 + 3) << "no others";
}

TEST_P(Themes, AreLegible) {
  const bool strict = GetParam() == "contrast";
  const QRgb background = colour("background");
  EXPECT_NEAR(contrast(Qt::white, 0x767676), 4.54, .01) << "as guidelines count";
  for (const char *key : {"text", "redtext"})
    EXPECT_GE(contrast(colour(key), background), strict ? 7 : 4.5) << key;
  for (const char *key :
       {"link", "sellink", "selected", "lock", "subnet", "selsubnet", "separator"})
    EXPECT_GE(contrast(colour(key), background), strict ? 4.5 : 3) << key;
  for (const char *key : {"secure1", "secure2", "secure3"})
    EXPECT_GE(contrast(colour(key), colour(key) ^ 0xFFFFFF), strict ? 7 : 4.5) << key;

  const double grid = contrast(colour("grid"), background);
  EXPECT_GE(grid, 1.3);
  EXPECT_LE(grid, 3);
  EXPECT_LT(grid, contrast(colour("link"), background));

  for (const auto &[least, keys] :
       std::vector<std::pair<int, Words>>{{120, {"link", "sellink"}},
                                          {120, {"selected", "lock", "subnet", "selsubnet"}},
                                          {48, {"secure1", "secure2", "secure3"}}})
    for (const std::string &one : keys)
      for (const std::string &other : keys)
        EXPECT_TRUE(one == other || difference(colour(one), colour(other)) >= least)
            << one << " and " << other;
}

INSTANTIATE_TEST_SUITE_P(
    Shipped, Themes, testing::ValuesIn([] {
      Words names;
      for (const QString &name :
           QDir(QStringLiteral(VNB_THEMES)).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        names.push_back(name.toStdString());
      return names;
    }()));

} // namespace
} // namespace vnb::test
