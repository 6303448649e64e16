// SPDX-License-Identifier: MIT
/// Lines and their tokens, found in place in the bytes of a file: a large file is walked once and
/// nothing is copied.
#pragma once

#include "runtime/error.h"

#include <QByteArray>

#include <cstdint>
#include <string>
#include <string_view>

namespace vnb {

/// Blanks and tabs alike keep columns apart.
inline bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

/// `line` with single blanks for its runs of blanks and tabs, and none at its ends.
std::string normalised(std::string_view line);

/// The significant lines of a file, one after the other: those that are neither empty nor comments.
class Lines {
public:
  Lines() = default;
  explicit Lines(QByteArray bytes)
      : m_bytes(std::move(bytes)),
        m_rest(m_bytes.constData(), static_cast<std::size_t>(m_bytes.size())) {}
  Lines(const Lines &) = delete;
  Lines(Lines &&) = default;
  Lines &operator=(const Lines &) = delete;
  Lines &operator=(Lines &&) = default;
  ~Lines() = default;

  /// Goes to the next significant line. False when there is none; no line is current then.
  bool next();

  /// The current line, trimmed of blanks and tabs. Raises 9 when there is none. What it gives holds
  /// as long as the bytes, which a move of this object takes along.
  std::string_view current() const {
    if (m_current.empty())
      throw RuntimeError(Fault::SubscriptOutOfRange);
    return m_current;
  }

private:
  QByteArray m_bytes;
  std::string_view m_rest; // what hasn't been walked yet
  std::string_view m_current;
};

/// The columns of a row, which stand apart by blanks, taken from left to right. Taking one more
/// than the row has raises 9.
class Row {
public:
  Row() = default;
  /// REQUIRES: `line` is trimmed.
  explicit Row(std::string_view line) : m_rest(line) {}

  std::string_view takeWord();

  /// The next column as by CLng or CDbl, which tell what else is raised. The column is taken then,
  /// too.
  std::int32_t takeLong();
  double takeDouble();

  /// All that has not been taken, as it stands in the line; empty when nothing is left.
  std::string_view rest() const { return m_rest; }

private:
  const char *end() const { return m_rest.data() + m_rest.size(); }
  bool endsColumn(const char *at) const { return at == end() || isBlank(*at); }

  /// Goes to the first column from `at` on.
  void goOnAt(const char *at) {
    while (at != end() && isBlank(*at))
      ++at;
    m_rest.remove_prefix(static_cast<std::size_t>(at - m_rest.data()));
  }

  std::string_view m_rest; // begins with the next column
};

} // namespace vnb
