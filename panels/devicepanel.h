// SPDX-License-Identifier: MIT
/// What the panels of the selected device share: it, or the words that there is none.
#pragma once

#include "diagram/diagramparts.h"
#include "widgets/form.h"

namespace vnb {

/// A form that speaks of the selected device. All its controls but `lblNoDevice` lie in one
/// container, so that none can be forgotten where no device is selected.
class DevicePanel : public FormWindow {
public:
  /// No device is selected: the controls go, with the focus and with the rows of their lists, and
  /// nothing in them acts. A panel's constructor ends with it, not before: assistive technology
  /// would take a control that is made in a disabled container for a plain area.
  void showNoDevice();

  /// Fills the panel for the device that has just been selected, and shows its controls. What it
  /// raises is the caller's to report. REQUIRES: lSelectedItem is a device.
  virtual void selectionFill() = 0;

protected:
  /// `client` is the size in twips, `container` the name of what holds the controls.
  DevicePanel(const DiagramParts &diagram, const char *name, const char *caption, QSize client,
              const char *container);

  const DiagramParts &diagram() const { return m_diagram; }
  QWidget &container() { return *m_container; }
  QWidget &lblNoDevice() { return *m_lblNoDevice; }
  /// A device is selected: the controls come back, and act. Filling them is the panel's.
  void showDevice();

private:
  void setDevice(bool device);

  DiagramParts m_diagram;
  QWidget *m_container;
  QWidget *m_lblNoDevice;
};

} // namespace vnb
