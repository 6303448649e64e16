// SPDX-License-Identifier: MIT
// Each system call by which settings are read and written or a theme is loaded fails once: nothing
// goes wrong untold.
#include "appearance/images.h"
#include "appearance/theme.h"
#include "faults.h"
#include "shell/cdlgex.h"
#include "shell/settings.h"

#include <QHash>
#include <QImage>

namespace vnb::test {
namespace {

/// All settings as they are before any are read.
void forgetAll() {
  for (const ColourRow &row : colourRows)
    *row.colour = 7;
  ShowGrid = LoadLastFile = false;
  GridRes = -7;
  Cdlg.FileName = QStringLiteral("unread");
  ThemeName = QString();
}

Words values() {
  Words values{Cdlg.FileName.toStdString()};
  for (const Colour value : {GridRes, Colour{ShowGrid}, Colour{LoadLastFile}})
    values.push_back(std::to_string(value));
  for (const ColourRow &row : userColours)
    values.push_back(std::to_string(*row.colour));
  return values;
}

/// A main window that takes every theme.
class Window : public SettingsView {
public:
  void setLeft(std::int32_t /*lLeft*/) override {}
  void setTop(std::int32_t /*lTop*/) override {}
  double Left() const override { return 0; }
  double Top() const override { return 0; }
  void LoadTheme(const QString &sFileName) override { ThemeFile = sFileName; }
};

TEST(EveryFault, OfACallWhileSettingsAreRead) {
  const Folder folder;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  folder.file("[Main]\nPosX=75\nTheme=blue\n[Settings]\nGridRes=10\n[Colors]\nGrid=1\n", "VNB.ini");
  Words whole;
  Window window;
  const int count = withEach(
      &Faults::calls, forgetAll, [&] { LoadSettings(window); },
      [&](const Words &boxes, bool failed) {
        if (!failed)
          whole = values();
        EXPECT_TRUE(failed || boxes.empty());
        EXPECT_TRUE(values() == whole || !boxes.empty());
        EXPECT_EQ(window.settingsLeftOut, !boxes.empty()) << "saving would replace what is there";
      });
  EXPECT_GE(count, 3);
}

TEST(EveryFault, OfACallWhileSettingsAreWritten) {
  const Folder folder;
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path(".")));
  const QByteArray old = "[Other]\nKey=1\n[Settings]\nGridRes=10\n";
  QByteArray whole;
  const Window window;
  forgetAll();
  const int count = withEach(
      &Faults::calls, [&] { folder.file(old, "VNB.ini"); }, [&] { SaveSettings(window); },
      [&](const Words &boxes, bool failed) {
        const QByteArray now = Folder::bytes(folder.path("VNB.ini"));
        if (!failed)
          whole = now;
        EXPECT_TRUE(whole.contains("Key=1") && whole.contains("GridRes=-7"));
        EXPECT_TRUE(now == whole || (now == old && !boxes.empty())) << now.toStdString();
      });
  EXPECT_GE(count, 8);
}

/// All that a theme changes.
std::string look() {
  std::string look = ThemeName.toStdString();
  for (const ColourRow &row : colourRows)
    look += ' ' + std::to_string(*row.colour);
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    const QImage picture = DeviceImages(lType).toImage();
    look +=
        ' ' + std::to_string(qHashBits(picture.constBits(), std::size_t(picture.sizeInBytes())));
  }
  return look;
}

TEST(EveryFault, OfACallWhileAThemeIsLoaded) {
  EditorView editor;
  std::string whole;
  std::string error;
  const int count = withEach(
      &Faults::calls, forgetAll,
      [&] {
        error = raised([&] { LoadTheme(QStringLiteral(VNB_THEMES "/light/theme.xml"), editor); });
      },
      [&](const Words & /*boxes*/, bool failed) {
        if (!failed)
          whole = look();
        EXPECT_TRUE(failed || error.empty()) << error;
        EXPECT_TRUE(look() == whole || !error.empty());
      });
  EXPECT_GE(count, 50);
}

} // namespace
} // namespace vnb::test
