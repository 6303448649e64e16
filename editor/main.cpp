// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"
#include "editor/termination.h"
#include "widgets/application.h"
#include "widgets/dialogs.h"
#include "widgets/pictures.h"
#include "widgets/style.h"

#include <QIcon>
#include <QSettings>

#include <csignal>
#include <cstdlib>

namespace {

/// Small ones alone: windows and task bars show no other, and each is handed to the window system.
QIcon programIcon() {
  QIcon icon;
  for (const int size : {16, 32, 48, 64})
    icon.addPixmap(vnb::LoadResPicture(QStringLiteral("ICON_%1").arg(size)));
  return icon;
}

} // namespace

int main(int argc, char *argv[]) {
  using namespace vnb;
  // Wayland tells no window's place on the screen, which drags between windows need; a Wayland
  // desktop serves X programs as well.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  Application application(argc, argv);
  useStyle();
  QApplication::setApplicationDisplayName({});
  // By it the desktop finds the program's name and icon for its windows.
  QApplication::setDesktopFileName(QStringLiteral("org.example.vantry_network_builder"));
  QApplication::setWindowIcon(programIcon());
  showMessageBox = showMessageWindow;
  // Qt's own file and colour dialogs would otherwise keep notes of their own.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
  // The splash stays hidden to the end: the main window alone ends the program.
  QApplication::setQuitOnLastWindowClosed(false);
  // A pipe without a reader and a file too large are errors to tell, not ends.
  for (const int fault : {SIGPIPE, SIGXFSZ})
    std::signal(fault, SIG_IGN);
  frmMain form;
  form.Form_Load();
  // Without a window, since the user left the start halfway, nothing could end the program.
  if (!form.isVisible())
    return EXIT_FAILURE;
  // Until here a signal ends the process at once: there is nothing yet to be saved.
  const Termination termination([&] { form.close(); }, [&] { form.saveSettings(); });
  return QApplication::exec();
}
