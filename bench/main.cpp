// SPDX-License-Identifier: MIT
/// Runs all benchmarks, those of windows too, without a display.
#include "bench/pairreporter.h"
#include "widgets/style.h"

#include <QApplication>

int main(int argc, char **argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  const QApplication application(argc, argv);
  vnb::useStyle();
  // The platform without a display complains of each window that is raised.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  vnb::bench::PairReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
