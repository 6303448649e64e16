// SPDX-License-Identifier: MIT
/// Controls of forms, so that a form's construction reads as its table.
#pragma once

#include "forms/form.h"

#include <QLabel>
#include <QString>

namespace vnb {

/// A control's place on its form, in twips.
struct Place {
  int left, top, width, height;
};

/// Adds a control of type `T`, named as given, to a form or container. Its accessible name is its
/// name until it has a better one.
template <class T, class... Arguments>
T *add(QWidget &parent, const QString &name, Arguments &&...arguments) {
  auto *control = new T(&parent, std::forward<Arguments>(arguments)...);
  control->setObjectName(name);
  return control;
}

/// Adds a control with a text (a button, a check box) at its place.
template <class T>
T *addCaptioned(QWidget &parent, const char *name, const char *caption, Place at) {
  T *control = add<T>(parent, QString::fromLatin1(name));
  control->setText(QString::fromLatin1(caption));
  control->setAccessibleName(QString::fromLatin1(caption));
  place(*control, at.left, at.top, at.width, at.height);
  return control;
}

/// Adds a label. Its text is never taken for HTML.
QLabel *addLabel(QWidget &parent, const QString &name, const QString &text, Place at,
                 Qt::Alignment alignment = Qt::AlignLeft);

/// Names `control` for assistive technology after the text of its label, and ties it to the label.
void describe(QWidget &control, QLabel &label);

} // namespace vnb
