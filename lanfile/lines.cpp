// SPDX-License-Identifier: MIT
#include "lanfile/lines.h"

#include "lanfile/lanfile.h"

#include <algorithm>

namespace vnb {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

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

void Fields::split(std::string_view line) {
  m_line = line;
  m_count = 0;
  const char *at = line.data();
  const char *const end = at + line.size();
  while (at != end && m_count < m_tokens.size()) {
    const char *const start = at;
    while (at != end && !isBlank(*at))
      ++at;
    m_tokens[m_count++] = {start, static_cast<std::size_t>(at - start)};
    while (at != end && isBlank(*at))
      ++at;
  }
}

std::string_view Fields::behind(std::size_t index) const {
  if (index >= m_count)
    return {};
  const char *const start = m_tokens[index].data() + m_tokens[index].size();
  return trimmed({start, static_cast<std::size_t>(m_line.data() + m_line.size() - start)});
}

std::string normalised(std::string_view line) {
  std::string result;
  result.reserve(line.size());
  for (const char c : trimmed(line)) {
    if (!isBlank(c))
      result += c;
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
