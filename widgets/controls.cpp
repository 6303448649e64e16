// SPDX-License-Identifier: MIT
#include "widgets/controls.h"

#include "runtime/twips.h"

namespace vnb {

void place(QWidget &control, Place at) {
  QRect room(pixels(at.left), pixels(at.top), pixels(at.width), pixels(at.height));
  const QSize hint = control.sizeHint();
  const int missing = hint.width() - room.width();
  const auto *label = qobject_cast<const QLabel *>(&control);
  if (label != nullptr && missing > 0)
    (label->alignment() & Qt::AlignRight) != 0 ? room.setLeft(room.left() - missing)
                                               : room.setRight(room.right() + missing);
  // A line of text sits at the middle of its control, which grows in both directions.
  constexpr int oneLine = 26;
  const int flat = hint.height() - room.height();
  // Whatever is higher isn't one line: a list, a page, a picture.
  if (flat > 0 && room.height() < oneLine)
    room.adjust(0, -flat / 2, 0, flat - flat / 2);
  control.setGeometry(room);
}

QLabel *addLabel(QWidget &parent, QAnyStringView name, QAnyStringView text, Place at,
                 Qt::Alignment alignment) {
  auto *label = add<QLabel>(parent, name);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(alignment | Qt::AlignVCenter);
  label->setText(text.toString());
  place(*label, at);
  return label;
}

void nameAfter(QWidget &control, QLabel &label) {
  QString name = label.text().simplified();
  if (name.endsWith(u':'))
    name.chop(1);
  control.setAccessibleName(name);
  label.setBuddy(&control);
}

} // namespace vnb
