// SPDX-License-Identifier: MIT
#include "editor/frmMain.h"

#include "appearance/colours.h"
#include "appearance/frmThemes.h"
#include "editor/frmToolbox.h"
#include "lanfile/lanfile.h"
#include "panels/frmDevice.h"
#include "panels/frmLanInfo.h"
#include "panels/frmLinks.h"
#include "panels/frmSubnet.h"
#include "runtime/report.h"
#include "shell/cdlgex.h"
#include "shell/frmAbout.h"
#include "shell/frmSettings.h"
#include "shell/frmSplash.h"
#include "shell/versionlist.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QWheelEvent>

namespace vnb {
namespace {

constexpr QSize designSize(538, 467);
constexpr int leastSurface = 100; // pixels to be seen at least

/// The lock boxes list the locks of now. A panel that isn't there fills its own when it is made.
void fillLockBoxes(FormTable &forms) {
  if (auto *panel = forms.loaded<frmDevice>())
    panel->PopulateLockBoxes();
}

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
  explicit EditorReaderView(FormTable &forms) : m_forms(forms) {}

  void headerRead(HeaderField field) override { m_forms.get<frmLanInfo>().showField(field); }
  void populateLockBoxes() override { fillLockBoxes(m_forms); }

  /// Events need a turn from time to time, not at each of a hundred thousand lines.
  void yield() override {
    constexpr qint64 turn = 50; // milliseconds
    if (m_sinceLast.isValid() && m_sinceLast.elapsed() < turn)
      return;
    DoEvents();
    m_sinceLast.start();
  }

private:
  FormTable &m_forms;
  QElapsedTimer m_sinceLast;
};

} // namespace

frmMain::frmMain()
    : m_place(*this, *this),
      m_toolbar(this, [this](std::size_t index) { (this->*toolbarButtons()[index].action)(); }),
      m_viewport(*this), m_operations(m_viewport.picLayout(), *this),
      m_selection(m_viewport.picLayout(), *this), m_diagram{m_viewport.picLayout(), m_selection,
                                                            m_operations},
      m_gestures(*this, m_diagram, m_toolbar), m_contextMenu(m_diagram),
      m_shortcuts(*this,
                  [this](int KeyCode, Qt::KeyboardModifiers Shift) { Form_KeyUp(KeyCode, Shift); }),
      m_forms({FormTable::row<frmAbout>(), FormTable::row<frmDevice>(m_diagram),
               FormTable::row<frmLanInfo>(), FormTable::row<frmLinks>(m_diagram),
               FormTable::row<frmSettings>(view()), FormTable::row<frmSplash>(),
               FormTable::row<frmSubnet>(m_diagram), FormTable::row<frmThemes>(view()),
               FormTable::row<frmToolbox>(m_operations, m_gestures)}) {
  setObjectName(QStringLiteral("frmMain"));
  setMouseTracking(true);
  setAttribute(Qt::WA_AlwaysShowToolTips); // also while a panel has the keys
  // Not the first button: nothing is marked until Tab is pressed, which then goes round the
  // buttons.
  setFocusPolicy(Qt::ClickFocus);
  setFocus();
  setMinimumSize(Toolbar::leastWidth, Toolbar::height + leastSurface + Viewport::barWidth);
  resize(designSize);
  m_gestures.openMenu = [this](std::int32_t Index, QPoint global) { openMenu(Index, global); };
}

void frmMain::Form_Load() {
  frmSplash &splash = m_forms.get<frmSplash>();
  // In this order: a theme wipes the grid and gives devices their sizes. Events get a turn behind
  // each step, for the splash's dots.
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
        LoadSettings(m_place);
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
      [this] { m_place.show(); }, [&] { splash.hide(); }, [this] { PopulateLockBoxes(); });
}

void frmMain::closeEvent(QCloseEvent *event) {
  event->accept();
  if (!isEnabled())
    return;          // closed already
  setEnabled(false); // what is queued behind the close acts on nothing any more
  Form_Unload();
}

void frmMain::Form_Unload() {
  SaveSettings(m_place);
  m_forms.unload();
  // No window's end does it by itself.
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
  m_viewport.wheel(*event);
}

void frmMain::Form_KeyUp(int KeyCode, Qt::KeyboardModifiers Shift) {
  // The whole state must match: some letters act both with Ctrl and with Alt.
  for (const ToolbarButton &button : toolbarButtons())
    if (button.key == KeyCode && Shift == button.modifier)
      (this->*button.action)();
  if (KeyCode == Qt::Key_Delete && Shift != Qt::ControlModifier && Shift != Qt::AltModifier &&
      lSelectedItem > 0)
    m_contextMenu.mnuRemove_Click();
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
  EditorReaderView view(m_forms);
  OpenLANFile(sFileName, m_operations, view, bTakeYourTime);
  // A reading that was given up has left the boxes of the fields behind alone.
  if (auto *panel = m_forms.loaded<frmLanInfo>())
    panel->showHeader();
}

void frmMain::picSave_Click() {
  reported("frmMain", "picSave_Click", [this] {
    const QString before = Cdlg.FileName;
    if (askForFile(*this, "Save LAN", true) && !SaveLAN(Cdlg.FileName))
      Cdlg.FileName = before;
  });
}

template <class F>
void frmMain::showPanel(const char *procedure) {
  reported("frmMain", procedure, [this] { m_forms.get<F>().showOwned(this); });
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
  m_forms.get<frmThemes>().showModal(nullptr);
}

void frmMain::picSettings_Click() {
  // The sweep of a theme's colours may have made it long ago, with the values of then.
  m_forms.get<frmSettings>().Form_Load();
  m_forms.get<frmSettings>().showModal(this);
  picLayout().redrawGrid();
}

void frmMain::picAbout_Click() {
  reported("frmMain", "picAbout_Click", [this] { m_forms.get<frmAbout>().showModal(this); });
}

std::function<void()> frmMain::keepDrawn() {
  return [this, grid = picLayout().hasGrid(), link = m_selection.pickedLink()] {
    if (grid)
      picLayout().redrawGrid();
    if (link != 0)
      m_selection.pickLink(link);
  };
}

void frmMain::linkColorChanged() {
  picLayout().lneLink(0).BorderColor = LinkColor;
  m_selection.ClearLinkHilites();
  picLayout().lneXOR.BorderColor = LinkColor;
  picLayout().touchBand();
}

void frmMain::UpdateColors() {
  m_forms.UpdateColors();
  updateOwnColors();
}

void frmMain::updateOwnColors() {
  setPalette(themePalette());
  m_toolbar.UpdateColors();
  m_viewport.UpdateColors();
}

/// In the order in which they are filled. One that has been closed is made: filling it is what
/// frames the locks and subnets.
template <class Visit>
void frmMain::forEachDevicePanel(Visit visit) {
  visit(m_forms.get<frmDevice>());
  visit(m_forms.get<frmLinks>());
  visit(m_forms.get<frmSubnet>());
}

void frmMain::deviceSelected() {
  const Report report("frmMain", "SelectItem");
  bool goOn = true;
  forEachDevicePanel(
      [&](DevicePanel &panel) { goOn = goOn && report([&] { panel.selectionFill(); }); });
}

void frmMain::showNoDevice() {
  forEachDevicePanel([](DevicePanel &panel) { panel.showNoDevice(); });
}

void frmMain::lanCleared() {
  m_gestures.endLinking();
  // At the start there are no panels yet, and none need be made for a LAN without a selection.
  m_forms.forEachLoaded([](FormWindow &form) {
    if (auto *panel = dynamic_cast<DevicePanel *>(&form))
      panel->showNoDevice();
  });
  PopulateLockBoxes(); // a new LAN has none of the locks listed
}

void frmMain::systemRemoved(std::int32_t lIndex) {
  // The device that the link started at may be the one that has gone, or have another number.
  m_gestures.endLinking();
  if (auto *panel = m_forms.loaded<frmDevice>())
    panel->systemRemoved(lIndex);
}

void frmMain::PopulateLockBoxes() {
  fillLockBoxes(m_forms);
}

void frmMain::loadButtonImages(const QString &tag, const QString &files) {
  LoadButtonImages(ButtonImages(tag), tag, files);
}

void frmMain::buttonImagesChanged() {
  m_toolbar.buttonImagesChanged();
  if (auto *panel = m_forms.loaded<frmSubnet>())
    panel->buttonImagesChanged();
}

void frmMain::deviceImagesChanged() {
  picLayout().update();
}

} // namespace vnb
