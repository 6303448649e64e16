// SPDX-License-Identifier: MIT
#include "lanfile/lines.h"

#include "lanfile/lanfile.h"
#include "runtime/numbers.h"

#include <algorithm>
#include <charconv>

namespace vnb {
namespace {

std::string_view trimmed(std::string_view line) {
  while (!line.empty() && isBlank(line.front()))
    line.remove_prefix(1);
  while (!line.empty() && isBlank(line.back()))
    line.remove_suffix(1);
  return line;
}

} // namespace

bool Lines::next() {
  while (!m_rest.empty()) {
    // A line ends at CR or CR LF; a LF alone is a character like any other.
    const std::size_t end = std::min(m_rest.find('\r'), m_rest.size());
    m_current = trimmed(m_rest.substr(0, end));
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    if (!m_rest.empty() && m_rest.front() == '\n')
      m_rest.remove_prefix(1);
    if (!m_current.empty() && m_current.front() != ';')
      return true;
  }
  m_current = {};
  return false;
}

std::string_view Row::takeWord() {
  if (m_rest.empty())
    throw RuntimeError(Fault::SubscriptOutOfRange);
  const char *const start = m_rest.data();
  const char *stop = start;
  while (!endsColumn(stop))
    ++stop;
  goOnAt(stop);
  return {start, static_cast<std::size_t>(stop - start)};
}

// Nearly every column is a plain number: it is read at once, without looking for the end of the
// column first. Whatever doesn't end with its number is left to CLng and CDbl.
std::int32_t Row::takeLong() {
  std::int32_t value = 0;
  const auto [stop, fault] = std::from_chars(m_rest.data(), end(), value);
  if (fault != std::errc() || !endsColumn(stop))
    return CLng(takeWord());
  goOnAt(stop);
  return value;
}

double Row::takeDouble() {
  // A digit in front, since "inf" and "nan" are no numbers here.
  if (m_rest.empty() || m_rest[0] < '0' || m_rest[0] > '9')
    return CDbl(takeWord());
  double value = 0;
  const auto [stop, fault] = std::from_chars(m_rest.data(), end(), value);
  if (fault != std::errc() || !endsColumn(stop))
    return CDbl(takeWord());
  goOnAt(stop);
  return value;
}

std::string normalised(std::string_view line) {
  std::string result;
  result.reserve(line.size());
  for (const char c : trimmed(line)) {
    if (!isBlank(c))
      result += c;
    // There is a last one: a trimmed line begins with no blank.
    else if (result.back() != ' ')
      result += ' ';
  }
  return result;
}

QString SuperTrim(const QString &sText) {
  QString text = sText;
  text.replace(u'\t', u' ');
  const auto isNoBlank = [](QChar c) { return c != u' '; };
  const auto first = std::find_if(text.cbegin(), text.cend(), isNoBlank);
  const auto last = std::find_if(text.crbegin(), std::make_reverse_iterator(first), isNoBlank);
  return text.mid(first - text.cbegin(), last.base() - first);
}

QString ConcatSpaces(const QString &sText) {
  QString text = SuperTrim(sText);
  text.erase(std::unique(text.begin(), text.end(),
                         [](QChar a, QChar b) { return a == u' ' && b == u' '; }),
             text.end());
  return text;
}

} // namespace vnb
