// SPDX-License-Identifier: MIT
// What the user waits for: opening, painting, scrolling, every gesture and edit, at all sizes.

#include "appearance/theme.h"
#include "bench/sizes.h"
#include "editor/frmMain.h"
#include "lanfile/lanfile.h"
#include "panels/frmDevice.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "shell/frmSettings.h"
#include "tools/samplelan.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

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
  EditorView &view() { return m_main.view(); }
  Surface &surface() { return m_main.picLayout(); }

  /// As many links as devices. Made as by the reader, which fills the lock boxes once.
  void make(std::int64_t devices, Shape shape) {
    LoadingFile = true;
    makeLan(m_main.operations(), static_cast<int>(devices), static_cast<int>(devices), shape);
    LoadingFile = false;
    view().PopulateLockBoxes();
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

  void scrollTo(QPoint corner) {
    m_main.findChild<QScrollBar *>(QStringLiteral("hsbScroll"))->setValue(corner.x());
    m_main.findChild<QScrollBar *>(QStringLiteral("vsbScroll"))->setValue(corner.y());
    settle();
  }
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

/// The middle of the surface, where lines are thickest.
void repaint(benchmark::State &state, Shape shape) {
  bench().make(state.range(0), shape);
  bench().scrollTo({600, 700});
  const QRect area = bench().surface().visibleRegion().boundingRect();
  QImage image(area.size(), QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    bench().surface().paint(painter, area);
  }
  bench().scrollTo({});
}

void scroll(benchmark::State &state, int step) {
  bench().make(state.range(0), Shape::Normal);
  auto *bar = bench().main().findChild<QScrollBar *>(QStringLiteral("vsbScroll"));
  for (auto _ : state) {
    bar->setValue(bar->value() == 500 ? 500 + step : 500);
    Bench::settle();
  }
  bar->setValue(0);
}

/// A link is being drawn, and the pointer goes on.
void rubberBand(benchmark::State &state, Shape shape) {
  bench().make(state.range(0), shape);
  SurfaceEvents &events = *bench().surface().events;
  events.picSystem_DblClick(star);
  events.picLayout_MouseMove({600, 400});
  Bench::settle();
  int x = 0;
  for (auto _ : state) {
    events.picLayout_MouseMove({300 + (x = (x + 7) % 600), 500});
    Bench::settle();
  }
  events.picSystem_DblClick(star);
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

void removeLink(benchmark::State &state, Shape shape) {
  bench().make(state.range(0) - 1, shape);
  for (auto _ : state) {
    state.PauseTiming();
    bench().main().operations().AddLink(1, .5, .5, 2, .5, .5, 1);
    Bench::settle();
    state.ResumeTiming();
    bench().main().operations().RemoveLink(1, false);
    Bench::settle();
  }
}

/// The submenu of all links of a device, from the click that opens it to the end of the menu.
void linksMenu(benchmark::State &state) {
  bench().make(state.range(0), Shape::Star);
  bench().select(star);
  ContextMenu contextMenu(bench().main().diagram());
  for (auto _ : state) {
    const auto menu = contextMenu.build(star, bench().main());
    auto *links = menu->findChild<QMenu *>(QStringLiteral("mnuLinks"));
    links->popup(bench().main().mapToGlobal(QPoint(100, 100)));
    Bench::settle();
    links->close();
  }
  bench().main().selection().Deselect();
}

/// The first drop-down of a lock box after its rows have changed.
void lockDropDown(benchmark::State &state) {
  bench().make(state.range(0) - 1, Shape::Locks);
  bench().main().operations().AddSystem(SystemType::MainServer, 100, 100, 1, -1, -1, -1, {});
  bench().showPanels(true);
  bench().select(UBound(Systems));
  auto *box =
      bench().main().forms().get<frmDevice>().findChild<QComboBox *>(QStringLiteral("cboLock0"));
  for (auto _ : state) {
    state.PauseTiming();
    bench().view().PopulateLockBoxes();
    Bench::settle();
    state.ResumeTiming();
    box->showPopup();
    Bench::settle();
    box->hidePopup();
  }
  bench().main().selection().Deselect();
  bench().showPanels(false);
}

/// The dialog opened and left by OK with nothing changed.
void settingsOK(benchmark::State &state, Shape shape) {
  bench().make(state.range(0), shape);
  for (auto _ : state) {
    QTimer::singleShot(0, [] {
      bench()
          .main()
          .forms()
          .get<frmSettings>()
          .findChild<QPushButton *>(QStringLiteral("cmdOK"))
          ->click();
    });
    bench().main().picSettings_Click();
    Bench::settle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

void removeDevice(benchmark::State &state) {
  bench().make(state.range(0), Shape::Normal);
  for (auto _ : state) {
    bench().main().operations().RemoveSystem(1);
    Bench::settle();
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
  const QDir themes(QCoreApplication::applicationDirPath() + QStringLiteral("/../themes"));
  for (auto _ : state) {
    light = !light;
    LoadTheme(themes.filePath(light ? QStringLiteral("light/theme.xml")
                                    : QStringLiteral("default/theme.xml")),
              bench().view());
    Bench::settle();
  }
}

/// For what must be made anew before each run, which takes far longer than the run.
void fewSizes(benchmark::internal::Benchmark *rows) {
  rows->Arg(1000)->Arg(4096)->Arg(32767)->Unit(benchmark::kMillisecond)->Iterations(20);
}

BENCHMARK(openPainted)->Name("OpenPainted/ours")->Apply(sizes);
BENCHMARK_CAPTURE(repaint, , Shape::Normal)->Name("Repaint/ours")->Apply(sizes);
BENCHMARK_CAPTURE(repaint, , Shape::Any)->Name("RepaintAny/ours")->Apply(sizes);
BENCHMARK_CAPTURE(repaint, , Shape::Star)->Name("RepaintStar/ours")->Apply(sizes);
BENCHMARK_CAPTURE(scroll, , 10)->Name("Scroll10/ours")->Apply(sizes);
BENCHMARK_CAPTURE(scroll, , 100)->Name("Scroll100/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Normal, 5, false)->Name("Select/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Star, star, false)->Name("SelectStar/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Normal, 5, true)->Name("SelectSubnets/ours")->Apply(sizes);
BENCHMARK_CAPTURE(selectDevice, , Shape::Locks, 5, false)
    ->Name("SelectAmongLocks/ours")
    ->Apply(sizes);
BENCHMARK_CAPTURE(rubberBand, , Shape::Normal)->Name("RubberBand/ours")->Apply(sizes);
BENCHMARK_CAPTURE(rubberBand, , Shape::Any)->Name("RubberBandAny/ours")->Apply(sizes);
BENCHMARK_CAPTURE(rubberBand, , Shape::Star)->Name("RubberBandStar/ours")->Apply(sizes);
BENCHMARK(dragAndDrop)->Name("DragAndDrop/ours")->Apply(sizes);
BENCHMARK(pointerMove)->Name("PointerMove/ours")->Apply(sizes);
BENCHMARK(retype)->Name("Retype/ours")->Apply(sizes);
BENCHMARK(addLink)->Name("AddLink/ours")->Apply(fewSizes);
BENCHMARK_CAPTURE(removeLink, , Shape::Normal)->Name("RemoveLink/ours")->Apply(fewSizes);
BENCHMARK_CAPTURE(removeLink, , Shape::Star)->Name("RemoveLinkStar/ours")->Apply(fewSizes);
BENCHMARK(removeDevice)->Name("RemoveDevice/ours")->Apply(fewSizes);
BENCHMARK(linksMenu)->Name("LinksMenu/ours")->Apply(sizes);
BENCHMARK(lockDropDown)->Name("LockDropDown/ours")->Apply(fewSizes);
BENCHMARK_CAPTURE(settingsOK, , Shape::Normal)->Name("SettingsOK/ours")->Apply(sizes);
BENCHMARK_CAPTURE(settingsOK, , Shape::Star)->Name("SettingsOKStar/ours")->Apply(sizes);
BENCHMARK(newLan)->Name("New/ours")->Apply(fewSizes);
BENCHMARK(switchTheme)->Name("SwitchTheme/ours")->Apply(sizes);
BENCHMARK(typeCharacter)->Name("TypeCharacter/ours")->Apply(sizes);

} // namespace
} // namespace vnb::bench
