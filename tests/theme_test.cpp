// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "appearance/theme.h"
#include "shellsupport.h"
#include "support.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>

#include <gmock/gmock.h>

#include <map>
#include <memory>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace vnb::test {
namespace {

TEST(ParseColor, TakesAnyText) {
  struct Case {
    const char16_t *text;
    Colour colour;
  };
  for (const auto &[text, colour] : std::vector<Case>{
           {u"#5782E4", 14975575},
           {u"#abcdef", 0xEFCDAB},
           {u"x010203", 0x030201},
           {u"112233", 0x032312},
           {u"#FFF", 0x000FFF},
           {u"#12345678", 0x563412},
           {u"", 0},
           {u"#", 0},
           {u"#7", 7},
           {u"#G1FFFF", 0xFFFF00},
           {u"#1GFFFF", 0xFFFF01},
           {u"#-1+1 1", 0},
           {u"#0x0x0x", 0},
           {u"#\uFF11\uFF11FFFF", 0xFFFF00}, // digits, but not of the kind
           {u"navy", 10},
       })
    EXPECT_EQ(ParseColor(text), colour) << QString::fromUtf16(text).toStdString();
}

/// A theme's folder with pictures of sizes that no built-in one has, and the effects of loading it.
class ThemeLoader : public testing::Test, protected ThemeView {
protected:
  ThemeLoader() {
    for (Colour *colour : allColours())
      *colour = 0;
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
      LoadButtonImages(set, *std::make_unique<PictureButton>(nullptr, tag), files);
  }
  void deviceImagesChanged() override { calls.push_back("devices, hub " + size(2)); }

  static std::string size(std::int32_t lType) {
    const QPixmap &image = DeviceImages(lType);
    return std::to_string(image.width()) + "x" + std::to_string(image.height());
  }

  const Folder folder;
  std::vector<std::string> calls;
  ButtonImageSet set;
  bool fails = false; // the pictures of buttons are loaded, and may fail
};

TEST_F(ThemeLoader, DoesColoursThenFormsThenButtonsThenDevices) {
  EXPECT_EQ(load("<any><DEVICES><x name='HUB' image='a.png'/></DEVICES><OTHER for='grid'/>"
                 "<BUTTONS><y for='NEW' off='o' over='v' down='d'/></BUTTONS>"
                 "<COLORS><a for='link' color='#0000FF'/><b for='grid' color='#010203'/>"
                 "<link for='Link' color='#FF0000'/></COLORS></any>"),
            "");
  EXPECT_THAT(calls, ElementsAre("link #0000ff", "link #ff0000", "UpdateColors", "NEW ~/o|~/v|~/d",
                                 "LOAD ||", "SAVE ||", "ADD ||", "INFO ||", "LINK ||", "DEVICE ||",
                                 "SUBNET ||", "SETTINGS ||", "THEMES ||", "ABOUT ||", "ADDSUB ||",
                                 "DELSUB ||", "devices, hub 5x7"));
}

TEST_F(ThemeLoader, EveryKeyHasItsPlace) {
  const std::map<QByteArray, Colour *> colours{{"grid", &GridColor},
                                               {"selected", &SelectedColor},
                                               {"link", &LinkColor},
                                               {"sellink", &LinkSelColor},
                                               {"lock", &LockColor},
                                               {"seperator", &SeparatorColor},
                                               {"subnet", &SubnetColor},
                                               {"selsubnet", &SubnetSelColor},
                                               {"separator", &SeparatorColor},
                                               {"text", &TextColor},
                                               {"background", &BackgroundColor},
                                               {"redtext", &RedTextColor},
                                               {"secure1", &SecureColor[0]},
                                               {"secure2", &SecureColor[1]},
                                               {"SecurE3", &SecureColor[2]}};
  for (const auto &[key, target] : colours) {
    for (Colour *colour : allColours())
      *colour = 0;
    EXPECT_EQ(load(sections("<c for='" + key + "' color='#000001'/>")), "");
    for (const Colour *colour : allColours())
      EXPECT_EQ(*colour, colour == target ? 0x010000 : 0) << key.toStdString();
  }

  const std::vector<QByteArray> buttons{"new",   "open",      "save",     "add",      "info",
                                        "link",  "device",    "Subnet",   "settings", "themes",
                                        "aboUt", "addsubnet", "delsubnet"};
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    EXPECT_EQ(load(sections({}, "<b for='" + buttons[i] + "' off='1' over='2' down='3'/>")), "");
    for (std::size_t at = 0; at < buttons.size(); ++at)
      EXPECT_EQ(calls[1 + at].ends_with(" ~/1|~/2|~/3"), at == i) << calls[1 + at];
  }

  const std::vector<QByteArray> devices{
      "router",     "hub",          "switch",     "terminal", "mainserver", "mailserver",
      "fileserver", "auth",         "lock",       "ibridge",  "modem",      "SessionKeyServer",
      "radiotrans", "radioreceive", "faxprinter", "logserver"};
  for (std::size_t i = 0; i < devices.size(); ++i) {
    EXPECT_EQ(loadDevices("<d name='" + devices[i] + "' image='a.png'/>"), "");
    for (std::size_t at = 0; at < devices.size(); ++at)
      EXPECT_EQ(size(static_cast<std::int32_t>(at) + 1) == "5x7", at == i)
          << devices[i].toStdString();
  }
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
  for (const Colour *colour : allColours())
    EXPECT_EQ(*colour, colour == &SeparatorColor ? 0x030000 : 0);
  EXPECT_EQ(calls[1], "NEW ||");
  EXPECT_EQ(calls[2], "LOAD ~/3|~/3|~/3");
  EXPECT_EQ(size(8), "5x7");
}

TEST_F(ThemeLoader, ColoursStayAndPicturesGoBackWhenLeftOut) {
  EXPECT_EQ(
      load(sections("<c for='redtext' color='#0000FF'/>", {}, "<d name='router' image='a.png'/>")),
      "");
  EXPECT_EQ(size(1), "5x7");
  EXPECT_EQ(load(sections({})), "");
  EXPECT_EQ(RedTextColor, 0xFF0000);
  EXPECT_EQ(size(1), "48x32");
  EXPECT_TRUE(DeviceImages(0).isNull());
}

TEST_F(ThemeLoader, FindsAThemeByItsFolderOrItsPath) {
  EXPECT_TRUE(QDir().mkpath(themesFolder()));
  const QTemporaryDir blue(themesFolder() + QStringLiteral("/blue XXXXXX"));
  const QString name = QDir(blue.path()).dirName();
  QFile file(blue.filePath(QStringLiteral("theme.xml")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(sections({}));
  file.close();
  for (const QString &argument : {name, file.fileName()}) {
    ThemeFile = ThemeName = QString();
    LoadTheme(argument, *this);
    EXPECT_EQ(ThemeName, name);
    EXPECT_EQ(ThemeFile, file.fileName());
  }
  for (const char16_t *argument : {u"/theme.xml", u"a:b/theme.xml", u"/", u":"})
    EXPECT_EQ(raised([&] { LoadTheme(QString::fromUtf16(argument), *this); }),
              QStringView(argument) == u"/" ? "75" : "53")
        << ThemeFile.toStdString();
}

TEST_F(ThemeLoader, AFileThatIsNoThemeChangesNothingButTheName) {
  for (const auto &[xml, error] : std::vector<std::pair<QByteArray, std::string>>{
           {"<T>\n<COLORS>\n</T>", "Line 3, "},
           {"<T><BUTTONS/><DEVICES/></T>", "The theme has no section COLORS: /"},
           {"<T><COLORS><c for='link' color='#FFFFFF'/></COLORS><DEVICES/></T>",
            "The theme has no section BUTTONS: /"},
           {"<T><COLORS><c for='link' color='#FFFFFF'/></COLORS><BUTTONS/></T>",
            "The theme has no section DEVICES: /"},
           {"<T><COLORS/><BUTTONS/><devices/></T>", "The theme has no section DEVICES: /"},
           {"<T><X><COLORS/><BUTTONS/><DEVICES/></X></T>", "The theme has no section COLORS: /"},
           {"<COLORS/>", "The theme has no section COLORS: /"},
       }) {
    ThemeFile = ThemeName = QStringLiteral("earlier");
    EXPECT_THAT(load(xml), StartsWith(error));
    EXPECT_THAT(calls, IsEmpty()) << error;
    EXPECT_EQ(LinkColor, 0) << error;
    EXPECT_EQ(ThemeFile, folder.path("theme.xml"));
    EXPECT_EQ(ThemeName, QDir(folder.path("")).dirName());
  }
}

TEST_F(ThemeLoader, AFaultyDevicePictureLeavesTheLowerTypesDone) {
  folder.file("no picture", "text.png");
  folder.file({}, "empty.png");
  const QByteArray fullPath = picture("b.png", 6, 8).toUtf8();
  for (const auto &[entry, error] : std::vector<std::pair<QByteArray, std::string>>{
           {"<d name='switch' image='none.png'/>", "53"},
           {"<d name='switch' image='" + fullPath + "'/>", "53"},
           {"<d name='switch' image='text.png'/>", "481"},
           {"<d name='switch' image='empty.png'/>", "481"},
           {"<d name='switch' image=''/>", "75"},
           {"<d name='switch'/>", "75"},
       }) {
    ASSERT_EQ(loadDevices({}), "");
    EXPECT_EQ(
        loadDevices("<d name='modem' image='a.png'/>" + entry + "<d name='router' image='a.png'/>"),
        error);
    EXPECT_EQ(size(1) + " " + size(2) + " " + size(3) + " " + size(11), "5x7 48x20 72x51 32x32");
    EXPECT_EQ(calls.back(), "DELSUB ||") << "the sprites are left alone";
  }
  ASSERT_EQ(loadDevices({}), "");
  EXPECT_EQ(loadDevices("<d name='router' image='a.png'/><d name='hub' image='a|b.png'/>"),
            "Incorrect paramaters to LoadDeviceImages!");
  EXPECT_EQ(size(1), "48x32") << "the fields are counted first";
}

TEST_F(ThemeLoader, AFaultyButtonEndsTheLoad) {
  fails = true;
  const auto error = [this](const QByteArray &entry) {
    return load(sections({}, "<b for='new' off='a.png' over='a.png' down='a.png'/>" + entry,
                         "<d name='hub' image='a.png'/>"));
  };
  ASSERT_EQ(loadDevices({}), "");
  EXPECT_EQ(error("<b for='save' off='a.png' over='none.png' down='a.png'/>"), "53");
  EXPECT_EQ(error("<b for='save' off='a.png' over='a.png'/>"), "75");
  EXPECT_EQ(error("<b for='save' off='a.png' over='a|b.png' down='a.png'/>"),
            "Incorrect paramaters to LoadButtonImages!");
  EXPECT_THAT(calls, ElementsAre("UpdateColors", "NEW ~/a.png|~/a.png|~/a.png", "LOAD ||",
                                 "SAVE ~/a.png|~/a|b.png|~/a.png"));
  EXPECT_EQ(size(2), "48x20");
}

TEST_F(ThemeLoader, TakesTheUsualPicturesOfSoundSize) {
  picture("a.bmp", 5, 7);
  picture("a.jpg", 5, 7);
  picture("really-a-png.bmp", 5, 7, "png");
  picture("wide.png", 4096, 1);
  picture("wider.png", 4097, 1);
  picture("higher.bmp", 1, 4097);
  folder.file(QByteArray::fromHex("47494638376105000700800000FF000000000021F90400000000002C00000000"
                                  "0500070000020684 8FA9CBED053B"),
              "a.gif");
  const QByteArray png = Folder::bytes(folder.path("a.png"));
  folder.file(png.first(png.size() / 2), "half.png");
  // The head of a bitmap of 30,000 by 30,000 pixels, and nothing behind it.
  folder.file(QByteArray::fromHex("424D36000000000000003600000028000000307500003075000001001800"
                                  "000000000000000000000000000000000000000000000000"),
              "huge.bmp");
  struct Case {
    QByteArray name;
    std::string error, size;
  };
  for (const auto &[name, error, due] : std::vector<Case>{
           {"a.bmp", "", "5x7"},
           {"a.jpg", "", "5x7"},
           {"a.gif", "", "5x7"},
           {"really-a-png.bmp", "", "5x7"},
           {"wide.png", "", "4096x1"},
           {"wider.png", "481", "48x32"},
           {"higher.bmp", "481", "48x32"},
           {"half.png", "481", "48x32"},
           {"huge.bmp", "481", "48x32"},
       }) {
    ASSERT_EQ(loadDevices({}), "");
    EXPECT_EQ(loadDevices("<d name='router' image='" + name + "'/>"), error) << name.toStdString();
    EXPECT_EQ(size(1), due) << name.toStdString();
  }
}

TEST_F(ThemeLoader, ClearPartsOfADeviceAreBlack) {
  QImage image(5, 7, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  image.setPixelColor(1, 1, Qt::red);
  ASSERT_TRUE(image.save(folder.path("clear.png")));
  EXPECT_EQ(loadDevices("<d name='router' image='clear.png'/>"), "");
  const QImage shown = DeviceImages(1).toImage();
  EXPECT_FALSE(shown.hasAlphaChannel());
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::black));
  EXPECT_EQ(shown.pixelColor(1, 1), QColor(Qt::red));
}

class ButtonPictures : public ThemeLoader {
protected:
  /// Shows the button at rest, then pressed.
  std::string shown() {
    std::string sizes;
    for (const bool up : {true, false}) {
      DoImage(button, set, up);
      const QSize hint = button.sizeHint();
      sizes += std::to_string(hint.width()) + "x" + std::to_string(hint.height()) + " ";
    }
    return sizes;
  }

  PictureButton button{nullptr, QStringLiteral("ADDSUB")};
};

TEST_F(ButtonPictures, StandInWhereAFieldIsEmpty) {
  const QString a = folder.path("a.png");
  const QString b = picture("b.png", 6, 8);
  EXPECT_EQ(shown(), "13x13 13x13 ") << "the design's picture, while nothing is loaded";
  struct Case {
    QString files;
    std::string shown;
  };
  for (const auto &[files, due] : std::vector<Case>{
           {a + u'|' + a + u'|' + b, "5x7 6x8 "},
           {u'|' + a + u'|' + b, "13x13 6x8 "},
           {a + QStringLiteral("||"), "5x7 13x13 "},
           {QStringLiteral("||"), "13x13 13x13 "},
       }) {
    LoadButtonImages(set, button, files);
    EXPECT_EQ(shown(), due) << files.toStdString();
    LoadButtonImages(set, button, files);
    EXPECT_EQ(button.sizeHint(), set.Off.size()) << "it is shown at rest";
  }
  EXPECT_NE(set.Off.toImage(), set.Down.toImage());
  EXPECT_NE(set.Off.toImage(), set.Over.toImage());
}

TEST_F(ButtonPictures, AreThreeOrNone) {
  for (const char16_t *files : {u"", u"|", u"|||", u"a"})
    EXPECT_EQ(raised([&] { LoadButtonImages(set, button, QString::fromUtf16(files)); }),
              "Incorrect paramaters to LoadButtonImages!");
  PictureButton other(nullptr, QStringLiteral("HUB")); // has no pictures for its other states
  const QString a = folder.path("a.png");
  EXPECT_EQ(raised([&] { LoadButtonImages(set, other, a + u'|' + a + u'|' + a); }), "326");
  for (const std::int32_t lType : {-1, 17})
    EXPECT_EQ(raised([&] { DeviceImages(lType); }), "9");
}

/// A view with all thirteen buttons.
class AllButtons : public ThemeView {
public:
  void linkColorChanged() override {}
  void UpdateColors() override {}
  void loadButtonImages(const QString &tag, const QString &files) override {
    PictureButton button(nullptr, tag);
    LoadButtonImages(sets[tag], button, files);
  }
  void deviceImagesChanged() override { complete = true; }

  std::map<QString, ButtonImageSet> sets;
  bool complete = false;
};

TEST(ShippedThemes, LoadWithAllTheyName) {
  for (const QString &name :
       QDir(QStringLiteral(VNB_THEMES)).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    AllButtons view;
    EXPECT_EQ(
        raised([&] { LoadTheme(QStringLiteral(VNB_THEMES "/%1/theme.xml").arg(name), view); }), "");
    EXPECT_TRUE(view.complete) << name.toStdString();
    EXPECT_EQ(view.sets.size(), 13U);
    EXPECT_EQ(ThemeName, name);
  }
}

/// docs/themes.md, whose examples must work.
QString manual() {
  return QString::fromUtf8(Folder::bytes(QStringLiteral(VNB_DOCS "/themes.md")));
}

TEST(ThemesManual, ItsExampleIsATheme) {
  const QString text = manual();
  const QString fence = QStringLiteral("```xml\n");
  ASSERT_EQ(text.count(fence), 1);
  const Folder folder;
  const QString example = text.section(fence, 1).section(QStringLiteral("```"), 0, 0);
  AllButtons view;
  BackgroundColor = SubnetColor = 1;
  LoadTheme(folder.file(example.toUtf8(), "theme.xml"), view);
  EXPECT_TRUE(view.complete);
  EXPECT_EQ(BackgroundColor, 0x08141C);
  EXPECT_EQ(SubnetColor, 1);
}

TEST(ThemesManual, TellsTheColoursOfTheDefaultTheme) {
  static const QRegularExpression row(
      QStringLiteral("^\\| (`\\w+`(?:, `\\w+`)*) \\|[^|]*\\| ((?:`#[0-9A-F]{6}`(?:, )?)+) \\|$"),
      QRegularExpression::MultilineOption);
  QByteArray entries;
  int told = 0;
  for (const QRegularExpressionMatch &match : row.globalMatch(manual())) {
    const QStringList keys = match.captured(1).remove(u'`').split(QStringLiteral(", "));
    const QStringList values = match.captured(2).remove(u'`').split(QStringLiteral(", "));
    ASSERT_EQ(keys.size(), values.size()) << match.captured(1).toStdString();
    for (qsizetype i = 0; i < keys.size(); ++i, ++told)
      entries += "<c for='" + keys[i].toUtf8() + "' color='" + values[i].toUtf8() + "'/>";
  }
  EXPECT_EQ(told, 14);
  const auto coloursOf = [](const QString &path) {
    AllButtons view;
    LoadTheme(path, view);
    std::vector<Colour> colours;
    for (const Colour *colour : allColours())
      colours.push_back(*colour);
    return colours;
  };
  const Folder folder;
  const auto manualColours = coloursOf(
      folder.file("<T><COLORS>" + entries + "</COLORS><BUTTONS/><DEVICES/></T>", "theme.xml"));
  EXPECT_EQ(manualColours, coloursOf(QStringLiteral(VNB_THEMES "/default/theme.xml")));
}

} // namespace
} // namespace vnb::test
