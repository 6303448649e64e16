// SPDX-License-Identifier: MIT
#include "forms/textbox.h"

#include "runtime/codepage.h"

#include <QValidator>

#include <algorithm>

namespace vnb {

namespace {

QString held(const QString &text) {
  QString result = codePage().holdable(text);
  return result.replace(u'\r', u' '); // a line of the file can't hold a line end
}

} // namespace

/// Mends a text before it is laid out: a page of pasted exotic script would cost seconds first.
class TextBox::Entry : public QValidator {
public:
  explicit Entry(TextBox &box) : QValidator(&box), m_box(box) {}

  State validate(QString &input, int &pos) const override {
    const QString mended = held(input);
    if (mended != input) {
      pos = static_cast<int>(held(input.first(pos)).size());
      input = mended;
    }
    m_box.cutToLimit(input, pos);
    return Acceptable;
  }

private:
  TextBox &m_box;
};

TextBox::TextBox(QWidget *parent, int limit) : QLineEdit(parent), m_limit(limit) {
  setMaxLength(std::numeric_limits<int>::max());
  setValidator(new Entry(*this));
  connect(this, &QLineEdit::textChanged, this, &TextBox::noteState);
  connect(this, &QLineEdit::selectionChanged, this, &TextBox::noteState);
}

void TextBox::setContent(const QString &text) {
  m_given = held(text);
  setText(text);
  // A long text shows from its start.
  if (!hasFocus())
    setCursorPosition(0);
}

void TextBox::noteState() {
  m_unselected = text().size() - selectedText().size();
}

/// Takes what doesn't fit off the end of what was entered in front of `cursor`. What stood in the
/// box and wasn't replaced stays, however long it is, and so does what the program gave.
void TextBox::cutToLimit(QString &text, int &cursor) const {
  if (text == m_given)
    return;
  const qsizetype excess = text.size() - std::max<qsizetype>(m_limit, m_unselected);
  if (excess <= 0)
    return;
  const qsizetype from = std::max<qsizetype>(0, cursor - excess);
  text.remove(from, excess);
  cursor = static_cast<int>(from);
}

} // namespace vnb
