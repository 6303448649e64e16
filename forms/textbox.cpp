// SPDX-License-Identifier: MIT
#include "forms/textbox.h"

#include "runtime/codepage.h"

#include <algorithm>

namespace vnb {

TextBox::TextBox(QWidget *parent, int limit) : QLineEdit(parent), m_limit(limit) {
  setLimit();
  connect(this, &QLineEdit::textChanged, this, &TextBox::mend);
}

void TextBox::setContent(const QString &text) {
  setMaxLength(std::max<int>(m_limit, static_cast<int>(text.size())));
  setText(text);
  // A long text shows from its start.
  if (!hasFocus())
    setCursorPosition(0);
}

void TextBox::mend(const QString &text) {
  const QString held = codePage().holdable(text);
  if (held != text) {
    const int cursor = cursorPosition();
    setText(held);
    setCursorPosition(cursor);
    return;
  }
  setLimit();
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
