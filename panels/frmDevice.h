// SPDX-License-Identifier: MIT
/// The device panel: every edit goes straight into the record of the selected device.
#pragma once

#include "forms/form.h"
#include "panels/securityoptions.h"

#include <QStringListModel>

#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;

namespace vnb {

class TextBox;

class frmDevice : public FormWindow {
public:
  static constexpr std::int32_t lockBoxes = 5;

  frmDevice();
  void Form_Load();
  void UpdateColors();

  /// Fills the panel for the device that has just been selected.
  void selectionFill();
  void showNoDevice();

  /// Refills the lock boxes with the numbers of all locks. No record changes; the boxes show no
  /// lock until a device is selected again. Reported as frmMain's.
  void PopulateLockBoxes();

  /// Puts box `lCombo` (0 to 4) on the last row whose value is `lNumber`; -1 is no lock. Where no
  /// row has the number the box is on none and the record keeps it.
  void Choose(std::int32_t lCombo, std::int32_t lNumber);

private:
  void addCommon();
  void addGroups();
  QWidget *addGroup(int index);
  void addLockBox(QWidget &group, int index, int column, const QString &caption);
  void addFrequency(QWidget &group);

  void showCommon(bool device);
  void fillCommon();
  void fillGroup();
  void showGroup(int index);

  void cboLock_Click(std::int32_t Index);
  void dropFrames(std::int32_t Index);
  void chkLocked_Click();
  void txtFreq_Change(std::size_t Index);
  void txtPhone_Change();
  void txtData_Change();

  QLabel *m_lblNoDevice = nullptr;
  std::array<QLabel *, 2> m_lblInfo{};
  TextBox *m_txtData = nullptr;
  SecurityOptions *m_optSecur = nullptr;
  std::array<QWidget *, 5> m_picSpecific{};
  QCheckBox *m_chkLocked = nullptr;
  std::array<QComboBox *, lockBoxes> m_cboLock{};
  TextBox *m_txtPhone = nullptr;
  std::array<TextBox *, 2> m_txtFreq{};

  /// The locks of the last refill, ascending, and their rows: boxes of one kind share a model.
  std::vector<std::int32_t> m_locks;
  QStringListModel m_lockRows;
  QStringListModel m_noneAndLockRows;
};

} // namespace vnb
