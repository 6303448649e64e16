// SPDX-License-Identifier: MIT
/// A file, and then anything that a user may do with it: the editor stays in step with itself.
#include "appearance/theme.h"
#include "editor/contextmenu.h"
#include "editor/frmMain.h"
#include "editor/frmToolbox.h"
#include "fuzz/memoryfile.h"
#include "fuzz/sound.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/codepage.h"
#include "runtime/systemcalls.h"
#include "shell/cdlgex.h"
#include "widgets/dialogs.h"
#include "widgets/dropdown.h"
#include "widgets/longmenu.h"
#include "widgets/numberlist.h"
#include "widgets/picturebox.h"
#include "widgets/picturebutton.h"
#include "widgets/style.h"
#include "widgets/textbox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include <fuzzer/FuzzedDataProvider.h>

#include <sstream>

namespace {

using namespace vnb;

/// Most that a document grows to: what goes wrong does so among few devices.
constexpr std::int32_t mostDevices = 24;
constexpr std::int32_t mostLinks = 40;
constexpr int mostSteps = 40;

/// The rest of an input, read as decisions.
class Choices {
public:
  explicit Choices(FuzzedDataProvider &input) : m_input(input) {}

  bool areLeft() const { return m_input.remaining_bytes() > 0; }
  /// 0 to `bound` - 1.
  int below(int bound) { return m_input.ConsumeIntegralInRange(0, bound - 1); }
  bool yes() { return m_input.ConsumeBool(); }
  std::int32_t device() { return below(UBound(Systems) + 1); }
  QPoint in(QSize size) {
    const int x = below(std::max(size.width(), 1));
    return {x, below(std::max(size.height(), 1))};
  }
  /// Without blanks that the next reading takes off.
  QString text() {
    static constexpr std::array texts{"",    "x",   "7",     "12",           "-1", "0.5",
                                      "1e9", ".25", "a b;c", "\xE2\x98\x83", ".",  "99999999999"};
    return QString::fromUtf8(texts[static_cast<std::size_t>(below(texts.size()))]);
  }

private:
  FuzzedDataProvider &m_input;
};

/// Whether it is a control of a form, not a part of one.
bool isOwn(const QWidget &control) {
  return !control.objectName().isEmpty() && !control.objectName().startsWith(u"qt_");
}

/// What a control shows; empty for what shows nothing of a device.
std::string reading(const QWidget &control) {
  std::ostringstream out;
  if (const auto *list = dynamic_cast<const NumberList *>(&control)) {
    for (const NumberRow &row : list->rows())
      out << row.text().toStdString() << '#' << row.number << ' ';
    out << "at " << list->ListIndex();
  } else if (const auto *box = dynamic_cast<const DropDown *>(&control)) {
    for (int row = 0; row < box->count(); ++row)
      out << box->itemText(row).toStdString() << ' ';
    out << "at " << box->currentIndex();
  } else if (const auto *button = dynamic_cast<const QAbstractButton *>(&control)) {
    out << button->isChecked();
  } else if (const auto *label = dynamic_cast<const QLabel *>(&control)) {
    out << label->text().toStdString();
  } else if (const auto *text = dynamic_cast<const TextBox *>(&control)) {
    out << text->text().toStdString();
  }
  return out.str();
}

/// The editor under the hands of a user who does what an input says.
class Editor {
public:
  Editor() {
    showFileDialog = [this](const FileDialog &) { return m_file.path(); };
    m_main.move(0, 0);
    m_main.show();
  }

  /// A new program with this file in it.
  void start(const std::string &file) {
    showMessageBox = [](const MessageBox &) { return Answer::No; };
    clearEvents();
    m_main.forms().unload();
    clearEvents();
    m_main.picNew_Click();
    if (m_theme != "default")
      loadTheme("default");
    int yesLeft = 16; // once the lines have run out, each Yes only brings the same box again
    showMessageBox = [&](const MessageBox &) { return yesLeft-- > 0 ? Answer::Yes : Answer::No; };
    open(file);
    // A file may link what isn't there; then each step may meet it.
    m_sound = numbersExist();
  }

  void step(Choices &choices) {
    showMessageBox = [&](const MessageBox &box) {
      checkBox(box);
      return choices.yes() ? Answer::Yes : Answer::No;
    };
    static constexpr std::array steps{
        &Editor::select,      &Editor::move,       &Editor::doubleClick, &Editor::point,
        &Editor::clickBare,   &Editor::addDevice,  &Editor::addByDrag,   &Editor::retype,
        &Editor::removeLink,  &Editor::remove,     &Editor::pressDelete, &Editor::startAnew,
        &Editor::saveAndOpen, &Editor::scroll,     &Editor::togglePanel, &Editor::useControl,
        &Editor::useControl,  &Editor::useControl, &Editor::switchTheme,
    };
    (this->*steps[static_cast<std::size_t>(choices.below(steps.size()))])(choices);
    clearEvents();
    check();
  }

  /// A second editor that opens what this one saves shows the same.
  void checkReopened() {
    if (!m_sound)
      return;
    showMessageBox = [this](const MessageBox &box) {
      checkBox(box);
      return Answer::No;
    };
    Systems[0].lSecur = 1; // of the router, its place alone is read again
    trimHeader();
    for (std::int32_t i = 0; i <= UBound(Systems); ++i)
      m_main.operations().RefreshLinks(i); // lines lag behind a new picture
    m_main.view().PopulateLockBoxes();
    const std::int32_t device = lSelectedItem;
    selectAgain(device);
    const std::string before = look();
    const std::string bytes = saved();
    open(bytes);
    selectAgain(device);
    requireSame(look(), before, "what was saved comes back to the eye");
    requireSame(saved(), bytes, "what was saved comes back to the byte");
  }

private:
  // What a user does.

  void select(Choices &choices) {
    const std::int32_t device = choices.device();
    press(device, Qt::MiddleButton, {});
    if (lSelectedItem != device)
      return; // it has no sprite
    const std::string first = look();
    selectAgain(device);
    requireSame(look(), first, "the same device selected again shows the same");
  }

  void move(Choices &choices) {
    const std::int32_t device = choices.device();
    press(device, Qt::LeftButton, {1, 1});
    release(choices);
  }

  void doubleClick(Choices &choices) {
    if (UBound(Links) < mostLinks)
      surface().events->picSystem_DblClick(choices.device());
  }

  void point(Choices &choices) {
    if (choices.yes())
      surface().events->picSystem_MouseMove(choices.device(), {2, 2});
    else
      surface().events->picLayout_MouseMove(choices.in({Surface::size, Surface::size}));
  }

  void clickBare(Choices & /*choices*/) { surface().events->picLayout_Click(); }

  void addDevice(Choices &choices) {
    if (UBound(Systems) >= mostDevices)
      return;
    auto &toolbox = m_main.forms().get<frmToolbox>();
    pick(*toolbox.findChild<QComboBox *>(), choices);
    toolbox.findChild<QPushButton *>()->click();
  }

  void addByDrag(Choices &choices) {
    if (UBound(Systems) >= mostDevices)
      return;
    auto &toolbox = m_main.forms().get<frmToolbox>();
    pick(*toolbox.findChild<QComboBox *>(), choices);
    for (QWidget *child : toolbox.findChildren<QWidget *>())
      if (auto *preview = dynamic_cast<PictureBox *>(child))
        preview->MouseDown(Qt::LeftButton, {1, 1}, {});
    release(choices);
  }

  void retype(Choices &choices) {
    const auto menu = rightClick(choices);
    triggerOne(menu->findChild<QMenu *>(QStringLiteral("mnuChange")), choices);
  }

  void removeLink(Choices &choices) {
    const auto menu = rightClick(choices);
    auto &links = dynamic_cast<LongMenu &>(*menu->findChild<QMenu *>(QStringLiteral("mnuLinks")));
    if (!links.isEnabled())
      return;
    Q_EMIT links.aboutToShow();
    links.choose(choices.below(static_cast<int>(links.rows().size())));
  }

  void remove(Choices &choices) {
    rightClick(choices)->findChild<QAction *>(QStringLiteral("mnuRemove"))->trigger();
  }

  void pressDelete(Choices & /*choices*/) {
    m_main.activateWindow();
    QTest::keyClick(&m_main, Qt::Key_Delete);
  }

  void startAnew(Choices & /*choices*/) {
    m_main.picNew_Click();
    m_sound = true;
  }

  void saveAndOpen(Choices &choices) {
    m_main.picSave_Click();
    if (choices.yes())
      m_main.picLoad_Click();
  }

  void scroll(Choices &choices) {
    for (QScrollBar *bar : m_main.findChildren<QScrollBar *>(Qt::FindDirectChildrenOnly))
      bar->setValue(choices.below(bar->maximum() + 1));
  }

  void togglePanel(Choices &choices) {
    switch (choices.below(5)) {
    case 0:
      return toggle<frmDevice>(&frmMain::picDevice_Click);
    case 1:
      return toggle<frmLinks>(&frmMain::picLink_Click);
    case 2:
      return toggle<frmSubnet>(&frmMain::picSubnet_Click);
    case 3:
      return toggle<frmLanInfo>(&frmMain::picInfo_Click);
    default:
      return toggle<frmToolbox>(&frmMain::picAdd_Click);
    }
  }

  /// Any control of an open panel, whichever there are.
  void useControl(Choices &choices) {
    std::vector<QWidget *> usable;
    m_main.forms().forEachLoaded([&](FormWindow &form) {
      for (QWidget *child : form.findChildren<QWidget *>())
        if (child->isVisible() && child->isEnabled() && isOwn(*child) &&
            child->focusPolicy() != Qt::NoFocus)
          usable.push_back(child);
    });
    if (!usable.empty())
      use(*usable[static_cast<std::size_t>(choices.below(static_cast<int>(usable.size())))],
          choices);
  }

  static void use(QWidget &control, Choices &choices) {
    if (auto *text = dynamic_cast<TextBox *>(&control)) {
      text->selectAll();
      text->insert(choices.text());
    } else if (auto *box = dynamic_cast<QComboBox *>(&control)) {
      pick(*box, choices);
    } else if (auto *list = dynamic_cast<NumberList *>(&control)) {
      const QRect row = list->visualRect(list->model()->index(choices.below(8), 0));
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    } else if (auto *button = dynamic_cast<QAbstractButton *>(&control)) {
      button->click();
    } else {
      QTest::mouseClick(&control, Qt::LeftButton);
    }
  }

  void switchTheme(Choices &choices) {
    if (choices.yes())
      loadTheme("light");
  }

  // How it is done.

  /// No event loop takes what waits, and each object that goes looks all of it through. What is
  /// sent by its type leaves an empty place, which only a sending of everything takes away.
  static void clearEvents() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::removePostedEvents(nullptr);
    QCoreApplication::sendPostedEvents();
  }

  static void pick(QComboBox &box, Choices &choices) {
    if (box.count() == 0)
      return;
    box.setCurrentIndex(choices.below(box.count()));
    Q_EMIT box.activated(box.currentIndex());
  }

  static void triggerOne(QMenu *menu, Choices &choices) {
    if (menu->isEnabled())
      menu->actions().at(choices.below(static_cast<int>(menu->actions().size())))->trigger();
  }

  void loadTheme(const char *name) {
    m_theme = name;
    LoadTheme(QStringLiteral(VNB_THEMES "/%1/theme.xml").arg(QLatin1String(name)), m_main.view());
  }

  template <class F>
  void toggle(void (frmMain::*open)()) {
    F *form = m_main.forms().loaded<F>();
    if (form != nullptr && form->isVisible())
      form->close();
    else
      (m_main.*open)();
  }

  void press(std::int32_t device, Qt::MouseButton button, QPoint grab) {
    surface().events->picSystem_MouseDown(device, button, grab, {});
  }

  void release(Choices &choices) {
    const QPoint at = choices.in(m_main.size());
    const QPoint global = m_main.mapToGlobal(at);
    QMouseEvent event(QEvent::MouseButtonRelease, surface().mapFromGlobal(global), global,
                      Qt::LeftButton, Qt::NoButton, {});
    QApplication::sendEvent(&surface(), &event);
  }

  std::unique_ptr<QMenu> rightClick(Choices &choices) {
    const std::int32_t device = choices.device();
    press(device, Qt::RightButton, {});
    clearEvents(); // of the panels, before the menu comes and goes
    return m_menu.build(device, m_main);
  }

  void selectAgain(std::int32_t device) {
    if (device == -1)
      m_main.selection().Deselect();
    else
      m_main.selection().SelectItem(device, SelectedColor, false);
  }

  void open(const std::string &bytes) {
    m_file.fill(bytes);
    m_main.picLoad_Click();
  }

  std::string saved() {
    m_main.picSave_Click();
    return m_file.bytes();
  }

  // What must hold.

  void check() {
    requireSoundDocument();
    require(surface().picSystem.UBound() == UBound(Systems), "each device has its sprite");
    require(surface().lneLink.UBound() == UBound(Links), "each link has its line");
    require(!m_sound || numbersExist(), "every stored number names a device");
    for (std::int32_t i = 0; i <= UBound(Systems); ++i) {
      const Sprite &sprite = surface().picSystem(i);
      require(lSelectedItem != -1 ||
                  (sprite.layer.frameWidth == 0 && sprite.Tag == SpriteTag::None),
              "nothing is framed where nothing is selected");
      require(sprite.layer.number == -1 || i == lSelectedItem,
              "the selected device has the number");
    }
  }

  static bool numbersExist() {
    const auto exists = [](std::int32_t number) {
      return number >= 0 && number <= UBound(Systems);
    };
    return std::ranges::all_of(
               Links, [&](auto &link) { return exists(link.lFrom) && exists(link.lTo); }) &&
           std::ranges::all_of(Subnets,
                               [&](auto &s) { return exists(s.lFor) && exists(s.lFrom); }) &&
           std::ranges::all_of(DataItems, [&](auto &data) { return exists(data.lNum); });
  }

  /// Faults that a user's doing may meet; any other is the program's own.
  void checkBox(const MessageBox &box) const {
    if (!m_sound || !box.text.startsWith(u"Error "))
      return;
    for (const Fault fault : {Fault::Overflow, Fault::TypeMismatch, Fault::ControlArrayElement})
      if (box.text.startsWith(QStringLiteral("Error %1 ").arg(static_cast<int>(fault))))
        return;
    require(false, qUtf8Printable(box.text));
  }

  /// All that is drawn, and what the panels of the selected device say.
  std::string look() {
    std::ostringstream out;
    for (std::int32_t i = 0; i <= UBound(Systems); ++i) {
      const auto &[Tag, layer] = surface().picSystem(i);
      out << i << ": " << Systems[static_cast<std::size_t>(i)].lType << " tag "
          << static_cast<int>(Tag) << " frame " << int{layer.frameWidth}
          << (layer.dotted ? "." : "") << ' ' << layer.colour << ' ' << layer.width << 'x'
          << layer.height << " number " << layer.number << '\n';
    }
    for (std::int32_t i = 1; i <= UBound(Links); ++i) {
      const Line &line = surface().lneLink(i);
      out << line.X1 << ',' << line.Y1 << ' ' << line.X2 << ',' << line.Y2 << ' '
          << line.BorderColor << ' ' << line.Visible << '\n';
    }
    m_main.forms().forEachLoaded([&](FormWindow &form) {
      if (dynamic_cast<DevicePanel *>(&form) == nullptr)
        return;
      for (const QWidget *child : form.findChildren<QWidget *>())
        if (child->isVisibleTo(&form) && isOwn(*child))
          out << child->objectName().toStdString() << ": " << reading(*child) << '\n';
    });
    return out.str();
  }

  static void requireSame(const std::string &is, const std::string &due, const char *what) {
    std::istringstream isLines(is);
    std::istringstream dueLines(due);
    for (std::string one, other; std::getline(dueLines, other);)
      if (!std::getline(isLines, one) || one != other)
        std::fprintf(stderr, "is  %s\ndue %s\n", one.c_str(), other.c_str());
    require(is == due, what);
  }

  Surface &surface() { return m_main.picLayout(); }

  const MemoryFile m_file{"lan"};
  frmMain m_main;
  ContextMenu m_menu{m_main.diagram()};
  std::string m_theme;
  bool m_sound = true; // the document's numbers name devices
};

std::string company() {
  QFile file(QStringLiteral(VNB_SAMPLES "/company.txt"));
  require(file.open(QIODevice::ReadOnly), "there is a sample to begin with");
  return file.readAll().toStdString();
}

} // namespace

/// The file first, up to a backslash and another character, or a sample in place of an empty one;
/// the decisions from the input's end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size) {
  static auto *const editor = new Editor; // to the end of the process
  FuzzedDataProvider input(bytes, size);
  const std::string file = input.ConsumeRandomLengthString();
  static const std::string sample = company();
  editor->start(file.empty() ? sample : file);
  Choices choices(input);
  for (int left = mostSteps; left > 0 && choices.areLeft(); --left)
    editor->step(choices);
  editor->checkReopened();
  return 0;
}

/// A search for leaks after each input would take all the time, as windows keep much to the end,
/// and so would long stacks of all that they allocate.
extern "C" const char *__asan_default_options() {
  return "detect_leaks=0:quarantine_size_mb=16:malloc_context_size=4";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  new QApplication(*argc, *argv); // to the end of the process
  useStyle();
  useCodePage(1252);
  systemCalls.fsync = [](int) { return 0; }; // memory has no disk to wait for
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
  return 0;
}
