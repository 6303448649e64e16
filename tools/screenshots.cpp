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
#include <QComboBox>
#include <QDir>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <cstdio>

namespace vnb {
namespace {

/// A way to bring a control into a state for a picture, and out of it again.
struct State {
  void (*enter)(QWidget &control);
  void (*leave)(QWidget &control);
};

/// Sends what the mouse does at the middle of a control, where the thumb of a scroll bar is put.
void mouse(QWidget &control, QEvent::Type type) {
  const QPointF at = control.rect().center();
  if (type == QEvent::HoverMove || type == QEvent::HoverLeave) {
    control.setAttribute(Qt::WA_UnderMouse, type == QEvent::HoverMove);
    QHoverEvent event(type, at, control.mapToGlobal(at), QPointF());
    QCoreApplication::sendEvent(&control, &event);
    return;
  }
  QMouseEvent event(type, at, control.mapToGlobal(at), Qt::LeftButton,
                    type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
  QCoreApplication::sendEvent(&control, &event);
}

void setHeld(QWidget &control, bool held) {
  if (auto *button = qobject_cast<QAbstractButton *>(&control))
    button->setDown(held);
  else if (auto *box = qobject_cast<QComboBox *>(&control))
    held ? box->showPopup() : box->hidePopup();
  else if (qobject_cast<QScrollBar *>(&control) != nullptr)
    mouse(control, held ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease);
  else if (auto *picture = dynamic_cast<PictureButton *>(&control))
    (held ? picture->MouseDown : picture->MouseUp)();
}

/// Under the pointer, held, with the focus, disabled.
constexpr std::array states{State{[](QWidget &control) { mouse(control, QEvent::HoverMove); },
                                  [](QWidget &control) { mouse(control, QEvent::HoverLeave); }},
                            State{[](QWidget &control) { setHeld(control, true); },
                                  [](QWidget &control) { setHeld(control, false); }},
                            State{[](QWidget &control) { control.setFocus(); },
                                  [](QWidget &control) { control.window()->setFocus(); }},
                            State{[](QWidget &control) { control.setEnabled(false); },
                                  [](QWidget &control) { control.setEnabled(true); }}};

/// `window` five times from left to right: at rest, and with all its controls in each state.
QPixmap sheetOf(QWidget &window) {
  const QList<QScrollBar *> bars = window.findChildren<QScrollBar *>();
  QList<int> values;
  for (QScrollBar *bar : bars) {
    values += bar->value();
    bar->setValue(bar->maximum() / 2);
  }
  const QPixmap resting = window.grab();
  const QSize size = resting.deviceIndependentSize().toSize();
  QPixmap sheet(resting.width() * static_cast<int>(states.size() + 1), resting.height());
  sheet.setDevicePixelRatio(resting.devicePixelRatio());
  QPainter painter(&sheet);
  painter.drawPixmap(0, 0, resting);
  for (const State &state : states) {
    painter.translate(size.width(), 0);
    painter.drawPixmap(0, 0, resting);
    for (QWidget *control : window.findChildren<QWidget *>()) {
      const bool bar = qobject_cast<QScrollBar *>(control) != nullptr;
      if (control->window() != &window || !control->isVisible() || !control->isEnabled() ||
          (control->focusPolicy() == Qt::NoFocus && !bar))
        continue;
      state.enter(*control);
      painter.drawPixmap(control->mapTo(&window, QPoint()), control->grab());
      state.leave(*control);
    }
  }
  for (qsizetype i = 0; i < bars.size(); ++i)
    bars[i]->setValue(values[i]);
  return sheet;
}

/// Saves what a window shows under a name, in the folder of its theme.
class Album {
public:
  explicit Album(QString folder) : m_folder(std::move(folder)) { QDir().mkpath(m_folder); }

  void add(QWidget &window, const QString &name) const {
    QApplication::processEvents();
    save(window.grab(), name);
  }

  /// A form with all states of its controls.
  void addSheet(QWidget &window, const QString &name) const {
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    save(sheetOf(window), QStringLiteral("states-") + name);
  }

  void addForm(FormWindow &form) const {
    form.show();
    add(form, form.objectName());
    addSheet(form, form.objectName());
    form.hide();
  }

private:
  void save(const QPixmap &picture, const QString &name) const {
    if (!picture.save(m_folder + u'/' + name + QStringLiteral(".png")))
      std::fprintf(stderr, "%s can't be written\n", qUtf8Printable(name));
  }

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
    album.addSheet(main.forms().get<frmDevice>(), QStringLiteral("frmDevice-") + type);
  }
  main.selection().SelectItem(firstOf(SystemType::MainServer), SelectedColor, false);
  album.add(main, QStringLiteral("frmMain-selected"));
  album.addSheet(main.forms().get<frmLinks>(), QStringLiteral("frmLinks"));
  album.addSheet(main.forms().get<frmSubnet>(), QStringLiteral("frmSubnet"));
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
  album.addSheet(about, QStringLiteral("frmAbout"));
  about.close();
}

void takeTheme(frmMain &main, const QString &theme, const QString &out) {
  LoadTheme(theme, main.view());
  GridRes = 20;
  main.picLayout().DrawGrid();
  const Album album(out + u'/' + theme);
  album.add(main, QStringLiteral("frmMain"));
  album.addSheet(main, QStringLiteral("frmMain"));
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
