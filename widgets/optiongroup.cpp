// SPDX-License-Identifier: MIT
#include "widgets/optiongroup.h"

#include <QAbstractButton>

namespace vnb {

OptionGroup::OptionGroup() {
  connect(this, &QButtonGroup::buttonToggled, this, &OptionGroup::moveTabStop);
  // Assistive technology turns options on without a click, and a click on the one that is on turns
  // nothing; a click that does both counts once.
  connect(this, &QButtonGroup::idPressed, this, [this] { m_raised = false; });
  connect(this, &QButtonGroup::idToggled, this, [this](int id, bool on) {
    if (on)
      raise(id);
  });
  connect(this, &QButtonGroup::idClicked, this, [this](int id) {
    if (!m_raised)
      raise(id);
  });
}

void OptionGroup::raise(int id) {
  m_raised = true;
  if (Click)
    Click(id);
}

void OptionGroup::clear() {
  // A group that is exclusive keeps one on.
  setExclusive(false);
  for (QAbstractButton *option : buttons())
    option->setChecked(false);
  setExclusive(true);
}

void OptionGroup::moveTabStop() {
  const QAbstractButton *stop = checkedButton() != nullptr ? checkedButton() : buttons().value(0);
  for (QAbstractButton *option : buttons())
    option->setFocusPolicy(option == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

} // namespace vnb
