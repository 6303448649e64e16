// SPDX-License-Identifier: MIT
/// Lines and their tokens, found in place in the bytes of a file: a large file is walked once and
/// nothing is copied.
#pragma once

#include "runtime/error.h"

#include <QByteArray>

#include <array>
#include <string>
#include <string_view>

namespace vnb {

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

  /// The current line, trimmed of blanks and tabs. Raises 9 when there is none.
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

/// The tokens of a row, split at its blanks: the first eight, and the place of what follows.
class Fields {
public:
  void clear() { m_count = 0; }

  /// REQUIRES: `line` is trimmed.
  void split(std::string_view line);

  /// Token `index`. Raises 9 when the row has fewer.
  std::string_view operator[](std::size_t index) const {
    if (index >= m_count)
      throw RuntimeError(Fault::SubscriptOutOfRange);
    return m_tokens[index];
  }

  /// All of the line behind token `index`, not normalised; empty when nothing follows.
  std::string_view behind(std::size_t index) const;

private:
  std::array<std::string_view, 8> m_tokens;
  std::size_t m_count = 0;
  std::string_view m_line;
};

} // namespace vnb
