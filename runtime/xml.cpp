// SPDX-License-Identifier: MIT
#include "runtime/xml.h"

#include "runtime/error.h"
#include "runtime/files.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace vnb {
namespace {

constexpr qsizetype largestFile = qsizetype{16} << 20;
/// Characters that a document may make: a file of the largest size without entities.
constexpr qsizetype longestContent = largestFile;
constexpr std::size_t deepest = 64;
/// Attributes of an element, and declarations of a document type.
constexpr int many = 256;
constexpr qsizetype longestDeclaration = 4096;

/// How many values in quotes stand in `tag`.
int valuesIn(QByteArrayView tag) {
  int values = 0;
  bool due = false; // behind "=" and blanks
  for (const char c : tag) {
    if (due && (c == '"' || c == '\''))
      ++values;
    due = c == '=' || (due && (c == ' ' || c == '\t' || c == '\r' || c == '\n'));
  }
  return values;
}

bool isDeclaration(QByteArrayView tag) {
  return tag.startsWith('!') && !tag.startsWith("!--") && !tag.startsWith("![");
}

/// Refuses what the reader would take the square of its length in time for: crowds of attributes
/// and long document types. Neither "<" nor a declaration can be inside a tag, so what lies between
/// two of them is at least a tag.
void refuseCrowds(QByteArray bytes) {
  bytes.replace('\0', ""); // as UTF-16 has them
  int declarations = 0;
  for (qsizetype at = bytes.indexOf('<'); at >= 0;) {
    const qsizetype next = bytes.indexOf('<', at + 1);
    const QByteArrayView tag =
        QByteArrayView(bytes).sliced(at + 1, (next < 0 ? bytes.size() : next) - at - 1);
    if (valuesIn(tag) > many)
      throw RuntimeError(ownError, QStringLiteral("An element has too many attributes."));
    if (isDeclaration(tag) && (++declarations > many || tag.trimmed().size() > longestDeclaration))
      throw RuntimeError(ownError, QStringLiteral("The document type is too long."));
    at = next;
  }
}

} // namespace

std::optional<QString> XmlElement::getAttribute(QStringView name) const {
  const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                  [name](const auto &pair) { return pair.first == name; });
  return found == m_attributes.end() ? std::nullopt : std::optional(found->second);
}

/// Grows the tree of one document while its file is walked.
class XmlBuilder {
public:
  XmlBuilder(const QByteArray &bytes, QString &text) : m_reader(bytes), m_text(text) {
    // The reader limits a single entity, but many references to it add up: the longer the file, the
    // less each may make.
    constexpr qsizetype inShortFiles = 4096;
    m_reader.setEntityExpansionLimit(
        static_cast<int>(std::min(inShortFiles, longestContent / (bytes.size() + 1))));
  }

  XmlElement build() {
    XmlElement document; // holds the root as its only child
    m_open.push_back(&document);
    while (!m_reader.atEnd())
      take(m_reader.readNext());
    if (m_reader.hasError())
      fail(m_reader.errorString());
    return std::move(document.m_children.front());
  }

private:
  void take(QXmlStreamReader::TokenType token) {
    if (token == QXmlStreamReader::StartElement)
      start();
    else if (token == QXmlStreamReader::EndElement)
      end();
    else if (token == QXmlStreamReader::Characters)
      addText();
  }

  void addText() {
    count(m_reader.text().size());
    m_text += m_reader.text();
  }

  void start() {
    if (m_open.size() > deepest)
      fail(QStringLiteral("The elements are nested too deeply."));
    XmlElement &element = m_open.back()->m_children.emplace_back();
    element.m_tagName = m_reader.qualifiedName().toString();
    for (const QXmlStreamAttribute &attribute : m_reader.attributes()) {
      count(attribute.qualifiedName().size() + attribute.value().size());
      element.m_attributes.emplace_back(attribute.qualifiedName().toString(),
                                        attribute.value().toString());
    }
    element.m_documentText = &m_text;
    element.m_textStart = m_text.size();
    m_open.push_back(&element);
  }

  void end() {
    m_open.back()->m_textEnd = m_text.size();
    m_open.pop_back();
  }

  /// A document type can give every element a long attribute that the file holds only once.
  void count(qsizetype characters) {
    m_left -= characters;
    if (m_left < 0)
      fail(QStringLiteral("The content is longer than 16 Mi characters."));
  }

  [[noreturn]] void fail(const QString &reason) const {
    throw RuntimeError(ownError, QStringLiteral("Line %1, column %2: %3")
                                     .arg(m_reader.lineNumber())
                                     .arg(m_reader.columnNumber())
                                     .arg(reason));
  }

  QXmlStreamReader m_reader;
  QString &m_text;
  qsizetype m_left = longestContent;
  std::vector<XmlElement *> m_open; // from the document down to the innermost open element
};

XmlDocument::XmlDocument(const QString &path) : m_text(std::make_unique<QString>()) {
  File file;
  file.openForInput(path);
  const QByteArray bytes = file.readAll();
  if (bytes.size() > largestFile)
    throw RuntimeError(ownError, QStringLiteral("The file is larger than 16 MiB."));
  refuseCrowds(bytes);
  m_root = XmlBuilder(bytes, *m_text).build();
}

} // namespace vnb
