// SPDX-License-Identifier: MIT
#include "forms/textbox.h"

#include "runtime/codepage.h"

#include <QValidator>

#include <algorithm>

namespace vnb {

namespace {

/// Mends a text before it is laid out: a page of pasted exotic script would cost seconds first.
class Holdable : public QValidator {
public:
  using QValidator::QValidator;

  State validate(QString &input, int &pos) const override {
    const auto held = [](const QString &text) {
      QString result = codePage().holdable(text);
      return result.replace(u'\r', u' '); // a line of the file can't hold a line end
    };
    const QString mended = held(input);
    if (mended != input) {
      pos = static_cast<int>(held(input.first(pos)).size());
      input = mended;
    }
    return Acceptable;
  }
};

} // namespace

TextBox::TextBox(QWidget *parent, int limit) : QLineEdit(parent), m_limit(limit) {
  setLimit();
  setValidator(new Holdable(this));
  connect(this, &QLineEdit::textChanged, this, &TextBox::setLimit);
}

void TextBox::setContent(const QString &text) {
  setMaxLength(std::max<int>(m_limit, static_cast<int>(text.size())));
  setText(text);
  // A long text shows from its start.
  if (!hasFocus())
    setCursorPosition(0);
}

/// A text that the program made longer than the limit can be cut down, but not grow again.
void TextBox::setLimit() {
  const int limit = std::max<int>(m_limit, static_cast<int>(text().size()));
  if (limit == maxLength())
    return;
  const int cursor = cursorPosition();
  setMaxLength(limit); // moves the cursor
  setCursorPosition(cursor);
}

} // namespace vnb
