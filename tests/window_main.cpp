// SPDX-License-Identifier: MIT
// Runs the tests that need windows: offscreen, with Qt's own dialogs.
#include "widgets/application.h"
#include "widgets/style.h"

#include <gmock/gmock.h>

int main(int argc, char *argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const vnb::Application application(argc, argv);
  vnb::useStyle();
  return RUN_ALL_TESTS();
}
