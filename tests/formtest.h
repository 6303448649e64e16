// SPDX-License-Identifier: MIT
/// Verbs for the controls of forms.
#pragma once

#include "widgets/formtable.h"
#include "widgets/numberlist.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QTest>

#include <stdexcept>
#include <string>

namespace vnb::test {

/// Picks a row as the user does, be it the one that shows.
inline void pick(QComboBox &combo, int row) {
  combo.setCurrentIndex(row);
  Q_EMIT combo.activated(row);
}
inline void pick(NumberList &list, int row) {
  list.scrollTo(list.model()->index(row, 0));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                    list.visualRect(list.model()->index(row, 0)).center());
}

template <class T>
class FormTest : public testing::Test {
protected:
  /// A form that is made of `parts`.
  template <class... Parts>
  explicit FormTest(Parts &...parts) : forms({FormTable::row<T>(parts...)}) {}

  T &form() { return forms.get<T>(); }
  bool isLoaded() { return forms.loaded<T>() != nullptr; }
  template <class Control = QWidget>
  Control &control(const char *name) {
    auto *found = form().template findChild<Control *>(QString::fromLatin1(name));
    if (found == nullptr)
      throw std::invalid_argument(name);
    return *found;
  }
  std::string text(const char *label) { return control<QLabel>(label).text().toStdString(); }
  void click(const char *name) { QTest::mouseClick(&control(name), Qt::LeftButton); }
  /// The colour in the middle of a control, as it is drawn.
  QColor seen(const char *name) {
    const QImage image = control(name).grab().toImage();
    return image.pixelColor(image.rect().center());
  }

  FormTable forms;
};

} // namespace vnb::test
