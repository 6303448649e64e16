// SPDX-License-Identifier: MIT
#include "runtime/xml.h"

#include "runtime/error.h"
#include "runtime/files.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace vnb {
namespace {

/// A theme has 3 KB. Crowds of attributes and declarations cost the reader the square of their
/// number, which can't be large in a file of this size.
constexpr qsizetype largestFile = qsizetype{64} << 10;
/// Characters that a document may make, by entities and a document type's attributes too.
constexpr qsizetype longestContent = qsizetype{1} << 20;
constexpr int longestEntity = 256; // characters; many references to one add up
constexpr std::size_t deepest = 64;

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
    m_reader.setEntityExpansionLimit(longestEntity);
  }

  XmlElement build() {
    XmlElement document; // holds the root as its only child
    m_open.push_back(&document);
    while (!m_reader.atEnd())
      take(m_reader.readNext());
    if (m_reader.hasError())
      fail(m_reader.errorString());
    // There is one: the reader takes a file without a root for a fault.
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

  void count(qsizetype characters) {
    m_left -= characters;
    if (m_left < 0)
      fail(QStringLiteral("The content is longer than 1 Mi characters."));
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
  /// From the document down to the innermost open element. The pointers hold, since only the
  /// innermost gets children, and moving those moves none that is open.
  std::vector<XmlElement *> m_open;
};

XmlDocument::XmlDocument(const QString &path) : m_text(std::make_unique<QString>()) {
  File file;
  file.openForInput(path);
  const QByteArray bytes = file.readAll();
  if (bytes.size() > largestFile)
    throw RuntimeError(ownError, QStringLiteral("The file is larger than 64 KiB."));
  m_root = XmlBuilder(bytes, *m_text).build();
}

} // namespace vnb
