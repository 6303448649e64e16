// SPDX-License-Identifier: MIT
/// ANSI code pages: the bytes in which LAN files hold their text.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <cstdint>
#include <string_view>

namespace vnb {

/// One single-byte code page. Bytes and characters map one to one; a byte that the page leaves
/// undefined stands for the character of the same number, so that any file comes back unchanged.
class CodePage {
public:
  /// Page `number`: 874 or 1250 to 1258; any other number gives 1252.
  explicit CodePage(int number);

  /// One character for each byte; there is no byte that it refuses.
  QString decode(std::string_view bytes) const;

  /// Writes one byte a character to `out` and returns the end; a character that the page lacks
  /// becomes "?". REQUIRES: room for text.size() bytes.
  char *encode(char *out, QStringView text) const;

  QByteArray encode(QStringView text) const;

  /// `text` as it comes back after being saved: a character that the page lacks is spelled in
  /// others that it has (a Vietnamese letter with its tone behind it, a Romanian comma below as a
  /// cedilla), or is a "?". It may be shorter, as a pair of surrogates is one character, or longer.
  QString holdable(const QString &text) const;

  int number() const { return m_number; }

private:
  char byteOf(char16_t character) const;
  bool has(QChar character) const {
    return character == u'?' || byteOf(character.unicode()) != '?';
  }
  QString spelled(QChar character) const;

  struct Pair {
    char16_t character;
    std::uint8_t byte;
  };

  int m_number;
  std::array<char16_t, 128> m_upper;   // characters of the bytes 128 to 255
  std::array<Pair, 128> m_byCharacter; // the same, sorted by character
};

/// Number of the code page that users of this locale have ("ru_RU.UTF-8"). The language alone
/// tells, but for Serbian, which has two scripts; 1252 where no other page is the language's.
int codePageNumber(const QString &locale);

/// The user's code page, by the locale of characters (LC_ALL, LC_CTYPE, LANG), until useCodePage
/// sets another. The language of the desktop says nothing: many Russians have an English one. The
/// reference holds for good; useCodePage changes what it refers to.
const CodePage &codePage();
/// Takes `number` as CodePage does. Texts that have been decoded keep their characters.
void useCodePage(int number);

} // namespace vnb
