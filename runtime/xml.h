// SPDX-License-Identifier: MIT
/// XML files as small trees: all that themes and version lists need.
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vnb {

/// One element of a document. Lives as long as the document, and so does any copy of it.
class XmlElement {
public:
  /// With its prefix, if any, and in the letters of the file.
  const QString &tagName() const { return m_tagName; }
  /// The child elements, in file order; texts and comments between them are left out.
  const std::vector<XmlElement> &children() const { return m_children; }
  /// An attribute's text, with entities resolved; nothing if it is absent. Case counts.
  std::optional<QString> getAttribute(QStringView name) const;
  /// All text between its tags, that of its children included.
  QString text() const { return m_documentText->mid(m_textStart, m_textEnd - m_textStart); }

private:
  friend class XmlBuilder;

  QString m_tagName;
  std::vector<std::pair<QString, QString>> m_attributes;
  std::vector<XmlElement> m_children;
  const QString *m_documentText = nullptr; // of the whole document; an element is a part of it
  qsizetype m_textStart = 0;
  qsizetype m_textEnd = 0;
};

/// A file that has been read whole.
class XmlDocument {
public:
  /// Loads the file at `path`. Raises what File raises, and ownError with the place and the reason
  /// for text that is not well-formed, larger than 64 KiB, or nested deeper than 64 levels, and for
  /// content of more than 1 Mi characters, which entities can make. Nothing outside the file is
  /// ever opened.
  explicit XmlDocument(const QString &path);

  const XmlElement &root() const { return m_root; }

private:
  std::unique_ptr<QString> m_text; // kept in place when the document is moved
  XmlElement m_root;
};

} // namespace vnb
