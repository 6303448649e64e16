// SPDX-License-Identifier: MIT
/// Controls of forms, so that a form's construction reads as its table.
#pragma once

#include "widgets/form.h"

#include <QAnyStringView>
#include <QLabel>

namespace vnb {

/// A control's place on its form, in twips.
struct Place {
  int left, top, width, height;
};

/// Sets a control's place within its parent. A text that is longer than its room in the font at
/// hand gets more: to the right, or to the left if it is aligned to the right. A control of one
/// line that is too low for its font grows up and down alike, so that a row stays level.
void place(QWidget &control, Place at);

/// Adds a control of type `T`, named as given, to a form or container, which owns it. Further
/// arguments go to its constructor.
template <class T, class... Arguments>
T *add(QWidget &parent, QAnyStringView name, Arguments &&...arguments) {
  auto *control = new T(&parent, std::forward<Arguments>(arguments)...);
  control->setObjectName(name.toString());
  return control;
}
/// The same, at its place.
template <class T, class... Arguments>
T *add(QWidget &parent, QAnyStringView name, Place at, Arguments &&...arguments) {
  T *control = add<T>(parent, name, std::forward<Arguments>(arguments)...);
  place(*control, at);
  return control;
}

/// Adds a control with a text (a button, a check box) at its place.
template <class T>
T *addCaptioned(QWidget &parent, QAnyStringView name, QAnyStringView caption, Place at) {
  T *control = add<T>(parent, name);
  control->setText(caption.toString());
  control->setAccessibleName(control->text());
  place(*control, at);
  return control;
}

/// Adds a label. Its text is never taken for HTML.
QLabel *addLabel(QWidget &parent, QAnyStringView name, QAnyStringView text, Place at,
                 Qt::Alignment alignment = Qt::AlignLeft);

/// Names `control` for assistive technology after the text of its label, less the colon, and ties
/// it to the label.
void nameAfter(QWidget &control, QLabel &label);

} // namespace vnb
