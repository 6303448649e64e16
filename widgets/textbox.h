// SPDX-License-Identifier: MIT
/// Text boxes of one line whose limits bind the user alone.
#pragma once

#include <QBasicTimer>
#include <QLineEdit>

#include <limits>

namespace vnb {

/// A character that the code page can't hold becomes "?" as it is typed or pasted, and a line end a
/// blank, so that what one sees is what is saved. Any change of the text, the user's or the
/// program's, raises textChanged.
class TextBox : public QLineEdit {
public:
  static constexpr int noLimit = std::numeric_limits<int>::max();

  /// `limit`: characters that can be typed or pasted. A text of the program's that is longer stays,
  /// and can be shortened.
  explicit TextBox(QWidget *parent, int limit = noLimit);

  /// Sets the text by the program, whatever its length. A box without the focus shows its
  /// beginning.
  void setContent(const QString &text);

protected:
  void keyPressEvent(QKeyEvent *event) override;
  // The caret is drawn here, in the colour of the text: Qt's, which input methods can hide, is the
  // reverse of the ground and hardly shows on a middling one.
  void inputMethodEvent(QInputMethodEvent *event) override;
  void paintEvent(QPaintEvent *event) override;
  void focusInEvent(QFocusEvent *event) override;
  void timerEvent(QTimerEvent *event) override;

private:
  class Entry;

  QString fitting(const QString &entered) const;
  void noteState();
  void lightCaret();
  void cutToLimit(QString &text, int &cursor) const;

  int m_limit;
  qsizetype m_unselected = 0; // how much of the text an entry leaves in place
  QString m_given;            // by the program
  QBasicTimer m_blinking;
  bool m_caretLit = true;
};

} // namespace vnb
