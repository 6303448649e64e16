// SPDX-License-Identifier: MIT
#include "runtime/codepage.h"

#include "runtime/codepagetables.h"

#include <QLocale>

#include <algorithm>

namespace vnb {
namespace {

const CodePageTable &table(int number) {
  const auto found = std::ranges::find(codePageTables, number, &CodePageTable::number);
  return found != codePageTables.end()
             ? *found
             : *std::ranges::find(codePageTables, 1252, &CodePageTable::number);
}

/// The C library's order: an earlier variable outdoes a later one, an empty one says nothing.
QString characterLocale() {
  for (const char *variable : {"LC_ALL", "LC_CTYPE", "LANG"})
    if (!qEnvironmentVariableIsEmpty(variable))
      return qEnvironmentVariable(variable);
  return {};
}

/// Made at first use, by the environment of that moment.
CodePage &current() {
  static CodePage page(codePageNumber(characterLocale()));
  return page;
}

} // namespace

CodePage::CodePage(int number) : m_number(table(number).number), m_upper(table(number).upper) {
  // Sorted for the way back, which is searched for each character that is typed or saved.
  for (std::size_t i = 0; i < m_upper.size(); ++i)
    m_byCharacter[i] = {m_upper[i], static_cast<std::uint8_t>(128 + i)};
  std::ranges::sort(m_byCharacter, {}, &Pair::character);
}

QString CodePage::decode(std::string_view bytes) const {
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  std::ranges::transform(bytes, text.begin(), [this](char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    return QChar(byte < 128 ? char16_t{byte} : m_upper[byte - 128U]);
  });
  return text;
}

char CodePage::byteOf(char16_t character) const {
  if (character < 128)
    return static_cast<char>(character);
  const auto found = std::ranges::lower_bound(m_byCharacter, character, {}, &Pair::character);
  if (found == m_byCharacter.end() || found->character != character)
    return '?';
  return static_cast<char>(found->byte);
}

char *CodePage::encode(char *out, QStringView text) const {
  for (qsizetype i = 0; i < text.size(); ++i) {
    *out++ = byteOf(text[i].unicode());
    // Both halves of a pair are one character, and so one "?".
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
      ++i;
  }
  return out;
}

QByteArray CodePage::encode(QStringView text) const {
  QByteArray bytes(text.size(), Qt::Uninitialized);
  bytes.truncate(encode(bytes.data(), text) - bytes.constData());
  return bytes;
}

/// The letter with as many of its marks as the page has in one, and the others behind it; the
/// character itself if the page lacks one of these, too.
QString CodePage::spelled(QChar character) const {
  constexpr char16_t commaBelow = 0x326;
  constexpr char16_t cedilla = 0x327;
  const QString parts = QString(character)
                            .normalized(QString::NormalizationForm_D)
                            .replace(QChar(commaBelow), QChar(cedilla));
  QString letter = parts.first(1);
  QString marks;
  for (const QChar mark : parts.sliced(1)) {
    const QString both = (letter + mark).normalized(QString::NormalizationForm_C);
    if (both.size() == 1 && has(both[0]))
      letter = both;
    else
      marks += mark;
  }
  QString result = letter + marks;
  return std::ranges::all_of(result, [this](QChar c) { return has(c); }) ? result : character;
}

QString CodePage::holdable(const QString &text) const {
  QString spelledText;
  spelledText.reserve(text.size());
  for (const QChar character : text)
    if (has(character))
      spelledText += character;
    else
      spelledText += spelled(character);
  const QByteArray bytes = encode(spelledText);
  return decode({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

int codePageNumber(const QString &locale) {
  // The pages are those that Windows has for these languages, since the game's files come from
  // there.
  switch (QLocale(locale).language()) {
  case QLocale::Thai:
    return 874;
  case QLocale::Albanian:
  case QLocale::Bosnian:
  case QLocale::Croatian:
  case QLocale::Czech:
  case QLocale::Hungarian:
  case QLocale::Polish:
  case QLocale::Romanian:
  case QLocale::Slovak:
  case QLocale::Slovenian:
  case QLocale::Turkmen:
    return 1250;
  case QLocale::Bashkir:
  case QLocale::Belarusian:
  case QLocale::Bulgarian:
  case QLocale::Kazakh:
  case QLocale::Kyrgyz:
  case QLocale::Macedonian:
  case QLocale::Mongolian:
  case QLocale::Russian:
  case QLocale::Sakha:
  case QLocale::Tajik:
  case QLocale::Tatar:
  case QLocale::Ukrainian:
    return 1251;
  case QLocale::Serbian:
    return locale.contains(QStringLiteral("@latin")) ? 1250 : 1251;
  case QLocale::Greek:
    return 1253;
  case QLocale::Azerbaijani:
  case QLocale::Turkish:
  case QLocale::Uzbek:
    return 1254;
  case QLocale::Hebrew:
  case QLocale::Yiddish:
    return 1255;
  case QLocale::Arabic:
  case QLocale::CentralKurdish:
  case QLocale::Persian:
  case QLocale::Uighur:
  case QLocale::Urdu:
    return 1256;
  case QLocale::Estonian:
  case QLocale::Latvian:
  case QLocale::Lithuanian:
    return 1257;
  case QLocale::Vietnamese:
    return 1258;
  default:
    return 1252;
  }
}

const CodePage &codePage() {
  return current();
}

void useCodePage(int number) {
  current() = CodePage(number);
}

} // namespace vnb
