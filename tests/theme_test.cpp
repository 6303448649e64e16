// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "appearance/theme.h"
#include "support.h"

#include <QDir>
#include <QImage>

#include <memory>

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

/// A theme's folder with pictures of sizes that no built-in one has, and the effects of loading it.
class ThemeLoader : public testing::Test, protected EditorView {
protected:
  ThemeLoader() {
    for (const ColourRow &row : colourRows)
      *row.colour = 0;
    picture("a.png", 5, 7);
  }

  QString picture(const char *name, int width, int height, const char *format = nullptr) const {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(folder.path(name), format)) << name;
    return folder.path(name);
  }

  static QByteArray sections(const QByteArray &colours, const QByteArray &buttons = {},
                             const QByteArray &devices = {}) {
    return "<T><COLORS>" + colours + "</COLORS><BUTTONS>" + buttons + "</BUTTONS><DEVICES>" +
           devices + "</DEVICES></T>";
  }

  /// Loads a theme.xml of these bytes. Returns what is raised.
  std::string load(const QByteArray &xml) {
    calls.clear();
    const QString path = folder.file(xml, "theme.xml");
    return raised([&] { LoadTheme(path, *this); });
  }

  std::string loadDevices(const QByteArray &entries) { return load(sections({}, {}, entries)); }

  void linkColorChanged() override {
    calls.push_back("link " + toQColor(LinkColor).name().toStdString());
  }
  void UpdateColors() override { calls.emplace_back("UpdateColors"); }
  void loadButtonImages(const QString &tag, const QString &files) override {
    QString shortened = files;
    shortened.replace(folder.path(""), QStringLiteral("~"));
    calls.push_back((tag + u' ' + shortened).toStdString());
    if (fails)
      LoadButtonImages(set, tag, files);
  }
  void deviceImagesChanged() override { calls.push_back("devices, hub " + size(2)); }

  static std::string size(std::int32_t lType) {
    const QSize image = DeviceImages(lType).deviceIndependentSize().toSize();
    return std::to_string(image.width()) + "x" + std::to_string(image.height());
  }

  const Folder folder;
  Words calls;
  ButtonImageSet set;
  bool fails = false; // the pictures of buttons are loaded, and may fail
};

/// Colours, forms, buttons, devices, wherever their sections stand.
TEST_F(ThemeLoader, EveryKeyHasItsPlace) {
  QByteArray colours = "<a for='link' color='#0000FF'/>", buttons, devices;
  int number = 0;
  for (const char *key :
       {"grid", "link", "sellink", "lock", "selected", "subnet", "selsubnet", "Separator",
        "background", "text", "redtext", "secure1", "secure2", "SecurE3"}) // as in colourRows
    colours += QByteArray("<c for='") + key + "' color='#" +
               QByteArray::number(++number, 16).rightJustified(6, '0') + "'/>";
  Words due{"link #0000ff", "link #000002", "UpdateColors"};
  for (const auto &[key, tag] : sides(
           {"new -> NEW", "open -> LOAD", "save -> SAVE", "add -> ADD", "info -> INFO",
            "link -> LINK", "device -> DEVICE", "Subnet -> SUBNET", "settings -> SETTINGS",
            "themes -> THEMES", "aboUt -> ABOUT", "addsubnet -> ADDSUB", "delsubnet -> DELSUB"})) {
    const QByteArray name = QByteArray::fromStdString(key);
    buttons = "<b down='3" + name + "' for='" + name + "' off='1" + name + "' over='2" + name +
              "'/>" + buttons;
    due.push_back(tag + (" ~/1" + name + "|~/2" + name + "|~/3" + name).toStdString());
  }
  due.emplace_back("devices, hub 2x1");
  int width = 0;
  for (const char *key : {"router", "hub", "switch", "terminal", "mainserver", "mailserver",
                          "fileserver", "auth", "lock", "ibridge", "modem", "SessionKeyServer",
                          "radiotrans", "radioreceive", "faxprinter", "logserver"}) {
    picture((std::string(key) + ".png").c_str(), ++width, 1);
    devices = QByteArray("<d name='") + key + "' image='" + key + ".png'/>" + devices;
  }
  EXPECT_EQ(load("<any><DEVICES>" + devices + "</DEVICES><OTHER for='grid'/><BUTTONS>" + buttons +
                 "</BUTTONS><COLORS>" + colours + "</COLORS></any>"),
            "");
  EXPECT_EQ(calls, due);
  for (std::size_t i = 0; i < 14; ++i)
    EXPECT_EQ(*colourRows[i].colour, (static_cast<Colour>(i) + 1) << 16) << i;
  for (std::int32_t lType = 1; lType <= 16; ++lType)
    EXPECT_EQ(size(lType), std::to_string(lType) + "x1");
  EXPECT_EQ(load(sections({})), ""); // colours stay, pictures go back
  EXPECT_EQ(RedTextColor, 0x0B0000);
  EXPECT_EQ(size(1), "48x32");
  EXPECT_TRUE(DeviceImages(0).isNull());
}

TEST_F(ThemeLoader, TheLaterOneWinsAndWhatItDoesNotKnowIsPassedOver) {
  picture("b.png", 6, 8);
  EXPECT_EQ(load("<T><COLORS><c for='text' color='#000001'/></COLORS>"
                 "<DEVICES><d name='hub' image='missing'/></DEVICES>"
                 "<BUTTONS><b for='new' off='1' over='1' down='1'/></BUTTONS>"
                 "<BUTTONS><b for='open' off='2' over='2' down='2'/><b/>"
                 "<b for='OPEN' off='3' over='3' down='3'/><b for='' off='4'/></BUTTONS>"
                 "<COLORS><c for='separator' color='#000002'/><c for='seperator' color='#000003'/>"
                 "<c for='lock'/><c color='#000004'/><c FOR='grid' color='#000004'/>"
                 "<c for=' grid' color='#000004'/><c for='navy' color='#000004'/>"
                 "<c><c for='grid' color='#000004'/></c><c for='subnet' color=''/></COLORS>"
                 "<DEVICES><d name='auth' image='b.png'/><d name='Auth' image='a.png'/>"
                 "<d for='hub' image='missing'/><d name='MAIN SERVER' image='missing'/></DEVICES>"
                 "<colors><c for='text' color='#000005'/></colors></T>"),
            "");
  for (const ColourRow &row : colourRows)
    EXPECT_EQ(*row.colour, row.colour == &SeparatorColor ? 0x030000 : 0);
  EXPECT_EQ(calls[1], "NEW ||");
  EXPECT_EQ(calls[2], "LOAD ~/3|~/3|~/3");
  EXPECT_EQ(size(8), "5x7");
}

TEST_F(ThemeLoader, AFileThatIsNoThemeChangesNothingButTheName) {
  const std::string colours = "<T><COLORS><c for='link' color='#FFFFFF'/></COLORS>";
  for (const auto &[xml, error] :
       sides({"<T>\n<COLORS>\n</T> -> Line 3, ",
              "<T><BUTTONS/><DEVICES/></T> -> The theme has no section COLORS\n/",
              colours + "<DEVICES/></T> -> The theme has no section BUTTONS\n/",
              colours + "<BUTTONS/></T> -> The theme has no section DEVICES\n/",
              colours + "<BUTTONS/><devices/></T> -> The theme has no section DEVICES\n/",
              "<T><X><COLORS/><BUTTONS/><DEVICES/></X></T> -> The theme has no section COLORS\n/",
              "<COLORS/> -> The theme has no section COLORS\n/"})) {
    ThemeFile = ThemeName = QStringLiteral("earlier");
    EXPECT_THAT(load(QByteArray::fromStdString(xml)), StartsWith(error));
    EXPECT_THAT(calls, IsEmpty()) << error;
    EXPECT_EQ(LinkColor, 0) << error;
    EXPECT_EQ(ThemeFile, folder.path("theme.xml"));
    EXPECT_EQ(ThemeName, QDir(folder.path("")).dirName());
  }
  for (const auto &[path, error] :
       sides({"/theme.xml -> 53", "a:b/theme.xml -> 53", ": -> 53", "/ -> 75"})) {
    EXPECT_EQ(raised([&, &at = path] { LoadTheme(QString::fromStdString(at), *this); }), error);
    EXPECT_EQ(ThemeFile.toStdString(), path);
  }
}

TEST_F(ThemeLoader, AFaultyDevicePictureLeavesTheLowerTypesDone) {
  folder.file("no picture", "text.png");
  folder.file({}, "empty.png");
  const std::string fullPath = picture("b.png", 6, 8).toStdString();
  for (const auto &[image, error] :
       sides({"image='none.png' -> 53", "image='" + fullPath + "' -> 53", "image='text.png' -> 481",
              "image='empty.png' -> 481", "image='' -> 75", " -> 75"})) {
    ASSERT_EQ(loadDevices({}), "");
    EXPECT_EQ(loadDevices("<d name='modem' image='a.png'/><d name='switch' " +
                          QByteArray::fromStdString(image) + "/><d name='router' image='a.png'/>"),
              error)
        << image;
    EXPECT_EQ(size(1) + " " + size(2) + " " + size(3) + " " + size(11), "5x7 48x20 72x51 32x32");
    EXPECT_EQ(calls.back(), "DELSUB ||") << "the sprites are left alone";
  }
  picture("sharp@2x.png", 6, 8);
  ASSERT_EQ(loadDevices("<d name='router' image='sharp@2x.png'/>"), "");
  EXPECT_EQ(size(1), "6x8") << "the theme's own choice of a name";
  ASSERT_EQ(loadDevices({}), "");
  EXPECT_EQ(loadDevices("<d name='router' image='a.png'/><d name='hub' image='a|b.png'/>"),
            "Incorrect paramaters to LoadDeviceImages!");
  EXPECT_EQ(size(1), "48x32") << "the fields are counted first";
}

TEST_F(ThemeLoader, TakesTheUsualPicturesOfSoundSize) {
  for (const auto &[name, width] : {std::pair("a.bmp", 5),
                                    {"a.jpg", 5},
                                    {"wide.png", 512},
                                    {"wider.png", 513},
                                    {"other.ppm", 5}})
    picture(name, width, 1);
  picture("higher.bmp", 1, 513);
  picture("really.bmp", 5, 7, "png");
  folder.file(QByteArray::fromHex("47494638376105000700800000FF000000000021F90400000000002C00000000"
                                  "0500070000020684 8FA9CBED053B"),
              "a.gif");
  const QByteArray png = Folder::bytes(folder.path("a.png"));
  folder.file(png.first(png.size() / 2), "half.png");
  // The head of a bitmap of 30,000 by 30,000 pixels, and nothing behind it.
  folder.file(QByteArray::fromHex("424D36000000000000003600000028000000307500003075000001001800"
                                  "000000000000000000000000000000000000000000000000"),
              "huge.bmp");
  for (const auto &[name, due] :
       sides({"a.bmp -> 5x1", "a.jpg -> 5x1", "a.gif -> 5x7", "really.bmp -> 5x7",
              "wide.png -> 512x1", "wider.png -> The picture is larger",
              "higher.bmp -> The picture is larger", "half.png -> 481", "huge.bmp -> 481",
              "other.ppm -> 481"})) {
    const std::string error =
        loadDevices("<d name='router' image='" + QByteArray::fromStdString(name) + "'/>");
    EXPECT_EQ(error.empty() ? size(1) : error.substr(0, error.find(" than")), due) << name;
  }
  picture("large.png", 512, 512);
  QByteArray same, each;
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    const QByteArray file = QByteArray::number(lType) + ".png";
    QFile::copy(folder.path("large.png"), folder.path(file));
    const std::string_view key = typeRow(lType).themeKey;
    const QByteArray entry =
        "<d name='" + QByteArray(key.data(), qsizetype(key.size())) + "' image='";
    same += entry + "large.png'/>";
    each += entry + file + "'/>";
  }
  EXPECT_EQ(loadDevices(same), "");
  EXPECT_EQ(loadDevices(each), "All pictures together have more than 4000000 pixels.\n" +
                                   folder.path("16.png").toStdString());
  QImage image(5, 7, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  image.setPixelColor(1, 1, Qt::red);
  ASSERT_TRUE(image.save(folder.path("clear.png")));
  EXPECT_EQ(load(sections("<c for='background' color='#102030'/>", {},
                          "<d name='router' image='clear.png'/>")),
            "");
  const QImage shown = DeviceImages(1).toImage();
  EXPECT_FALSE(shown.hasAlphaChannel());
  EXPECT_EQ(shown.pixel(0, 0), 0xFF102030) << "where it is clear";
  EXPECT_EQ(shown.pixel(1, 1), 0xFFFF0000);
  EXPECT_EQ(DeviceImages(2).toImage().pixel(0, 0), 0xFF102030) << "built in";
}

TEST_F(ThemeLoader, ButtonPicturesStandInWhereAFieldIsEmpty) {
  const std::string a = folder.path("a.png").toStdString();
  const std::string b = picture("b.png", 6, 8).toStdString();
  const Words rows{a + "|" + a + "|" + b + " -> 5 6 5", "|" + a + "|" + b + " -> 13 6 5",
                   a + "|| -> 5 13 13", "|| -> 13 13 13"};
  for (const auto &[files, due] : sides(rows)) {
    LoadButtonImages(set, QStringLiteral("ADDSUB"), QString::fromStdString(files));
    std::string widths;
    for (const QPixmap *shown : {&set.Off, &set.Down, &set.Over})
      widths += " " + std::to_string(shown->width());
    EXPECT_EQ(widths.substr(1), due) << files;
  }
  for (const char16_t *files : {u"", u"|", u"|||", u"a"})
    EXPECT_EQ(raised([&] { LoadButtonImages(set, u"ADDSUB"_qs, QString::fromUtf16(files)); }),
              "Incorrect paramaters to LoadButtonImages!");
  for (const std::int32_t lType : {-1, 17})
    EXPECT_EQ(raised([&] { DeviceImages(lType); }), "9");
}

/// docs/themes.md: its example is a theme.
TEST_F(ThemeLoader, TheManualIsRight) {
  const QString manual = QString::fromUtf8(Folder::bytes(QStringLiteral(VNB_DOCS "/themes.md")));
  fails = true;
  BackgroundColor = SubnetColor = 1;
  EXPECT_EQ(load(manual.section(u"```xml\n"_qs, 1).section(u"```"_qs, 0, 0).toUtf8()), "");
  EXPECT_EQ(BackgroundColor, 0x08141C);
  EXPECT_EQ(SubnetColor, 1);
}

} // namespace
} // namespace vnb::test
