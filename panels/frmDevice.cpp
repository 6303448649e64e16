// SPDX-License-Identifier: MIT
#include "panels/frmDevice.h"

#include "appearance/colours.h"
#include "panels/selectedsystem.h"
#include "runtime/at.h"
#include "runtime/numbers.h"
#include "runtime/report.h"
#include "runtime/twips.h"
#include "widgets/dropdown.h"
#include "widgets/textbox.h"

#include <QCheckBox>

namespace vnb {
namespace {

/// Whether the first row of a lock box is "None". The first lock of a server and both of a bridge
/// can be chosen but not taken back.
bool hasNone(std::int32_t box) {
  return box == 1 || box == 2;
}

/// The field of the selected device that a lock box edits.
std::int32_t &lockField(std::int32_t box) {
  SystemRec &record = selectedSystem();
  std::int32_t *const fields[] = {&record.lData1, &record.lData2, &record.lData3, &record.lData1,
                                  &record.lData2};
  return *fields[box];
}

/// `font` with its blanks as wide as it takes to give `text` a width in pixels.
QFont stretchedFont(QFont font, const QString &text, qreal width) {
  const auto widthOf = [&] { return QFontMetricsF(font).horizontalAdvance(text); };
  const qreal natural = widthOf();
  font.setWordSpacing(1);
  const qreal counted = widthOf() - natural; // the blanks that the spacing applies to
  font.setWordSpacing(counted > 0 ? (width - natural) / counted : 0);
  return font;
}

} // namespace

frmDevice::frmDevice(const DiagramParts &diagram)
    : DevicePanel(diagram, "frmDevice", "Device Properties", {4680, 1590}, "picProperties") {
  addCommon();
  addGroups();
  showNoDevice();
}

void frmDevice::addCommon() {
  QLabel *lblData = addLabel(container(), "lblInfo0", "Extra information:", {60, 90, 1500, 195});
  m_txtData = add<TextBox>(container(), "txtData", {1830, 45, 2760, 285});
  nameAfter(*m_txtData, *lblData);
  addLabel(container(), "lblInfo1", "Security level:", {60, 390, 1500, 195});
  m_optSecur = new SecurityOptions(container(), {1830, 375, 315, 240});
  m_optSecur->Click = [](std::int32_t Index) {
    if (lSelectedItem != -1)
      selectedSystem().lSecur = Index + 1;
  };
  connect(m_txtData, &TextBox::textChanged, this, &frmDevice::txtData_Change);
}

QWidget *frmDevice::addGroup(Fields fields) {
  auto *group =
      add<QWidget>(container(), QStringLiteral("picSpecific%1").arg(m_picSpecific.size()));
  place(*group, {60, 615, 4575, 960});
  group->hide();
  m_picSpecific.emplace_back(fields, group);
  return group;
}

void frmDevice::addGroups() {
  m_chkLocked =
      addCaptioned<QCheckBox>(*addGroup(Fields::Lock), "chkLocked", "Locked", {0, 120, 1500, 240});
  m_chkLocked->setChecked(true);
  connect(m_chkLocked, &QCheckBox::toggled, this, &frmDevice::chkLocked_Click);

  QWidget *server = addGroup(Fields::Server);
  for (int i = 0; i < 3; ++i)
    addLockBox(*server, i, i, QStringLiteral("Lock %1:").arg(i + 1));

  QWidget *modem = addGroup(Fields::Modem);
  QLabel *lblPhone = addLabel(*modem, "lblPhone", "Phone number:", {0, 150, 1500, 195});
  m_txtPhone = add<TextBox>(*modem, "txtPhone", {1770, 105, 2760, 285});
  nameAfter(*m_txtPhone, *lblPhone);
  connect(m_txtPhone, &TextBox::textChanged, this, &frmDevice::txtPhone_Change);

  QWidget *bridge = addGroup(Fields::Bridge);
  for (int i = 0; i < 2; ++i)
    addLockBox(*bridge, i + 3, i, QStringLiteral("Lock %1:").arg(i + 1));

  addFrequency(*addGroup(Fields::Receiver));
}

void frmDevice::addLockBox(QWidget &group, int index, int column, const QString &caption) {
  constexpr int columnWidth = 1515;
  QLabel *label = addLabel(group, QStringLiteral("lblLock%1").arg(index), caption,
                           {column * columnWidth, 90, 1200, 195});
  auto *box = add<DropDown>(group, QStringLiteral("cboLock%1").arg(index));
  // Its width doesn't depend on its rows: measuring thousands of them takes long.
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(5);
  box->setModel(&rows(index));
  place(*box, {column * columnWidth, 360, 1440, 330});
  nameAfter(*box, *label);
  at(m_cboLock, index) = box;
  box->Click = [this, index] { cboLock_Click(index); };
}

/// One caption whose runs of blanks lie behind the two boxes; they are stretched so that the point
/// shows between the boxes in any font.
void frmDevice::addFrequency(QWidget &group) {
  constexpr int boxTop = 105;
  constexpr int boxWidth = 450;
  constexpr int boxLefts[] = {1080, 1620};
  constexpr int pointAt = (1080 + boxWidth + 1620) / 2;
  constexpr int blanks = 11;
  const QString run(blanks, u' ');
  const QString caption = QStringLiteral("Frequency:");
  const QFont stretched = stretchedFont(
      font(), caption + run, pixels(pointAt) - QFontMetricsF(font()).horizontalAdvance(u'.') / 2);
  QLabel *lblFreq = addLabel(group, "lblFreq", caption + run + u'.' + run + QStringLiteral("GHz"),
                             {0, 150, 4500, 195});
  lblFreq->setFont(stretched);
  for (std::size_t i = 0; i < std::size(boxLefts); ++i) {
    m_txtFreq[i] = add<TextBox>(group, QStringLiteral("txtFreq%1").arg(i),
                                Place{boxLefts[i], boxTop, boxWidth, 285}, 3);
    m_txtFreq[i]->setAccessibleName(i == 0 ? QStringLiteral("Frequency, whole GHz")
                                           : QStringLiteral("Frequency, digits behind the point"));
    connect(m_txtFreq[i], &TextBox::textChanged, this, [this, i] { txtFreq_Change(i); });
  }
}

void frmDevice::Form_Load() {
  reported(
      // The lock boxes before the fill, which looks for the device's locks among their rows.
      "frmDevice", "Form_Load", [this] { UpdateColors(); }, [this] { PopulateLockBoxes(); },
      [this] {
        if (lSelectedItem != -1)
          selectionFill();
      });
}

void frmDevice::UpdateColors() {
  applyColours(*this);
  m_optSecur->UpdateColors();
  setForeground(lblNoDevice(), RedTextColor);
}

void frmDevice::showGroup(Fields fields) {
  for (const auto &[of, group] : m_picSpecific)
    group->setVisible(of == fields);
}

void frmDevice::selectionFill() {
  fillCommon();
  showDevice();
  fillGroup();
}

void frmDevice::fillCommon() {
  const std::int32_t entry = FindData(lSelectedItem);
  m_txtData->setContent(entry == -1 ? QString() : QString(at(DataItems, entry).sText));
  const std::int32_t lSecur = selectedSystem().lSecur;
  m_optSecur->mark(lSecur >= 1 && lSecur <= 3 ? lSecur : 1);
}

/// Each value that is shown runs its handler, which stores it again; for the lock boxes that is how
/// the locks get their frames.
void frmDevice::fillGroup() {
  // A copy: the handlers write into the record meanwhile.
  const SystemRec record = selectedSystem();
  const Fields fields = typeRow(record.lType).fields;
  showGroup(fields);
  switch (fields) {
  case Fields::Lock:
    m_chkLocked->setChecked(record.lData1 != 0);
    break;
  case Fields::Server:
    Choose(0, record.lData1);
    Choose(1, record.lData2);
    Choose(2, record.lData3);
    break;
  case Fields::Modem:
    m_txtPhone->setContent(record.sDataX);
    break;
  case Fields::Bridge:
    Choose(3, record.lData1);
    Choose(4, record.lData2);
    break;
  case Fields::Receiver:
    m_txtFreq[0]->setContent(QString::number(record.lData1));
    m_txtFreq[1]->setContent(QString::number(record.lData2));
    break;
  case Fields::None:
    break;
  }
}

void frmDevice::Choose(std::int32_t lCombo, std::int32_t lNumber) {
  reported("frmDevice", "Choose", [&] {
    DropDown &box = *at(m_cboLock, lCombo);
    if (lNumber == -1) {
      box.setListIndex(hasNone(lCombo) ? 0 : -1);
      return;
    }
    // Else a row that shows already would be no pick, and the lock of the next device without a
    // frame.
    box.setListIndex(-1);
    box.setListIndex(rows(lCombo).rowOf(lNumber));
  });
}

void frmDevice::PopulateLockBoxes() {
  reported("frmMain", "PopulateLockBoxes", [this] {
    std::vector<std::int32_t> locks = RetrieveLocks();
    // Element 0 is no lock.
    locks.erase(locks.begin());
    m_lockRows.refill(locks);
    m_noneAndLockRows.refill(locks);
    for (std::int32_t i = 0; i < lockBoxes; ++i) {
      // Not setListIndex: its Click would store "None" in the record.
      at(m_cboLock, i)->setCurrentIndex(hasNone(i) ? 0 : -1);
      if (hasNone(i))
        diagram().selection.showLock(i, -1);
    }
  });
}

void frmDevice::systemRemoved(std::int32_t lIndex) {
  m_lockRows.closeGap(lIndex);
  m_noneAndLockRows.closeGap(lIndex);
}

LockRows &frmDevice::rows(std::int32_t box) {
  return hasNone(box) ? m_noneAndLockRows : m_lockRows;
}

void frmDevice::cboLock_Click(std::int32_t Index) {
  const int row = at(m_cboLock, Index)->currentIndex();
  if (row < 0 || lSelectedItem == -1)
    return;
  const std::optional<std::int32_t> lock = rows(Index).lockAt(row);
  reported("frmDevice", "cboLock_Click", [&] {
    if (!lock)
      throw RuntimeError(Fault::ControlArrayElement);
    lockField(Index) = *lock;
    diagram().selection.showLock(Index, *lock);
  });
  if (!lock)
    Choose(Index, lockField(Index)); // what is stored, and not the row of a lock that is gone
}

void frmDevice::chkLocked_Click() {
  reported("frmDevice", "chkLocked_Click",
           [this] { selectedSystem().lData1 = m_chkLocked->isChecked() ? 1 : 0; });
}

void frmDevice::txtFreq_Change(std::size_t Index) {
  reported("frmDevice", "txtFreq_Change", [&] {
    // A text that is no number is 0, and stays in the box as it was typed.
    const std::int32_t value = roundToLong(Val(m_txtFreq[Index]->text()));
    (Index == 0 ? selectedSystem().lData1 : selectedSystem().lData2) = value;
  });
}

void frmDevice::txtPhone_Change() {
  reported("frmDevice", "txtPhone_Change",
           [this] { selectedSystem().sDataX = m_txtPhone->text(); });
}

/// A file may hold several entries for a device. The next one is then what the box edits, and it
/// would be overwritten unseen.
void frmDevice::removeData(std::int32_t entry) {
  RemoveFromDataArray(entry);
  const std::int32_t next = FindData(lSelectedItem);
  if (next != -1)
    m_txtData->setContent(at(DataItems, next).sText);
}

/// The device's first entry follows the text: the first character makes it, and it goes with the
/// last one.
void frmDevice::txtData_Change() {
  reported("frmDevice", "txtData_Change", [this] {
    const QString text = m_txtData->text();
    const std::int32_t device = selectedNumber();
    const std::int32_t entry = FindData(device);
    if (!text.isEmpty() && entry != -1)
      at(DataItems, entry).sText = text;
    else if (!text.isEmpty())
      diagram().operations.AddData(device, text);
    else if (entry != -1)
      removeData(entry);
  });
}

} // namespace vnb
