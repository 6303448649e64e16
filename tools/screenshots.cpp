// SPDX-License-Identifier: MIT
// Pictures of every window in every theme, for a look at all of them after a change and for the
// documents. Run by tools/screenshots, once for each scale.

#include "appearance/frmThemes.h"
#include "appearance/theme.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "lanfile/lanfile.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "widgets/style.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>

#include <cstdio>

namespace vnb {
namespace {

/// Saves what a window shows under a name, in the folder of its theme.
class Album {
public:
  explicit Album(QString folder) : m_folder(std::move(folder)) { QDir().mkpath(m_folder); }

  void add(QWidget &window, const QString &name) const {
    QApplication::processEvents();
    if (!window.grab().save(m_folder + u'/' + name + QStringLiteral(".png")))
      std::fprintf(stderr, "%s can't be written\n", qUtf8Printable(name));
  }

  void addForm(FormWindow &form) const {
    form.show();
    add(form, form.objectName());
    form.hide();
  }

private:
  QString m_folder;
};

std::int32_t firstOf(std::int32_t lType) {
  for (std::int32_t i = 0; i <= UBound(Systems); ++i)
    if (at(Systems, i).lType == lType)
      return i;
  return 0;
}

void takePanels(frmMain &main, const Album &album) {
  main.forms().get<frmLinks>().show();
  for (const std::int32_t lType :
       {SystemType::Router, SystemType::MainServer, SystemType::Lock, SystemType::Modem,
        SystemType::IsolationBridge, SystemType::RadioReceiver}) {
    main.selection().SelectItem(firstOf(lType), SelectedColor, false);
    const QString type = NameFromType(lType, false);
    album.add(main.forms().get<frmDevice>(), QStringLiteral("frmDevice-") + type);
    album.add(main.forms().get<frmLinks>(), QStringLiteral("frmLinks-") + type);
    album.add(main.forms().get<frmSubnet>(), QStringLiteral("frmSubnet-") + type);
  }
  main.selection().SelectItem(firstOf(SystemType::MainServer), SelectedColor, false);
  album.add(main, QStringLiteral("frmMain-selected"));
  main.selection().Deselect();
  album.add(main.forms().get<frmDevice>(), QStringLiteral("frmDevice-none"));
  album.add(main.forms().get<frmLinks>(), QStringLiteral("frmLinks-none"));
  album.add(main.forms().get<frmSubnet>(), QStringLiteral("frmSubnet-none"));
}

void takeAbout(frmMain &main, const Album &album) {
  frmAbout &about = main.forms().get<frmAbout>();
  about.show();
  album.add(about, QStringLiteral("frmAbout-logo"));
  for (auto *button : about.findChildren<QAbstractButton *>()) {
    button->show();
    button->click();
    album.add(about, QStringLiteral("frmAbout-") + button->objectName());
  }
  about.close();
}

void takeTheme(frmMain &main, const QString &theme, const QString &out) {
  LoadTheme(theme, main.view());
  GridRes = 20;
  main.picLayout().DrawGrid();
  const Album album(out + u'/' + theme);
  album.add(main, QStringLiteral("frmMain"));
  takePanels(main, album);
  main.forms().get<frmThemes>().Form_Load();
  main.forms().get<frmSettings>().Form_Load();
  main.forms().get<frmToolbox>().Form_Load();
  main.forms().get<frmLanInfo>().Form_Load();
  album.addForm(main.forms().get<frmLanInfo>());
  album.addForm(main.forms().get<frmThemes>());
  album.addForm(main.forms().get<frmSettings>());
  album.addForm(main.forms().get<frmToolbox>());
  album.addForm(main.forms().get<frmSplash>());
  takeAbout(main, album);
}

int run(const QStringList &words) {
  if (words.size() != 3 && words.size() != 4) {
    std::fputs("usage: screenshots FILE.txt OUT [POINTS]\n", stderr);
    return EXIT_FAILURE;
  }
  if (words.size() == 4) { // as a desktop with a font of that size
    QFont font = QApplication::font();
    font.setPointSizeF(words[3].toDouble());
    QApplication::setFont(font);
  }
  frmMain main;
  main.resize(1120, 800);
  main.show();
  const QStringList themes = QDir(themesFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  for (const QString &theme : themes) {
    LoadTheme(theme, main.view());
    ReaderView view;
    OpenLANFile(words[1], main.operations(), view);
    main.forms().get<frmDevice>().PopulateLockBoxes();
    takeTheme(main, theme, words[2]);
  }
  return themes.isEmpty() ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace
} // namespace vnb

int main(int argc, char *argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  vnb::useStyle();
  return vnb::run(QApplication::arguments());
}
