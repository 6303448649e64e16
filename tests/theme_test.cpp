// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "appearance/theme.h"
#include "support.h"

#include <QImage>

namespace vnb::test {
namespace {

TEST(ParseColor, TakesAnyText) {
  for (const auto &[text, colour] :
       sides({"#5782E4 -> e48257", "#abcdef -> efcdab", "x010203 -> 30201", "112233 -> 32312",
              "#FFF -> fff", "#12345678 -> 563412", " -> 0", "# -> 0", "#7 -> 7",
              "#G1FFFF -> ffff00", "#1GFFFF -> ffff01", "#-1+1 1 -> 0", "#0x0x0x -> 0", "navy -> a",
              "#\uFF11\uFF11FFFF -> ffff00"}))
    EXPECT_EQ(ParseColor(QString::fromStdString(text)), std::stoi(colour, nullptr, 16)) << text;
}

class ThemeLoader : public testing::Test, protected EditorView {
protected:
  std::string load(const QByteArray &xml) {
    const QString path = folder.file(xml, "theme.xml");
    return raised([&] { LoadTheme(path, *this); });
  }
  void loadButtonImages(const QString &tag, const QString &files) override {
    LoadButtonImages(set, tag, files);
  }

  Folder folder;
  ButtonImageSet set;
};

TEST_F(ThemeLoader, LaysClearPicturesOnTheBackground) {
  QImage image(5, 7, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  image.setPixelColor(1, 1, Qt::red);
  ASSERT_TRUE(image.save(folder.path("clear.png")));
  EXPECT_EQ(load("<T><COLORS><c for='background' color='#102030'/></COLORS><BUTTONS/><DEVICES>"
                 "<d name='router' image='clear.png'/></DEVICES></T>"),
            "");
  const QImage shown = DeviceImages(1).toImage();
  EXPECT_FALSE(shown.hasAlphaChannel());
  EXPECT_EQ(shown.pixel(0, 0), 0xFF102030) << "where it is clear";
  EXPECT_EQ(shown.pixel(1, 1), 0xFFFF0000);
  EXPECT_EQ(DeviceImages(2).toImage().pixel(0, 0), 0xFF102030) << "built in";
}

/// docs/themes.md: its example is a theme.
TEST_F(ThemeLoader, TheManualIsRight) {
  const QString manual = QString::fromUtf8(Folder::bytes(QStringLiteral(VNB_DOCS "/themes.md")));
  BackgroundColor = SubnetColor = 1;
  EXPECT_EQ(load(manual.section(u"```xml\n"_qs, 1).section(u"```"_qs, 0, 0).toUtf8()), "");
  EXPECT_EQ(BackgroundColor, 0x08141C);
  EXPECT_EQ(SubnetColor, 1);
}

} // namespace
} // namespace vnb::test
