// SPDX-License-Identifier: MIT
// What the user waits for: opening, painting, scrolling, every gesture and edit, at all sizes.

#include "appearance/theme.h"
#include "bench/sizes.h"
#include "editor/frmMain.h"
#include "lanfile/lanfile.h"
#include "panels/frmDevice.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "tools/samplelan.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>

namespace vnb::bench {
namespace {

constexpr QSize window(1280, 800);
constexpr std::int32_t star = 1; // where every link of the star ends

/// The main window as it stands after its start, with a made-up LAN in it.
class Bench {
public:
  Bench() {
    GridRes = 20;
    GridColor = 0x404040;
    LinkColor = 0xE48257;
    SelectedColor = 0xFFFFFF;
    TextColor = 0xFFFFFF;
    LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
    m_main.picLayout().DrawGrid();
    m_main.resize(window);
    m_main.show();
    QApplication::processEvents();
  }

  frmMain &main() { return m_main; }
  Surface &surface() { return m_main.picLayout(); }

  /// As many links as devices.
  void make(std::int64_t devices, Shape shape) {
    makeLan(m_main.operations(), static_cast<int>(devices), static_cast<int>(devices), shape);
    settle();
  }
  /// A file of such a LAN.
  QString file(std::int64_t devices) {
    make(devices, Shape::Normal);
    QString path = m_folder.filePath(QStringLiteral("lan.txt"));
    SaveLAN(path);
    return path;
  }
  static void settle() { QApplication::processEvents(); }

  void showPanels(bool show) {
    m_main.forms().get<frmDevice>().setVisible(show);
    m_main.forms().get<frmLinks>().setVisible(show);
    m_main.forms().get<frmSubnet>().setVisible(show);
    settle();
  }
  /// What the pointer does at a place of the surface.
  void point(QEvent::Type type, QPoint at, Qt::MouseButton button) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, at, surface().mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&surface(), &event);
  }
  /// Picks the entry of a type in the context menu.
  void retype(std::int32_t device, std::int32_t lType) {
    ContextMenu contextMenu(m_main.diagram());
    const auto menu = contextMenu.build(device, m_main);
    for (QAction *entry : menu->findChild<QMenu *>(QStringLiteral("mnuChange"))->actions())
      if (entry->text() == NameFromType(lType, true))
        entry->trigger();
  }
  void select(std::int32_t device) { m_main.selection().SelectItem(device, SelectedColor, false); }

private:
  frmMain m_main;
  QTemporaryDir m_folder;
};

Bench &bench() {
  static auto *instance = new Bench; // goes with the process, after the application
  return *instance;
}

void openPainted(benchmark::State &state) {
  const QString file = bench().file(state.range(0));
  ReaderView view;
  for (auto _ : state) {
    OpenLANFile(file, bench().main().operations(), view);
    Bench::settle();
  }
}

void repaint(benchmark::State &state, Shape shape) {
  bench().make(state.range(0), shape);
  QImage image(window, QImage::Format_RGB32);
  const QRect area(QPoint(600, 700), window);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    bench().surface().paint(painter, area);
  }
}

void scrollStep(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  auto *bar = bench().main().findChild<QScrollBar *>(QStringLiteral("vsbScroll"));
  int to = 0;
  for (auto _ : state) {
    to = to == 500 ? 510 : 500;
    bar->setValue(to);
    Bench::settle();
  }
}

void selectDevice(benchmark::State &state, Shape shape, std::int32_t device, bool subnets) {
  bench().make(state.range(0), shape);
  if (subnets)
    for (std::int32_t i = 0; i < UBound(Systems); ++i)
      if (i != device)
        bench().main().operations().AddSubnet(device, i);
  bench().showPanels(true);
  for (auto _ : state) {
    bench().select(device);
    Bench::settle();
  }
  bench().main().selection().Deselect();
  bench().showPanels(false);
}

/// A whole gesture: select by a press, three steps, a drop, all that is then to be painted.
void dragAndDrop(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  const std::int32_t device = UBound(Systems);
  int there = 0;
  for (auto _ : state) {
    there = there == 100 ? 300 : 100;
    bench().point(QEvent::MouseButtonPress, bench().surface().spriteRect(device).topLeft(),
                  Qt::LeftButton);
    for (int step = 1; step <= 3; ++step)
      bench().point(QEvent::MouseMove, {there - 3 + step, 200}, Qt::LeftButton);
    bench().point(QEvent::MouseButtonRelease, {there, 200}, Qt::LeftButton);
    Bench::settle();
  }
}

void pointerMove(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  int x = 0;
  for (auto _ : state)
    bench().point(QEvent::MouseMove, {x = (x + 7) % 1000, 700}, Qt::NoButton);
}

void retype(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  bench().select(UBound(Systems));
  std::int32_t lType = 2;
  for (auto _ : state) {
    lType = lType == 2 ? 4 : 2;
    bench().retype(UBound(Systems), lType);
    Bench::settle();
  }
}

void addLink(benchmark::State &state) {
  bench().make(state.range(0) - 1, Shape::Normal);
  for (auto _ : state) {
    bench().main().operations().AddLink(1, .5, .5, 2, .5, .5, 1);
    Bench::settle();
    state.PauseTiming();
    bench().main().operations().RemoveLink(UBound(Links), false);
    Bench::settle();
    state.ResumeTiming();
  }
}

void removeDevice(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  for (auto _ : state) {
    bench().main().operations().RemoveSystem(1);
    state.PauseTiming();
    bench().main().operations().AddSystem(2, 100, 100, 1, -1, -1, -1, {});
    Bench::settle();
    state.ResumeTiming();
  }
}

void newLan(benchmark::State &state) {
  for (auto _ : state) {
    state.PauseTiming();
    bench().make(state.range(0), Shape::Normal);
    state.ResumeTiming();
    bench().main().operations().ClearLAN();
    Bench::settle();
  }
}

void typeCharacter(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  bench().select(UBound(Systems));
  auto *box =
      bench().main().forms().get<frmDevice>().findChild<QLineEdit *>(QStringLiteral("txtData"));
  bool more = false;
  for (auto _ : state)
    box->setText((more = !more) ? QStringLiteral("text and") : QStringLiteral("text an"));
  bench().main().selection().Deselect();
}

void switchTheme(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  bool light = false;
  for (auto _ : state) {
    light = !light;
    LoadTheme(light ? QStringLiteral(VNB_THEMES "/light/theme.xml")
                    : QStringLiteral(VNB_THEMES "/default/theme.xml"),
              bench().main().view());
    Bench::settle();
  }
}

/// For what must be made anew before each run, which takes far longer than the run.
void fewSizes(benchmark::internal::Benchmark *rows) {
  sizes(rows);
  rows->Iterations(30);
}

BENCHMARK(openPainted)->Name("OpenPainted/ours")->Apply(sizes);
BENCHMARK_CAPTURE(repaint, , Shape::Normal)->Name("Repaint/ours")->Apply(sizes);
BENCHMARK_CAPTURE(repaint, , Shape::Star)->Name("RepaintStar/ours")->Apply(sizes);
BENCHMARK(scrollStep)->Name("ScrollStep/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Normal, 5, false)->Name("Select/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Star, star, false)->Name("SelectStar/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Normal, 5, true)->Name("SelectSubnets/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Locks, 5, false)
    ->Name("SelectAmongLocks/ours")
    ->Apply(sizes);
BENCHMARK(dragAndDrop)->Name("DragAndDrop/ours")->Apply(sizes);
BENCHMARK(pointerMove)->Name("PointerMove/ours")->Apply(sizes);
BENCHMARK(retype)->Name("Retype/ours")->Apply(sizes);
BENCHMARK(addLink)->Name("AddLink/ours")->Apply(fewSizes);
BENCHMARK(removeDevice)->Name("RemoveDevice/ours")->Apply(fewSizes);
BENCHMARK(newLan)->Name("New/ours")->Apply(fewSizes);
BENCHMARK(switchTheme)->Name("SwitchTheme/ours")->Apply(sizes);
BENCHMARK(typeCharacter)->Name("TypeCharacter/ours")->Apply(sizes);

} // namespace
} // namespace vnb::bench
