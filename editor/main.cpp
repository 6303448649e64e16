// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"
#include "forms/dialogs.h"
#include "forms/pictures.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[]) {
  using namespace vnb;
  // Wayland tells no window's place on the screen, which drags between windows need; a Wayland
  // desktop serves X programs as well.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  QApplication::setApplicationDisplayName({});
  QApplication::setWindowIcon(QIcon(LoadResPicture(QStringLiteral("ICON"))));
  showMessageBox = showMessageWindow;
  GridColor = 0x404040;
  LinkColor = 0xE48257;
  SeparatorColor = 0x800000;
  TextColor = 0xFFFFFF;
  GridRes = 20;
  frmMain form;
  form.picLayout().lneLink(0).BorderColor = LinkColor;
  form.picLayout().DrawGrid();
  form.show();
  return QApplication::exec();
}
