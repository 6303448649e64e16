// SPDX-License-Identifier: MIT
#include "forms/controls.h"

namespace vnb {

QLabel *addLabel(QWidget &parent, const QString &name, const QString &text, Place at,
                 Qt::Alignment alignment) {
  auto *label = add<QLabel>(parent, name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setText(text);
  place(*label, at.left, at.top, at.width, at.height);
  return label;
}

void describe(QWidget &control, QLabel &label) {
  QString name = label.text().simplified();
  if (name.endsWith(u':'))
    name.chop(1);
  control.setAccessibleName(name);
  label.setBuddy(&control);
}

} // namespace vnb
