// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"

#include "appearance/colours.h"
#include "appearance/frmThemes.h"
#include "editor/frmToolbox.h"
#include "lanfile/lanfile.h"
#include "panels/context.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/report.h"
#include "runtime/twips.h"
#include "shell/cdlgex.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "shell/versionlist.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QScreen>
#include <QWheelEvent>
#include <QWindow>

#include <array>

namespace vnb {
namespace {

constexpr QSize designSize(538, 467);
constexpr int wheelStep = 100; // pixels for a notch, as a large step of the bars

void DoEvents() {
  QCoreApplication::processEvents();
}

/// Asks for a LAN file under `title`. False when the user cancels or gives no name.
bool askForFile(QWidget &owner, const char *title, bool save) {
  Cdlg.DialogTitle = QString::fromLatin1(title);
  Cdlg.Filter = QStringLiteral("LAN Definition files|*.txt|All files (*.*)|*.*");
  Cdlg.flags = CdlgEx::LongNames | CdlgEx::HideReadOnly | (save ? CdlgEx::OverwritePrompt : 0);
  Cdlg.hOwner = &owner;
  const bool confirmed = save ? Cdlg.ShowSave() : Cdlg.ShowOpen();
  return confirmed && !Cdlg.FileName.isEmpty();
}

/// The reader's view on the whole editor.
class EditorReaderView : public ReaderView {
public:
  void headerRead(HeaderField field) override { Form<frmLanInfo>::instance().showField(field); }
  void populateLockBoxes() override { Form<frmDevice>::instance().PopulateLockBoxes(); }

  /// Events need a turn from time to time, not at each of a hundred thousand lines.
  void yield() override {
    constexpr qint64 turn = 50; // milliseconds
    if (m_sinceLast.isValid() && m_sinceLast.elapsed() < turn)
      return;
    DoEvents();
    m_sinceLast.start();
  }

private:
  QElapsedTimer m_sinceLast;
};

} // namespace

frmMain::frmMain()
    : m_toolbar(this, [this](std::size_t index) { buttonClicked(index); }), m_viewport(*this),
      m_operations(m_viewport.picLayout()), m_selection(m_viewport.picLayout(), *this),
      m_gestures(*this, m_selection, m_operations, m_toolbar),
      m_contextMenu(m_selection, m_operations),
      m_shortcuts(
          *this, [this](int KeyCode, Qt::KeyboardModifiers Shift) { Form_KeyUp(KeyCode, Shift); }) {
  setObjectName(QStringLiteral("frmMain"));
  setMouseTracking(true);
  setAttribute(Qt::WA_AlwaysShowToolTips); // also while a panel has the keys
  setFocusPolicy(Qt::StrongFocus);
  setFocus(); // not the first button: nothing is marked until Tab is pressed
  resize(designSize);
  m_gestures.openMenu = [this](std::int32_t Index, QPoint global) { openMenu(Index, global); };
  m_operations.Cleared = [] {
    if (Form<frmDevice>::isLoaded()) {
      Form<frmDevice>::instance().showNoDevice();
      Form<frmDevice>::instance().PopulateLockBoxes(); // a new LAN has none of the locks listed
    }
    if (Form<frmLinks>::isLoaded())
      Form<frmLinks>::instance().showNoDevice();
    if (Form<frmSubnet>::isLoaded())
      Form<frmSubnet>::instance().showNoDevice();
  };
  m_operations.SystemRemoved = [](std::int32_t lIndex) {
    if (Form<frmDevice>::isLoaded())
      Form<frmDevice>::instance().systemRemoved(lIndex);
  };
  m_operations.PopulateLockBoxes = [] { Form<frmDevice>::instance().PopulateLockBoxes(); };
  panelContext = {.selection = &m_selection, .operations = &m_operations};
  frmToolbox::Operations = &m_operations;
  frmToolbox::Drops = &m_gestures;
  frmThemes::View = this;
  frmSettings::LinkColorChanged = [this] { linkColorChanged(); };
}

void frmMain::Form_Load() {
  frmSplash &splash = Form<frmSplash>::instance();
  reported(
      "frmMain", "Form_Load",
      [&] {
        splash.show();
        DoEvents();
      },
      [] {
        lSelectedItem = -1;
        DoEvents();
      },
      [this] {
        setWindowTitle(QStringLiteral("Vantry Network Builder v") + ownVersion());
        DoEvents();
      },
      [this] {
        m_operations.ClearLAN();
        DoEvents();
      },
      [this] {
        LoadSettings(*this);
        DoEvents();
      },
      [this] {
        if (ShowGrid)
          picLayout().DrawGrid(DoEvents);
        DoEvents();
      },
      [this] {
        if (!Cdlg.FileName.isEmpty() && LoadLastFile)
          openFile(Cdlg.FileName, true);
        DoEvents();
      },
      [this] { showOnScreen(); }, [&] { splash.hide(); },
      [] { Form<frmDevice>::instance().PopulateLockBoxes(); });
}

/// Moves the frame's corner to a stored place, or brings it back from one where no title bar could
/// be taken hold of.
void frmMain::moveOnScreen(QPoint corner) {
  constexpr QSize hold(40, 10);
  const QRect titleBar(corner, QSize(width(), 2 * hold.height()));
  for (const QScreen *screen : QGuiApplication::screens()) {
    const QRect seen = screen->availableGeometry() & titleBar;
    if (seen.width() >= hold.width() && seen.height() >= hold.height()) {
      move(corner);
      return;
    }
  }
  move(screen()->availableGeometry().topLeft());
}

/// Shows the window at its stored place.
void frmMain::showOnScreen() {
  if (m_storedLeft && m_storedTop)
    moveOnScreen({*m_storedLeft, *m_storedTop});
  show();
  if (m_storedLeft.has_value() == m_storedTop.has_value())
    return;
  // The other edge is where the window system puts it.
  const QDeadlineTimer patience(500);
  while (!windowHandle()->isExposed() && !patience.hasExpired())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  moveOnScreen({m_storedLeft.value_or(x()), m_storedTop.value_or(y())});
}

void frmMain::closeEvent(QCloseEvent *event) {
  event->accept();
  Form_Unload();
}

void frmMain::Form_Unload() {
  SaveSettings(*this);
  Form<frmAbout>::unload();
  Form<frmDevice>::unload();
  Form<frmLanInfo>::unload();
  Form<frmLinks>::unload();
  Form<frmSubnet>::unload();
  Form<frmToolbox>::unload();
  QCoreApplication::quit();
}

bool frmMain::CheckForUpdate(bool /*bUnused*/) {
  readVersionList();
  return false;
}

void frmMain::resizeEvent(QResizeEvent * /*event*/) {
  Form_Resize();
}

void frmMain::Form_Resize() {
  reported("frmMain", "Form_Resize", [this] {
    m_toolbar.setGeometry(0, 0, width(), Toolbar::height);
    m_viewport.layOut(size(), Toolbar::height);
  });
}

/// Events that a child leaves come here too; the bare form is where there is none.
bool frmMain::isBare(QPoint at) const {
  return rect().contains(at) && childAt(at) == nullptr;
}

void frmMain::mouseMoveEvent(QMouseEvent *event) {
  const QPoint at = event->position().toPoint();
  if (isBare(at))
    m_gestures.Form_MouseMove(at);
}

void frmMain::mousePressEvent(QMouseEvent *event) {
  m_pressedBare = isBare(event->position().toPoint());
}

void frmMain::mouseReleaseEvent(QMouseEvent *event) {
  if (m_pressedBare && isBare(event->position().toPoint()))
    m_gestures.Form_Click();
}

void frmMain::openMenu(std::int32_t Index, QPoint global) {
  m_contextMenu.build(Index, *this)->exec(global);
}

void frmMain::wheelEvent(QWheelEvent *event) {
  m_viewport.scrollBy(-event->angleDelta() * wheelStep / QWheelEvent::DefaultDeltasPerStep);
}

void frmMain::Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift) {
  const auto buttons = toolbarButtons();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (buttons[i].key == KeyCode && Shift == buttons[i].modifier)
      buttonClicked(i);
  if (KeyCode == Qt::Key_Delete && Shift != Qt::ControlModifier && Shift != Qt::AltModifier &&
      lSelectedItem > 0)
    m_contextMenu.mnuRemove_Click();
}

void frmMain::buttonClicked(std::size_t index) {
  using Action = void (frmMain::*)();
  static constexpr std::array<std::pair<std::string_view, Action>, 11> actions{{
      {"picNew", &frmMain::picNew_Click},
      {"picLoad", &frmMain::picLoad_Click},
      {"picSave", &frmMain::picSave_Click},
      {"picAdd", &frmMain::picAdd_Click},
      {"picInfo", &frmMain::picInfo_Click},
      {"picLink", &frmMain::picLink_Click},
      {"picDevice", &frmMain::picDevice_Click},
      {"picSubnet", &frmMain::picSubnet_Click},
      {"picThemes", &frmMain::picThemes_Click},
      {"picAbout", &frmMain::picAbout_Click},
      {"picSettings", &frmMain::picSettings_Click},
  }};
  for (const auto &[name, action] : actions)
    if (name == toolbarButtons()[index].name)
      (this->*action)();
}

void frmMain::picNew_Click() {
  m_operations.ClearLAN();
}

void frmMain::picLoad_Click() {
  reported("frmMain", "picLoad_Click", [this] {
    if (!askForFile(*this, "Open LAN", false))
      return;
    m_operations.ClearLAN();
    openFile(Cdlg.FileName, false);
  });
}

void frmMain::openFile(const QString &sFileName, bool bTakeYourTime) {
  EditorReaderView view;
  OpenLANFile(sFileName, m_operations, view, bTakeYourTime);
  // A reading that was given up has left the boxes of the fields behind alone.
  if (Form<frmLanInfo>::isLoaded())
    Form<frmLanInfo>::instance().showHeader();
}

void frmMain::picSave_Click() {
  reported("frmMain", "picSave_Click", [this] {
    if (askForFile(*this, "Save LAN", true))
      SaveLAN(Cdlg.FileName);
  });
}

template <class F>
void frmMain::showPanel(const char *procedure) {
  reported("frmMain", procedure, [this] { Form<F>::instance().showOwned(this); });
}

void frmMain::picAdd_Click() {
  showPanel<frmToolbox>("picAdd_Click");
}

void frmMain::picInfo_Click() {
  showPanel<frmLanInfo>("picInfo_Click");
}
void frmMain::picLink_Click() {
  showPanel<frmLinks>("picLink_Click");
}
void frmMain::picDevice_Click() {
  showPanel<frmDevice>("picDevice_Click");
}
void frmMain::picSubnet_Click() {
  showPanel<frmSubnet>("picSubnet_Click");
}

void frmMain::picThemes_Click() {
  Form<frmThemes>::instance().showModal(nullptr);
}

void frmMain::picSettings_Click() {
  Form<frmSettings>::instance().Form_Load();
  Form<frmSettings>::instance().showModal(this);
  redrawGrid();
}

void frmMain::picAbout_Click() {
  reported("frmMain", "picAbout_Click", [this] { Form<frmAbout>::instance().showModal(this); });
}

void frmMain::redrawGrid() {
  picLayout().Cls();
  if (ShowGrid)
    picLayout().DrawGrid();
}

void frmMain::linkColorChanged() {
  for (Line &line : picLayout().lneLink)
    line.BorderColor = LinkColor;
  picLayout().lneXOR.BorderColor = LinkColor;
  picLayout().update();
}

void frmMain::templateColorChanged() {
  picLayout().lneLink(0).BorderColor = LinkColor;
}

/// A form that isn't there yet is made by being addressed.
void frmMain::UpdateColors() {
  Form<frmDevice>::instance().UpdateColors();
  Form<frmLanInfo>::instance().UpdateColors();
  Form<frmLinks>::instance().UpdateColors();
  updateOwnColors();
  Form<frmSettings>::instance().UpdateColors();
  Form<frmSubnet>::instance().UpdateColors();
  Form<frmThemes>::instance().UpdateColors();
  Form<frmToolbox>::instance().UpdateColors();
}

void frmMain::updateOwnColors() {
  QPalette colours = palette();
  colours.setColor(QPalette::Window, toQColor(BackgroundColor));
  setPalette(colours);
  m_toolbar.UpdateColors();
  m_viewport.UpdateColors();
}

void frmMain::fillDevice() {
  Form<frmDevice>::instance().selectionFill();
}
void frmMain::fillLinks() {
  Form<frmLinks>::instance().selectionFill();
}
void frmMain::fillSubnets() {
  Form<frmSubnet>::instance().selectionFill(lSelectedItem);
}

void frmMain::showNoDevice() {
  Form<frmDevice>::instance().showNoDevice();
  Form<frmLinks>::instance().showNoDevice();
  Form<frmSubnet>::instance().showNoDevice();
}

void frmMain::loadButtonImages(const QString &tag, const QString &files) {
  m_toolbar.loadImages(tag, files);
  Form<frmSubnet>::instance().loadImages(tag, files);
}

void frmMain::deviceImagesChanged() {
  picLayout().update();
}

void frmMain::setLeft(std::int32_t lLeft) {
  m_storedLeft = pixels(lLeft);
}
void frmMain::setTop(std::int32_t lTop) {
  m_storedTop = pixels(lTop);
}
double frmMain::Left() const {
  return twips(x());
}
double frmMain::Top() const {
  return twips(y());
}

void frmMain::LoadTheme(const QString &sFileName) {
  vnb::LoadTheme(sFileName, *this);
}

} // namespace vnb
