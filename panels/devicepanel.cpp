// SPDX-License-Identifier: MIT
#include "panels/devicepanel.h"

#include "widgets/controls.h"
#include "widgets/numberlist.h"

namespace vnb {
namespace {

constexpr int margin = 60; // twips

} // namespace

DevicePanel::DevicePanel(const DiagramParts &diagram, const char *name, const char *caption,
                         QSize client, const char *container)
    : FormWindow(name, caption, client), m_diagram(diagram),
      m_container(add<QWidget>(*this, container)),
      m_lblNoDevice(
          addLabel(*this, "lblNoDevice", "No Device Selected",
                   {margin, margin, client.width() - 2 * margin, client.height() - 2 * margin},
                   Qt::AlignHCenter)) {
  m_container->resize(size());
}

void DevicePanel::showDevice() {
  setDevice(true);
}

void DevicePanel::showNoDevice() {
  setDevice(false);
  // asked of the language, as Qt tells only its own classes apart: a drop-down box has a list too
  for (QListView *view : m_container->findChildren<QListView *>())
    if (auto *list = dynamic_cast<NumberList *>(view))
      list->setRows({});
}

/// What is disabled takes no keys: hidden alone, it would keep the focus where no other control
/// can have it.
void DevicePanel::setDevice(bool device) {
  m_container->setEnabled(device);
  m_container->setVisible(device);
  m_lblNoDevice->setVisible(!device);
}

} // namespace vnb
