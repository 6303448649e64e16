// SPDX-License-Identifier: MIT
#include "widgets/textbox.h"

#include "runtime/codepage.h"
#include "widgets/screenpixels.h"
#include "widgets/style.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QValidator>

#include <algorithm>

namespace vnb {

namespace {

QString held(const QString &text) {
  QString result = codePage().holdable(text);
  return result.replace(u'\r', u' '); // a line of the file can't hold a line end
}

/// A file may give line feeds, which it ends no line with; other programs would take them for ends.
QString oneLine(QString entered) {
  return entered.replace(u'\n', u' ');
}

} // namespace

/// Mends a text before it is laid out: a page of pasted exotic script would cost seconds first.
class TextBox::Entry : public QValidator {
public:
  explicit Entry(TextBox &box) : QValidator(&box), m_box(box) {}

  State validate(QString &input, int &pos) const override {
    const QString mended = input == m_box.m_given ? held(input) : oneLine(held(input));
    if (mended != input) {
      // Pairs in front of the cursor are single characters now.
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
  // Qt's own limit would cut what the program gives.
  setMaxLength(std::numeric_limits<int>::max());
  setValidator(new Entry(*this));
  connect(this, &QLineEdit::textChanged, this, &TextBox::noteState);
  connect(this, &QLineEdit::selectionChanged, this, &TextBox::noteState);
  connect(this, &QLineEdit::textChanged, this, &TextBox::lightCaret);
  connect(this, &QLineEdit::cursorPositionChanged, this, &TextBox::lightCaret);
  QInputMethodEvent nothing;
  TextBox::inputMethodEvent(&nothing);
}

void TextBox::setContent(const QString &text) {
  // Known first, since the validator lets this text pass.
  m_given = held(text);
  setText(text);
  // A long text shows from its start.
  if (!hasFocus())
    setCursorPosition(0);
}

/// Mended before it is entered, where keys enter it: a text that is mended afterwards is set anew,
/// and there is no undo behind that.
void TextBox::keyPressEvent(QKeyEvent *event) {
  const bool paste = event->matches(QKeySequence::Paste);
  const QString entered = paste ? QGuiApplication::clipboard()->text() : event->text();
  const bool command = event->modifiers().testFlag(Qt::ControlModifier) && !paste;
  const bool typed = !command && !entered.isEmpty() && (paste || entered[0].isPrint());
  const QString mended = typed ? fitting(entered) : entered;
  if (mended == entered)
    QLineEdit::keyPressEvent(event);
  else if (!mended.isEmpty())
    insert(mended);
}

/// As much of what is entered as there is room for, in characters that a file can hold.
QString TextBox::fitting(const QString &entered) const {
  return oneLine(held(entered)).left(std::max<qsizetype>(m_limit - m_unselected, 0));
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

void TextBox::inputMethodEvent(QInputMethodEvent *event) {
  auto attributes = event->attributes();
  auto at = static_cast<int>(event->preeditString().size());
  for (const auto &attribute : attributes)
    if (attribute.type == QInputMethodEvent::Cursor)
      at = attribute.start;
  attributes.append({QInputMethodEvent::Cursor, at, 0}); // the last one counts, and hides it
  QInputMethodEvent hiding(event->preeditString(), attributes);
  hiding.setCommitString(event->commitString(), event->replacementStart(),
                         event->replacementLength());
  QLineEdit::inputMethodEvent(&hiding);
  event->setAccepted(hiding.isAccepted());
}

void TextBox::paintEvent(QPaintEvent *event) {
  QLineEdit::paintEvent(event);
  if (!hasFocus() || !m_caretLit || isReadOnly())
    return;
  QPainter painter(this);
  const QRectF around = cursorRect();
  painter.fillRect(ScreenPixels(painter).upright(around.top(), around.bottom(),
                                                 cursorRect().center().x() + 1, 1),
                   shade(palette().color(QPalette::Base), palette().color(QPalette::Text)));
}

void TextBox::focusInEvent(QFocusEvent *event) {
  QLineEdit::focusInEvent(event);
  lightCaret();
}

/// From now on it blinks as fast as the desktop says, if it says so.
void TextBox::lightCaret() {
  m_caretLit = true;
  const int period = QApplication::cursorFlashTime();
  if (hasFocus() && period > 0)
    m_blinking.start(period / 2, this);
}

void TextBox::timerEvent(QTimerEvent *event) {
  if (event->timerId() != m_blinking.timerId()) {
    QLineEdit::timerEvent(event);
    return;
  }
  m_caretLit = !m_caretLit;
  if (!hasFocus())
    m_blinking.stop();
  update(cursorRect());
}

} // namespace vnb
