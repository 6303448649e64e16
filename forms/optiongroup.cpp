// SPDX-License-Identifier: MIT
#include "forms/optiongroup.h"

#include <QAbstractButton>

namespace vnb {

OptionGroup::OptionGroup() {
  connect(this, &QButtonGroup::buttonToggled, this, &OptionGroup::moveTabStop);
}

void OptionGroup::clear() {
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
