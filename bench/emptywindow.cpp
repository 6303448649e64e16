// SPDX-License-Identifier: MIT
/// The least that a program with a Qt window costs: the floor of bench/process.
#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[]) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty window"));
  window.show();
  return QApplication::exec();
}
