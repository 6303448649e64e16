// SPDX-License-Identifier: MIT
/// The device panel: every edit goes straight into the record of the selected device.
#pragma once

#include "panels/devicepanel.h"
#include "panels/lockrows.h"
#include "panels/securityoptions.h"

#include <array>

class QCheckBox;

namespace vnb {

class DropDown;
class TextBox;

/// What it shows of a device depends on the type: one of five groups of fields, or none.
class frmDevice : public DevicePanel {
public:
  /// Boxes 0 to 2 are those of a server, 3 and 4 those of an isolation bridge.
  static constexpr std::int32_t lockBoxes = 5;

  explicit frmDevice(const DiagramParts &diagram);
  /// Fills the lock boxes first, and then the panel if a device is selected.
  void Form_Load() override;
  void UpdateColors() override;
  void selectionFill() override;

  /// Refills the lock boxes with the numbers of all locks. No record changes; the boxes show no
  /// lock until a device is selected again, and the frames of boxes 1 and 2 go. Reported as
  /// frmMain's.
  void PopulateLockBoxes();

  /// The rows of the lock boxes follow their devices: system `lIndex` was removed. No record
  /// changes, and the boxes stay on their rows.
  void systemRemoved(std::int32_t lIndex);

  /// Puts box `lCombo` (0 to 4) on the last row whose value is `lNumber`; -1 is no lock. Where no
  /// row has the number the box is on none and the record keeps it. A row that is found counts as
  /// picked: its number is stored, and the lock framed. Reported.
  void Choose(std::int32_t lCombo, std::int32_t lNumber);

private:
  void addCommon();
  void addGroups();
  QWidget *addGroup(Fields fields);
  /// `column` counts from 0, from the left.
  void addLockBox(QWidget &group, int index, int column, const QString &caption);
  void addFrequency(QWidget &group);

  void fillCommon();
  void fillGroup();
  /// Shows the group of these fields alone, or none.
  void showGroup(Fields fields);

  LockRows &rows(std::int32_t box);
  void cboLock_Click(std::int32_t Index);
  void chkLocked_Click();
  void txtFreq_Change(std::size_t Index);
  void txtPhone_Change();
  void txtData_Change();
  void removeData(std::int32_t entry);

  TextBox *m_txtData = nullptr;
  SecurityOptions *m_optSecur = nullptr;
  std::vector<std::pair<Fields, QWidget *>> m_picSpecific; // in the order of their names
  QCheckBox *m_chkLocked = nullptr;
  std::array<DropDown *, lockBoxes> m_cboLock{};
  TextBox *m_txtPhone = nullptr;
  std::array<TextBox *, 2> m_txtFreq{};

  LockRows m_lockRows{LockRows::First::Lock};
  LockRows m_noneAndLockRows{LockRows::First::None};
};

} // namespace vnb
