// SPDX-License-Identifier: MIT
/// Verbs for the controls of one form.
#pragma once

#include "forms/form.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QTest>

#include <stdexcept>
#include <string>

namespace vnb::test {

template <class T>
class FormTest : public testing::Test {
protected:
  ~FormTest() override { Form<T>::unload(); }

  static T &form() { return Form<T>::instance(); }
  template <class Control = QWidget>
  static Control &control(const char *name) {
    auto *found = form().template findChild<Control *>(QString::fromLatin1(name));
    if (found == nullptr)
      throw std::invalid_argument(name);
    return *found;
  }
  static std::string text(const char *label) { return control<QLabel>(label).text().toStdString(); }
  static void click(const char *name) { QTest::mouseClick(&control(name), Qt::LeftButton); }
  /// The colour in the middle of a control, as it is drawn.
  static QColor seen(const char *name) {
    const QImage image = control(name).grab().toImage();
    return image.pixelColor(image.rect().center());
  }
};

} // namespace vnb::test
