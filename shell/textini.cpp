// SPDX-License-Identifier: MIT
#include "shell/textini.h"

namespace vnb {
namespace {

constexpr QChar escape = u'\\';

bool isQuoted(QStringView text) {
  return text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"');
}

/// The value that a line holds; an escape of none stands for itself.
QString valueOf(QStringView text) {
  text = text.trimmed();
  if (isQuoted(text))
    text = text.sliced(1).chopped(1);
  QString value;
  value.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar next = text[i] == escape && i + 1 < text.size() ? text[i + 1] : QChar();
    if (next == u'n' || next == u'r' || next == escape) {
      value += next == u'n' ? QChar(u'\n') : next == u'r' ? QChar(u'\r') : escape;
      ++i;
    } else {
      value += text[i];
    }
  }
  return value;
}

/// Quoted only where the blanks or quotes at its ends would get lost.
QString lineText(const QString &value) {
  QString text = value;
  text.replace(escape, QStringLiteral("\\\\"));
  text.replace(u'\n', QStringLiteral("\\n"));
  text.replace(u'\r', QStringLiteral("\\r"));
  const bool plain = QStringView(text).trimmed().size() == text.size() && !isQuoted(text);
  return plain ? text : u'"' + text + u'"';
}

} // namespace

IniValues readIni(const QByteArray &bytes) {
  IniValues values;
  QString section;
  for (const QByteArray &bytesOfLine : bytes.split('\n')) {
    const QString line = QString::fromUtf8(bytesOfLine).trimmed();
    const qsizetype equals = line.indexOf(u'=');
    if (line.startsWith(u';') || line.startsWith(u'#'))
      continue;
    if (equals >= 0)
      values.insert(section + line.first(equals).trimmed(),
                    valueOf(QStringView(line).sliced(equals + 1)));
    else if (line.startsWith(u'[') && line.endsWith(u']'))
      section = line.sliced(1).chopped(1) + u'/';
  }
  return values;
}

/// Keys of no section come first: behind a section's line they would be its own. The map is sorted,
/// so that those of one section stand together.
QByteArray iniText(const IniValues &values) {
  QString text;
  QString last;
  for (const bool sections : {false, true})
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
      const qsizetype slash = value.key().indexOf(u'/');
      if ((slash >= 0) != sections)
        continue;
      const QString head =
          sections ? u'[' + value.key().first(slash) + QStringLiteral("]\n") : QString();
      if (head != last)
        text += text.isEmpty() ? head : u'\n' + head;
      last = head;
      text += value.key().sliced(slash + 1) + u'=' + lineText(*value) + u'\n';
    }
  return text.toUtf8();
}

} // namespace vnb
