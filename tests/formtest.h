// SPDX-License-Identifier: MIT
/// Verbs for the controls of forms.
#pragma once

#include "shell/pagebutton.h"
#include "support.h"
#include "widgets/numberlist.h"
#include "widgets/textbox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>

#include <stdexcept>
#include <string>

namespace vnb::test {

/// Behind the names of a test's own themes: other programs of the same folder may have some, too.
inline QString themeMark() {
  return QStringLiteral("@%1").arg(QCoreApplication::applicationPid());
}

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

template <class Control = QWidget>
Control &controlOf(QWidget &form, const std::string &name) {
  auto *found = form.findChild<QWidget *>(QString::fromStdString(name));
  if (found == nullptr)
    throw std::invalid_argument(name);
  return dynamic_cast<Control &>(*found);
}

/// Does as the user: "box=text", "list=row" or its text, "dropdown=text", "button".
inline void use(QWidget &form, const std::string &act) {
  auto &control = controlOf(form, act.substr(0, act.find('=')));
  const QString value = QString::fromStdString(act).section(u'=', 1);
  if (auto *textBox = dynamic_cast<TextBox *>(&control)) {
    textBox->selectAll();
    textBox->insert(value);
  } else if (auto *combo = dynamic_cast<QComboBox *>(&control)) {
    pick(*combo, combo->findText(value));
  } else if (auto *list = dynamic_cast<NumberList *>(&control)) {
    const auto found = std::ranges::find_if(list->rows(), [&](const NumberRow &row) {
      return row.text() == value || row.text() == value + themeMark();
    });
    pick(*list, found == list->rows().end() ? value.toInt()
                                            : static_cast<int>(found - list->rows().begin()));
  } else {
    QTest::mouseClick(&control, Qt::LeftButton);
  }
}

/// "a,>b,c" with b picked. Themes come in any order.
inline QString rows(const NumberList &list) {
  QStringList out;
  for (int row = 0; const NumberRow &shown : list.rows())
    out << (row++ == list.ListIndex() ? u">"_qs : QString()) + shown.text();
  if (list.objectName() == u"lstThemes") {
    out = out.filter(themeMark());
    std::ranges::sort(out, {}, [](const QString &row) { return row.mid(row.startsWith(u'>')); });
  }
  return out.join(u',');
}

/// The colour in the middle of a control, as it is drawn.
inline QColor seenIn(QWidget &control) {
  const QImage image = control.grab().toImage();
  return image.pixelColor(image.rect().center());
}

/// What a form shows, by its controls' names: texts, the labels that change, which row of which,
/// and which buttons are on.
inline std::vector<std::pair<QString, QString>> facts(const QWidget &form) {
  static const QStringList labels{u"lblLinks"_qs, u"lblSubnets"_qs, u"lblNoDevice"_qs,
                                  u"lblName"_qs,  u"lblAuthor"_qs,  u"lblCurTheme"_qs};
  std::vector<std::pair<QString, QString>> out;
  for (QWidget *child : form.findChildren<QWidget *>()) {
    QString name = child->objectName();
    if (name.isEmpty() || name.startsWith(u"qt_") || !child->isVisibleTo(&form))
      continue;
    if (const auto *textBox = dynamic_cast<const TextBox *>(child)) {
      out.emplace_back(name, textBox->text());
    } else if (const auto *combo = dynamic_cast<const QComboBox *>(child)) {
      QStringList rows;
      for (int row = 0; row < combo->count(); ++row)
        rows << combo->itemText(row);
      out.emplace_back(name, combo->currentText() + u" of "_qs + rows.join(u','));
    } else if (const auto *list = dynamic_cast<const NumberList *>(child)) {
      out.emplace_back(name, rows(*list));
    } else if (const auto *page = qobject_cast<const QPlainTextEdit *>(child)) {
      out.emplace_back(name, page->toPlainText().left(99));
    } else if (const auto *tab = dynamic_cast<const PageButton *>(child)) {
      out.emplace_back(name, tab->isSelected() ? u"selected"_qs : u"shown"_qs);
    } else if (name == u"picPreview") {
      const QRect at = child->geometry();
      out.emplace_back(name, QStringLiteral("%1x%2 at %3,%4")
                                 .arg(at.width())
                                 .arg(at.height())
                                 .arg(at.x())
                                 .arg(at.y()));
    } else if (name.startsWith(u"picColor")) {
      out.emplace_back(name, seenIn(*child).name());
    } else if (const auto *label = qobject_cast<const QLabel *>(child)) {
      if (labels.contains(name)) // one that has no room for its text has it as a tip
        out.emplace_back(name, label->toolTip().isEmpty() ? label->text()
                                                          : u"tip "_qs + label->toolTip());
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(child)) {
      const QString number = name.section(QRegularExpression(u"\\D+"_qs), -1);
      name.chop(number.size());
      if (button->isChecked())
        out.emplace_back(name, number.isEmpty() ? u"on"_qs : number);
    }
  }
  return out;
}

} // namespace vnb::test
