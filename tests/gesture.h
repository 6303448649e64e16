// SPDX-License-Identifier: MIT
/// The main window with devices on it, and verbs that read as the user's.
#pragma once

#include "editor/contextmenu.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "formtest.h"
#include "look.h"
#include "shell/cdlgex.h"
#include "support.h"
#include "widgets/dialogs.h"

#include <QComboBox>
#include <QPaintEvent>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <sstream>

namespace vnb::test {

inline constexpr std::int32_t router = 0;
inline constexpr std::int32_t hub = 1;
inline constexpr std::int32_t terminal = 2;
inline constexpr std::int32_t lock = 3;
inline constexpr std::int32_t server = 4;
inline constexpr std::int32_t nothing = -1;

/// "1 solid 2 FFFFFF #1;" for each framed device: width, colour, number.
inline std::string frames(const Surface &surface) {
  std::ostringstream out;
  for (std::int32_t i = 0; i <= surface.picSystem.UBound(); ++i) {
    const SpriteLayer &layer = surface.picSystem(i).layer;
    if (layer.frameWidth == 0)
      continue;
    out << i << (layer.dotted ? " dotted " : " solid ") << int{layer.frameWidth} << ' ' << std::hex
        << std::uppercase << layer.colour << std::dec
        << (layer.number == -1 ? "" : " #" + std::to_string(layer.number)) << ';';
  }
  return out.str();
}

/// The largest difference of any colour channel.
inline int difference(const QImage &a, const QImage &b) {
  int largest = a.size() == b.size() ? 0 : 255;
  for (int y = 0; y < a.height() && largest < 255 && a != b; ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q))});
    }
  return largest;
}

/// What the user sees of a window, painted when it was.
inline QImage onScreen(QWidget &window) {
  return window.screen()->grabWindow(window.winId()).toImage();
}

/// Where a widget has been painted.
struct Repaints : QObject {
  bool eventFilter(QObject * /*object*/, QEvent *event) override {
    if (event->type() == QEvent::Paint)
      area += static_cast<QPaintEvent *>(event)->region();
    return false;
  }
  QRegion area;
};

/// "x,y widthxheight", "all" for all that is `seen`, "" for nothing.
inline std::string areaText(const QRect &area, const QRect &seen) {
  std::ostringstream out;
  out << area.x() << ',' << area.y() << ' ' << area.width() << 'x' << area.height();
  return area.isEmpty() ? "" : area == seen ? "all" : out.str();
}

/// The user's pointer. While a button is held, everything goes to the window that was pressed.
class Pointer {
public:
  void moveTo(QPoint global) {
    m_at = global;
    send(QEvent::MouseMove, Qt::NoButton);
  }
  void press(Qt::MouseButton button) {
    m_buttons |= button;
    if (m_pressed == nullptr)
      m_pressed = QGuiApplication::topLevelAt(m_at);
    send(QEvent::MouseButtonPress, button);
  }
  void release(Qt::MouseButton button) {
    m_buttons.setFlag(button, false);
    send(QEvent::MouseButtonRelease, button);
    if (m_buttons == Qt::NoButton)
      m_pressed = nullptr;
  }
  /// The buttons are up, and no window was told.
  void loseRelease() {
    m_buttons = Qt::NoButton;
    m_pressed = nullptr;
  }
  /// Long enough for the next press not to make a double click.
  static void wait() { time += 1000; }

private:
  void send(QEvent::Type type, Qt::MouseButton button) const {
    QWindow *window = m_pressed != nullptr ? m_pressed.data() : QGuiApplication::topLevelAt(m_at);
    time += 20;
    if (window != nullptr)
      qt_handleMouseEvent(window, window->mapFromGlobal(m_at), m_at, m_buttons, button, type, {},
                          time);
    QCoreApplication::processEvents();
  }

  inline static int time = 0; // milliseconds, never back: the application compares them
  QPoint m_at;
  Qt::MouseButtons m_buttons = Qt::NoButton;
  QPointer<QWindow> m_pressed;
};

/// Five devices, all of them in view. Places are pixels of the surface if nothing else is said.
class Gesture : public testing::Test {
public:
  Gesture() {
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(store.path("")));
    Cdlg = {};
    showFileDialog = [this](const FileDialog &dialog) -> std::optional<QString> {
      dialogs.push_back(dialog);
      return fileName.isNull() ? std::nullopt : std::optional(fileName);
    };
    main.operations().ClearLAN();
    add(2, 100, 50);
    add(4, 200, 150);
    add(9, 300, 50);
    add(5, 100, 250);
    main.move(0, 0);
    main.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
  }

  void add(std::int32_t lType, std::int32_t lX, std::int32_t lY) {
    main.operations().AddSystem(lType, lX, lY, 1, -1, -1, -1, {});
  }
  void link(std::int32_t lFrom, std::int32_t lTo) {
    main.operations().AddLink(lFrom, .5, .5, lTo, .5, .5, 1);
  }
  template <class T = QWidget>
  T &child(const char *name) {
    return child<T>(QString::fromLatin1(name));
  }
  Surface &surface() { return main.picLayout(); }
  vnb::Gestures &gestures() { return dynamic_cast<vnb::Gestures &>(*surface().events); }
  /// The main window or what belongs to it.
  template <class T = QWidget>
  T &child(const QString &name) {
    auto *found = main.findChild<T *>(name);
    return found != nullptr ? *found : dynamic_cast<T &>(static_cast<QWidget &>(main));
  }

  // Verbs.

  /// Presses a device at a place within it, its corner if none is given.
  Gesture &press(std::int32_t device, Qt::MouseButton button = Qt::LeftButton, QPoint grab = {}) {
    return pressIn(surface(), surface().spriteRect(device).topLeft() + grab, button);
  }
  Gesture &pressIn(QWidget &widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    moveIn(widget, at);
    Pointer::wait();
    return pressOn(button);
  }
  /// Presses one more button where the pointer is, or the same again.
  Gesture &pressOn(Qt::MouseButton button = Qt::LeftButton) {
    m_button = button;
    pointer.press(button);
    return *this;
  }
  Gesture &moveTo(int x, int y) { return moveIn(surface(), {x, y}); }
  Gesture &moveIn(QWidget &widget, QPoint at) {
    pointer.moveTo(widget.mapToGlobal(at));
    return *this;
  }
  Gesture &release() { return release(m_button); }
  Gesture &release(Qt::MouseButton button) {
    pointer.release(button);
    return *this;
  }
  void select(std::int32_t device) { press(device).release(); }
  /// Puts a device somewhere without a gesture.
  void put(std::int32_t device, int x, int y) { main.operations().MoveSystem(device, x, y); }
  /// The toolbox beside the main window, on the entry of that position.
  frmToolbox &toolbox(int item = 0) {
    main.picAdd_Click();
    auto &form = main.forms().get<frmToolbox>();
    form.move(main.width() + 10, 0);
    test::pick(*form.findChild<QComboBox *>(), item);
    QCoreApplication::processEvents();
    return form;
  }
  QWidget &preview() {
    return *main.forms().get<frmToolbox>().findChild<QWidget *>(QStringLiteral("picPreview"));
  }

  // What is seen.

  static std::string at(std::int32_t device) {
    const SystemRec &record = vnb::at(Systems, device);
    return std::to_string(record.lX) + ',' + std::to_string(record.lY);
  }
  std::string band() {
    const Line &line = surface().lneXOR;
    std::ostringstream out;
    out << line.X1 << ',' << line.Y1 << '-' << line.X2 << ',' << line.Y2;
    return line.Visible ? out.str() : "hidden";
  }
  std::string frames() { return test::frames(surface()); }
  std::string status() { return child<QLabel>("lblStatus").text().toStdString(); }

  const Folder store;
  const Look look;
  Boxes boxes;
  std::vector<FileDialog> dialogs;
  QString fileName; // that file dialogs answer; null to cancel
  frmMain main;
  ContextMenu contextMenu{main.diagram()};
  Pointer pointer;

private:
  Qt::MouseButton m_button = Qt::LeftButton;
};

} // namespace vnb::test
